#include "wizards/Wizards.h"

#include <gtest/gtest.h>

#include "settings/Catalogue.h"
#include "wizards/AidMenus.h"
#include "wizards/FieldHelp.h"

using namespace klt;

namespace {

// What a table holds is asked while it is compiled; what lies beside it, here.
TEST(Wizards, FindBesideThemWhatTheirTablesName) {
    for (const WizardTable* table : allWizards()) {
        EXPECT_NE(settings::windowPosition(table->form), nullptr) << table->form;
        for (const ControlRow& row : table->controls) {
            EXPECT_EQ(row.use == ButtonUse::SyntaxAid, aidMenu(row.menu) != nullptr) << row.name;
            const bool isMark = row.kind == ControlKind::Option || row.kind == ControlKind::Check;
            EXPECT_EQ(isMark || row.kind == ControlKind::Button, fieldHelp(row).empty()) << row.name;
        }
        EXPECT_EQ(wizardOfCommand(table->command), table->command.empty() ? nullptr : table);
    }
    EXPECT_EQ(wizardOfCommand("F1"), nullptr);
}

TEST(Wizards, EachSectionButTheAuthorsHasOne) {
    for (size_t i = 0; i < kSectionNames.size(); ++i) {
        const auto section = static_cast<Section>(i);
        int found = 0;
        for (const WizardTable* table : allWizards())
            for (const PlaceRow& row : table->places) found += sectionOf(row.section) == section ? 1 : 0;
        EXPECT_EQ(found, section == Section::Other || section == Section::Author ? 0 : 1) << kSectionNames[i];
    }
    EXPECT_EQ(wizardOfSection(Section::Quirks).place->combo, "cmbQuirkCat");
}

}  // namespace
