#include "wizards/EditSections.h"

#include <algorithm>
#include <array>

#include "text/Ascii.h"

namespace klt {
namespace {

constexpr std::array kSections = {
    EditSection{"ADS", "frmAdWizard", "cmbAdCat", "optAdType"},
    EditSection{"DISADS", "frmAdWizard", "cmbDisadCat", "optDisadType"},
    EditSection{"POWERS", "frmAdWizard", "cmbPoCat", "optPoType"},
    EditSection{"QUIRKS", "frmAdWizard", "cmbQuirkCat", "optQuirkType"},
    EditSection{"SKILLS", "frmSkillWizard", "cmbItemClass"},
    EditSection{"SPELLS", "frmSpellWizard", "SpellCollege"},
    EditSection{"STATS", "frmStatWizard"},
    EditSection{"MODS", "frmModWizard", "ModGroup"},
    EditSection{"GROUPS", "frmGroupWizard", "GroupName", "", ItemStep::BlockIntoBox, "FullGroup"},
    EditSection{"BONUS", "frmBonusWizard", "FullBonusLine", "", ItemStep::BlockIntoBox, "FullBonus", true},
    EditSection{"PACKAGES", "frmPackWizard", "PackCat", "", ItemStep::Package, "FullPackage"},
};

}  // namespace

const EditSection* editSection(std::string_view name) {
    const auto* const found = std::ranges::find_if(
        kSections, [name](const EditSection& each) { return equalIgnoringAsciiCase(each.name, name); });
    return found == kSections.end() ? nullptr : found;
}

}  // namespace klt
