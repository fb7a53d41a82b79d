#include "wizards/AidMenus.h"

#include <algorithm>
#include <array>

namespace klt {
namespace {

constexpr bool kSub = true;

constexpr std::array kDefault = {
    AidItem{"S&tat"},
    AidItem{"&ST", "ST-", kSub},
    AidItem{"&DX", "DX-", kSub},
    AidItem{"&IQ", "IQ-", kSub},
    AidItem{"&HT", "HT-", kSub},
    AidItem{"&Other...", "", kSub},
    AidItem{"&Skill", "SK:"},
    AidItem{"S&pell", "SP:"},
    AidItem{"-@Functions"},
    AidItem{"&@Functions..."},
};

constexpr std::array kGives = {
    AidItem{"-Individual Items"},
    AidItem{"Give to an &Ad", "AD:"},
    AidItem{"Give to a &Disad", "DI:"},
    AidItem{"Give to a &Power", "PO:"},
    AidItem{"Give to a &Skill", "SK:"},
    AidItem{"Give to a Sp&ell", "SP:"},
    AidItem{"Give to a S&tat"},
    AidItem{"-Groups"},
    AidItem{"Give to a &Class", "CL:"},
    AidItem{"Give to a C&ollege", "CO:"},
    AidItem{"Give to a &Group", "GR:"},
    AidItem{"-Keywords"},
    AidItem{"Po&int modifiers"},
    AidItem{"Give to all &Skill Points", "SkillPoints", kSub},
    AidItem{"Give to all &Physical Skill Points", "PhysicalSkillPoints", kSub},
    AidItem{"Give to all &Mental Skill Points", "MentalSkillPoints", kSub},
    AidItem{"Give to all Ph&ysical Spell Points", "PhysicalSpellPoints", kSub},
    AidItem{"Give to all M&ental Spell Points", "MentalSpellPoints", kSub},
    AidItem{"Give to all S&T-Based Skill Points", "STSkillPoints", kSub},
    AidItem{"Give to all &DX-Based Skill Points", "DXSkillPoints", kSub},
    AidItem{"Give to all &IQ-Based Skill Points", "IQSkillPoints", kSub},
    AidItem{"Give to all &HT-Based Skill Points", "HTSkillPoints", kSub},
    AidItem{"Give to all S&kills", "Skills"},
    AidItem{"Give to all Spe&lls", "Spells"},
    AidItem{"Give to Prerequisite", "prereq"},
    AidItem{"-@Functions"},
    AidItem{"&@Functions..."},
};

constexpr std::array kGives2 = {
    AidItem{"Give an &Ad's level", "AD:"},
    AidItem{"Give a &Disad's level", "DI:"},
    AidItem{"Give a &Power's level", "PO:"},
    AidItem{"Give a &Skill's level", "SK:"},
    AidItem{"Give a Sp&ell's level", "SP:"},
    AidItem{"Give a S&tat's level"},
    AidItem{"-Keyword"},
    AidItem{"Give current item's level", "%level"},
    AidItem{"-@Functions"},
    AidItem{"&@Functions..."},
};

constexpr std::array kGives3 = {
    AidItem{"Upto to an &Ad", "AD:"},
    AidItem{"Upto to a &Disad", "DI:"},
    AidItem{"Upto to a &Power", "PO:"},
    AidItem{"Upto to a &Skill", "SK:"},
    AidItem{"Upto to a Sp&ell", "SP:"},
    AidItem{"Upto to a S&tat"},
    AidItem{"-Keywords"},
    AidItem{"Upto current item's level", "%level"},
    AidItem{"Upto to Prerequisite", "prereq"},
    AidItem{"-@Functions"},
    AidItem{"&@Functions..."},
};

constexpr std::array kNeeds = {
    AidItem{"Needs an &Ad", "AD:"},
    AidItem{"Needs a &Class", "CL:"},
    AidItem{"Needs a C&ollege", "CO:"},
    AidItem{"Needs a &Disad", "DI:"},
    AidItem{"Needs a &Group", "GR:"},
    AidItem{"Needs a &Power", "PO:"},
    AidItem{"Needs a &Quirk", "QU:"},
    AidItem{"Needs a &Skill", "SK:"},
    AidItem{"Needs a Spe&ll", "SP:"},
    AidItem{"Needs a S&tat"},
    AidItem{"-Operators"},
    AidItem{"Log&ical Operators"},
    AidItem{"Needs this A&ND that", ", ", kSub},
    AidItem{"Needs this O&R that", " | ", kSub},
    AidItem{"Evaluation Operators"},
    AidItem{"Greater than", ">", kSub},
    AidItem{"Greater than, or equal to", ">=", kSub},
    AidItem{"Smaller than", "<", kSub},
    AidItem{"Smaller than, or equal to", "<=", kSub},
    AidItem{"Exactly equal to", "==", kSub},
    AidItem{"-Keywords"},
    AidItem{"Needs X Colleges", "Colleges"},
    AidItem{"Needs X Other Colleges", "Other Colleges"},
    AidItem{"Needs X Spells", "Spells"},
    AidItem{"-@Functions: Right hand side only"},
    AidItem{"&@Functions..."},
};

constexpr std::array kUpto = {
    AidItem{"Upto an &Ad", "AD:"},
    AidItem{"Upto a &Disad", "DI:"},
    AidItem{"Upto a &Power", "PO:"},
    AidItem{"Upto a &Skill", "SK:"},
    AidItem{"Upto a Spe&ll", "SP:"},
    AidItem{"Upto a S&tat"},
    AidItem{"-Keywords"},
    AidItem{"&Default", "default"},
    AidItem{"Prere&quisite", "prereq"},
    AidItem{"Lo&west prere&quisite", "lowprereq"},
    AidItem{"-@Functions"},
    AidItem{"&@Functions..."},
};

constexpr std::array kFunctions = {
    AidItem{"&Advantage", "AD:"},
    AidItem{"&Disadvantage", "DI:"},
    AidItem{"&Power", "PO:"},
    AidItem{"&Quirk", "QU:"},
    AidItem{"&Skill", "SK:"},
    AidItem{"Spe&ll", "SP:"},
    AidItem{"Sta&t"},
    AidItem{"-@Functions"},
    AidItem{"&@Functions"},
};

constexpr std::array kPackMods = {
    AidItem{"&More than one mod"},
    AidItem{"Mod &Wizard..."},
};

constexpr int kToEnd = 1'000;
constexpr bool kSeparated = true;

constexpr std::array kDefaultRules = {
    AidRule{9, AidAct::AskName, "Type the name of the item to which skill defaults:", kSeparated},
    AidRule{kToEnd, AidAct::OpenFunctions},
};
constexpr std::array kGivesRules = {
    AidRule{12, AidAct::AskName, "Type the name of the item that will receive the bonus:", kSeparated},
    AidRule{26, AidAct::Insert},
    AidRule{kToEnd, AidAct::OpenFunctions},
};
constexpr std::array kGives2Rules = {
    AidRule{7, AidAct::AskName, "Type the name of the item on which the bonus will be based:", kSeparated},
    AidRule{9, AidAct::Insert},
    AidRule{kToEnd, AidAct::OpenFunctions},
};
constexpr std::array kGives3Rules = {
    AidRule{7, AidAct::AskName, "Type the name of the limiting item:", kSeparated},
    AidRule{10, AidAct::Insert},
    AidRule{kToEnd, AidAct::OpenFunctions},
};
constexpr std::array kNeedsRules = {
    AidRule{10, AidAct::AskName, "Type the name of the needed item:", kSeparated},
    AidRule{21, AidAct::Insert},
    AidRule{25, AidAct::AskNumber, "Type the ammount of needed items:", kSeparated},
    AidRule{kToEnd, AidAct::OpenFunctions},
};
constexpr std::array kUptoRules = {
    AidRule{6, AidAct::AskName, "Type the name of the limiting item:"},
    AidRule{11, AidAct::Insert},
    AidRule{kToEnd, AidAct::OpenFunctions},
};
constexpr std::array kFunctionsRules = {
    AidRule{8, AidAct::AskName, "Type the name of the item:", kSeparated},
    AidRule{kToEnd, AidAct::OpenFunctions},
};

constexpr std::array kMenus = {
    AidMenu{"Default", kDefault, kDefaultRules},
    AidMenu{"Gives", kGives, kGivesRules},
    AidMenu{"Gives2", kGives2, kGives2Rules},
    AidMenu{"Gives3", kGives3, kGives3Rules},
    AidMenu{"Needs", kNeeds, kNeedsRules},
    AidMenu{"Upto", kUpto, kUptoRules},
    AidMenu{"Functions", kFunctions, kFunctionsRules},
    AidMenu{"PackMods", kPackMods, {}},
};

}  // namespace

std::span<const AidMenu> aidMenus() {
    return kMenus;
}

const AidMenu* aidMenu(std::string_view name) {
    const auto* const found = std::ranges::find(kMenus, name, &AidMenu::name);
    return found == kMenus.end() ? nullptr : found;
}

bool isChoosable(const AidMenu& menu, int position) {
    if (position < 1 || position > static_cast<int>(menu.items.size())) return false;
    const auto place = static_cast<size_t>(position - 1);
    const AidItem& item = menu.items[place];
    if (item.caption.starts_with('-')) return false;
    const bool hasSubMenu =
        !item.isSubItem && place + 1 < menu.items.size() && menu.items[place + 1].isSubItem;
    return !hasSubMenu;
}

}  // namespace klt
