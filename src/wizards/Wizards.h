#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "language/Section.h"
#include "wizards/EditLine.h"
#include "wizards/Wizard.h"

namespace klt {

/// Advantages, disadvantages, powers and quirks: lines of one shape for four sections.
extern const WizardTable kAdWizard;
extern const WizardTable kSkillWizard;
extern const WizardTable kSpellWizard;
extern const WizardTable kStatWizard;
extern const WizardTable kModWizard;
extern const WizardTable kGroupWizard;
extern const WizardTable kBonusWizard;
extern const WizardTable kPackWizard;
/// One bonus of a "gives(" field.
extern const WizardTable kGivesWizard;
/// One call of an @function.
extern const WizardTable kFunctionsWizard;

/// Every wizard that there is.
std::span<const WizardTable* const> allWizards();

/// The wizard that a menu command opens; null for another command's key.
const WizardTable* wizardOfCommand(std::string_view key);

/// What edits the items of a section: a wizard and its row of the section. Both null for the Author section.
struct SectionWizard {
    const WizardTable* table = nullptr;
    const PlaceRow* place = nullptr;
};
SectionWizard wizardOfSection(Section section);

/// The wizard of the item that was found at the caret, filled from it; the item is selected in `document`,
/// which `lookup` finds later. Null where no item stands there: outside the packages of their section.
std::unique_ptr<Wizard> wizardOfItem(TextArea& document, AreaLookup lookup, const EditLineResult& found,
                                     bool isHostOld = false);

}  // namespace klt
