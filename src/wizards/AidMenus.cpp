#include "wizards/AidMenus.h"

#include <algorithm>
#include <array>

namespace klt {
namespace {

constexpr AidItem heading(std::string_view text) {
    return {text, AidAct::Heading};
}

/// Opens the sub-menu of the items below it.
constexpr AidItem subMenu(std::string_view caption) {
    return {caption, AidAct::SubMenu};
}

constexpr AidItem askName(std::string_view caption, std::string_view tag = {}) {
    return {caption, AidAct::AskName, tag};
}

constexpr AidItem askNumber(std::string_view caption, std::string_view tag) {
    return {caption, AidAct::AskNumber, tag};
}

constexpr AidItem insert(std::string_view caption, std::string_view tag) {
    return {caption, AidAct::Insert, tag};
}

constexpr AidItem functions(std::string_view caption) {
    return {caption, AidAct::OpenFunctions};
}

/// In the sub-menu of the item above.
constexpr AidItem sub(AidItem item) {
    item.isSubItem = true;
    return item;
}

constexpr std::array kDefault = {
    subMenu("S&tat"),           sub(askName("&ST", "ST-")),
    sub(askName("&DX", "DX-")), sub(askName("&IQ", "IQ-")),
    sub(askName("&HT", "HT-")), sub(askName("&Other...")),
    askName("&Skill", "SK:"),   askName("S&pell", "SP:"),
    heading("@Functions"),      functions("&@Functions..."),
};

constexpr std::array kGives = {
    heading("Individual Items"),
    askName("Give to an &Ad", "AD:"),
    askName("Give to a &Disad", "DI:"),
    askName("Give to a &Power", "PO:"),
    askName("Give to a &Skill", "SK:"),
    askName("Give to a Sp&ell", "SP:"),
    askName("Give to a S&tat"),
    heading("Groups"),
    askName("Give to a &Class", "CL:"),
    askName("Give to a C&ollege", "CO:"),
    askName("Give to a &Group", "GR:"),
    heading("Keywords"),
    subMenu("Po&int modifiers"),
    sub(insert("Give to all &Skill Points", "SkillPoints")),
    sub(insert("Give to all &Physical Skill Points", "PhysicalSkillPoints")),
    sub(insert("Give to all &Mental Skill Points", "MentalSkillPoints")),
    sub(insert("Give to all Ph&ysical Spell Points", "PhysicalSpellPoints")),
    sub(insert("Give to all M&ental Spell Points", "MentalSpellPoints")),
    sub(insert("Give to all S&T-Based Skill Points", "STSkillPoints")),
    sub(insert("Give to all &DX-Based Skill Points", "DXSkillPoints")),
    sub(insert("Give to all &IQ-Based Skill Points", "IQSkillPoints")),
    sub(insert("Give to all &HT-Based Skill Points", "HTSkillPoints")),
    insert("Give to all S&kills", "Skills"),
    insert("Give to all Spe&lls", "Spells"),
    insert("Give to Prerequisite", "prereq"),
    heading("@Functions"),
    functions("&@Functions..."),
};

constexpr std::array kGives2 = {
    askName("Give an &Ad's level", "AD:"),
    askName("Give a &Disad's level", "DI:"),
    askName("Give a &Power's level", "PO:"),
    askName("Give a &Skill's level", "SK:"),
    askName("Give a Sp&ell's level", "SP:"),
    askName("Give a S&tat's level"),
    heading("Keyword"),
    insert("Give current item's level", "%level"),
    heading("@Functions"),
    functions("&@Functions..."),
};

constexpr std::array kGives3 = {
    askName("Upto to an &Ad", "AD:"),
    askName("Upto to a &Disad", "DI:"),
    askName("Upto to a &Power", "PO:"),
    askName("Upto to a &Skill", "SK:"),
    askName("Upto to a Sp&ell", "SP:"),
    askName("Upto to a S&tat"),
    heading("Keywords"),
    insert("Upto current item's level", "%level"),
    insert("Upto to Prerequisite", "prereq"),
    heading("@Functions"),
    functions("&@Functions..."),
};

constexpr std::array kNeeds = {
    askName("Needs an &Ad", "AD:"),
    askName("Needs a &Class", "CL:"),
    askName("Needs a C&ollege", "CO:"),
    askName("Needs a &Disad", "DI:"),
    askName("Needs a &Group", "GR:"),
    askName("Needs a &Power", "PO:"),
    askName("Needs a &Quirk", "QU:"),
    askName("Needs a &Skill", "SK:"),
    askName("Needs a Spe&ll", "SP:"),
    askName("Needs a S&tat"),
    heading("Operators"),
    subMenu("Log&ical Operators"),
    sub(insert("Needs this A&ND that", ", ")),
    sub(insert("Needs this O&R that", " | ")),
    subMenu("Evaluation Operators"),
    sub(insert("Greater than", ">")),
    sub(insert("Greater than, or equal to", ">=")),
    sub(insert("Smaller than", "<")),
    sub(insert("Smaller than, or equal to", "<=")),
    sub(insert("Exactly equal to", "==")),
    heading("Keywords"),
    askNumber("Needs X Colleges", "Colleges"),
    askNumber("Needs X Other Colleges", "Other Colleges"),
    askNumber("Needs X Spells", "Spells"),
    heading("@Functions: Right hand side only"),
    functions("&@Functions..."),
};

constexpr std::array kUpto = {
    askName("Upto an &Ad", "AD:"),
    askName("Upto a &Disad", "DI:"),
    askName("Upto a &Power", "PO:"),
    askName("Upto a &Skill", "SK:"),
    askName("Upto a Spe&ll", "SP:"),
    askName("Upto a S&tat"),
    heading("Keywords"),
    insert("&Default", "default"),
    insert("Prere&quisite", "prereq"),
    insert("Lo&west prere&quisite", "lowprereq"),
    heading("@Functions"),
    functions("&@Functions..."),
};

constexpr std::array kFunctions = {
    askName("&Advantage", "AD:"),
    askName("&Disadvantage", "DI:"),
    askName("&Power", "PO:"),
    askName("&Quirk", "QU:"),
    askName("&Skill", "SK:"),
    askName("Spe&ll", "SP:"),
    askName("Sta&t"),
    heading("@Functions"),
    functions("&@Functions"),
};

constexpr std::array kPackMods = {
    AidItem{"&More than one mod", AidAct::Append, " .AND. "},
    AidItem{"Mod &Wizard...", AidAct::OpenMods},
};

constexpr bool kJoined = false;

constexpr std::array kMenus = {
    AidMenu{"Default", kDefault, "Type the name of the item to which skill defaults:"},
    AidMenu{"Gives", kGives, "Type the name of the item that will receive the bonus:"},
    AidMenu{"Gives2", kGives2, "Type the name of the item on which the bonus will be based:"},
    AidMenu{"Gives3", kGives3, "Type the name of the limiting item:"},
    AidMenu{"Needs", kNeeds, "Type the name of the needed item:", "Type the ammount of needed items:"},
    AidMenu{"Upto", kUpto, "Type the name of the limiting item:", {}, kJoined},
    AidMenu{"Functions", kFunctions, "Type the name of the item:"},
    AidMenu{"PackMods", kPackMods},
};

}  // namespace

std::span<const AidMenu> aidMenus() {
    return kMenus;
}

const AidMenu* aidMenu(std::string_view name) {
    const auto* const found = std::ranges::find(kMenus, name, &AidMenu::name);
    return found == kMenus.end() ? nullptr : found;
}

const AidItem* choosableItem(const AidMenu& menu, int position) {
    if (position < 1 || position > static_cast<int>(menu.items.size())) return nullptr;
    const AidItem& item = menu.items[static_cast<size_t>(position - 1)];
    return item.act == AidAct::Heading || item.act == AidAct::SubMenu ? nullptr : &item;
}

}  // namespace klt
