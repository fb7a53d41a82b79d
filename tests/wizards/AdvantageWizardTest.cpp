#include <gtest/gtest.h>

#include "support/MemoryTextArea.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

constexpr LineBreakLimits kUnbroken{};
constexpr DoneResult kStays{DoneResult::Kind::StaysOpen, {}, "rtbItemName"};
constexpr DoneResult kCloses{DoneResult::Kind::Closes};

DoneResult refused(std::string_view message, std::string_view focus = {}) {
    return {DoneResult::Kind::Refused, {message, focus}};
}

Opening opening(OpeningMode mode, MemoryTextArea& area) {
    return {.mode = mode, .target = [&area] { return &area; }};
}

void fill(Wizard& wizard, std::initializer_list<std::pair<const char*, const char*>> fields) {
    for (const auto& [name, text] : fields) wizard.state.setText(name, text);
}

TEST(AdvantageWizard, WritesAllItsFieldsInTheirOrder) {
    MemoryTextArea document("Version=2");
    Wizard wizard(kAdWizard, opening(OpeningMode::Insert, document));
    wizard.click("optPoType", kOn);
    fill(wizard, {{"rtbItemName", "N"},
                  {"rtbItemCost", "5"},
                  {"rtbItemCat", "C"},
                  {"rtbItemUpto", "U"},
                  {"rtbItemPage", "P"},
                  {"rtbItemNotes", " "},
                  {"rtbItemNeeds", "E"},
                  {"rtbItemMods", "M"},
                  {"rtbItemGives", "G"},
                  {"cmbPoCat", "K"}});
    EXPECT_EQ(wizard.finish(kUnbroken), kStays);
    EXPECT_EQ(document.Text(),
              "Version=2\r\n[Powers]\r\n\r\n\r\n<K>\r\n"
              "N, 5, gives(G), mods(M), needs(E), notes( ), page(P), upto(U), cat(C)\r\n");
    for (const auto& control : kAdWizard.controls) {
        const bool stays = control.name == "rtbItemCat" || control.name == "cmbPoCat";
        EXPECT_EQ(wizard.state.text(control.name).empty(), !stays) << control.name;
    }
    EXPECT_EQ(wizard.state.control("optPoType").state, kOn);

    fill(wizard, {{"rtbItemName", "Newer"}, {"rtbItemCost", "6"}, {"rtbItemCat", ""}});
    EXPECT_EQ(wizard.finish(kUnbroken), kStays);
    EXPECT_NE(document.Text().find("<K>\r\nNewer, 6\r\nN, 5"), std::string_view::npos) << document.Text();
}

TEST(AdvantageWizard, ChecksInItsOrder) {
    MemoryTextArea document("[Ads]");
    Wizard wizard(kAdWizard, opening(OpeningMode::Insert, document));
    EXPECT_EQ(wizard.finish(kUnbroken), refused("Invalid Entry!", "rtbItemName"));
    fill(wizard, {{"rtbItemName", " "}});
    EXPECT_EQ(wizard.finish(kUnbroken), refused("Invalid Entry!", "rtbItemCost"));
    fill(wizard, {{"rtbItemCost", " "}});
    EXPECT_EQ(wizard.finish(kUnbroken), refused("You MUST select an rtbItem Type!"));
    wizard.click("optDisadType", kOn);
    EXPECT_EQ(wizard.finish(kUnbroken), refused("Invalid Entry!", "cmbDisadCat"));
    EXPECT_EQ(document.Text(), "[Ads]");
}

TEST(AdvantageWizard, EnablesAndShowsByItsType) {
    MemoryTextArea area;
    const struct {
        OpeningMode mode;
        bool showsType, showsCategory, quirkEnablesButtons;
    } rows[] = {{OpeningMode::Insert, true, true, false},
                {OpeningMode::Edit, false, false, true},
                {OpeningMode::Package, false, false, true}};
    for (const auto& row : rows) {
        Wizard wizard(kAdWizard, opening(row.mode, area));
        const auto& state = wizard.state;
        EXPECT_EQ(state.frame("fraType").isVisible, row.showsType);
        EXPECT_FALSE(state.frame("fraCategory").isVisible);
        fill(wizard, {{"rtbItemCost", "7"}, {"rtbItemGives", "G"}});

        wizard.click("optQuirkType", kOn);
        EXPECT_EQ(state.text("rtbItemCost"), "-1");
        EXPECT_EQ(state.text("rtbItemGives"), "G");
        for (const auto* name : {"rtbItemCost", "rtbItemGives", "rtbItemMods", "rtbItemUpto"})
            EXPECT_FALSE(state.control(name).isEnabled) << name;
        for (const auto* name : {"cmdGivesWizard", "cmdUpto"})
            EXPECT_EQ(state.control(name).isEnabled, row.quirkEnablesButtons) << name;
        EXPECT_EQ(state.frame("fraCategory").isVisible, row.showsCategory);
        EXPECT_TRUE(state.control("cmbQuirkCat").isVisible);
        EXPECT_EQ(wizard.place()->section, "[Quirks]");

        wizard.click("optAdType", kOn);
        EXPECT_EQ(state.control("optQuirkType").state, kOff);
        EXPECT_EQ(state.text("rtbItemCost"), "");
        EXPECT_TRUE(state.control("rtbItemUpto").isEnabled && state.control("cmdUpto").isEnabled);
        EXPECT_EQ(state.control("cmbQuirkCat").isVisible, row.mode != OpeningMode::Insert);
        fill(wizard, {{"rtbItemCost", "-10"}});
        wizard.click("optDisadType", kOn);
        EXPECT_EQ(state.text("rtbItemCost"), "-10");
    }
}

TEST(AdvantageWizard, KeepsAQuirksCostForTheNextOne) {
    MemoryTextArea document("[Quirks]\r\n<A>\r\n");
    Wizard wizard(kAdWizard, opening(OpeningMode::Insert, document));
    wizard.fillCombos(document.Text());
    wizard.click("optQuirkType", kOn);
    wizard.click("cmbQuirkCat", 0);
    for (const char* name : {"One", "Two"}) {
        fill(wizard, {{"rtbItemName", name}});
        EXPECT_EQ(wizard.finish(kUnbroken), kStays);
    }
    EXPECT_EQ(document.Text(), "[Quirks]\r\n<A>\r\nTwo, -1\r\nOne, -1\r\n");
}

TEST(AdvantageWizard, GoesIntoThePackagesBoxUnbroken) {
    MemoryTextArea box("Old, 1");
    Wizard wizard(kAdWizard, opening(OpeningMode::Package, box));
    wizard.click("optAdType", kOn);
    fill(wizard, {{"rtbItemName", "Name"}, {"rtbItemCost", "5"}, {"rtbItemNotes", "long notes"}});
    EXPECT_EQ(wizard.finish({.maximum = 10, .tolerance = 5}), kCloses);
    EXPECT_EQ(box.Text(), "Name, 5, notes(long notes)");
}

TEST(AdvantageWizard, LosesNothingWhereTheItemIsGone) {
    MemoryTextArea document("[Ads]\r\nN, 5");
    auto start = opening(OpeningMode::Edit, document);
    start.item = LoadSingleLine(document, 7);
    Wizard wizard(kAdWizard, start);
    wizard.SelectSubsection(kAdWizard.places.front(), "");
    wizard.load();
    document.SetText("[Ads]\r\nM, 5");
    EXPECT_EQ(wizard.finish(kUnbroken), refused(kTextHasChanged));
    EXPECT_EQ(document.Text(), "[Ads]\r\nM, 5");
    EXPECT_EQ(wizard.state.text("rtbItemName"), "N");
}

}  // namespace
