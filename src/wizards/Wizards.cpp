#include "wizards/Wizards.h"

#include <algorithm>
#include <array>

namespace klt {
namespace {

constexpr std::array kWizards = {&kAdWizard,  &kSkillWizard, &kSpellWizard,    &kStatWizard,
                                 &kModWizard, &kGivesWizard, &kFunctionsWizard};

}  // namespace

std::span<const WizardTable* const> allWizards() {
    return kWizards;
}

const WizardTable* wizardOfCommand(std::string_view key) {
    const auto found = std::ranges::find(kWizards, key, &WizardTable::command);
    return key.empty() || found == kWizards.end() ? nullptr : *found;
}

SectionWizard wizardOfSection(Section section) {
    for (const WizardTable* table : kWizards) {
        const auto place = std::ranges::find_if(
            table->places, [section](const PlaceRow& row) { return sectionOf(row.section) == section; });
        if (place != table->places.end()) return {table, &*place};
    }
    return {};
}

std::unique_ptr<Wizard> wizardOfItem(TextArea& document, AreaLookup lookup, const EditLineResult& found,
                                     bool isHostOld) {
    const auto [table, place] = wizardOfSection(found.section);
    if (table == nullptr) return nullptr;
    const std::string subsection(subsectionAbove(document, found.EditLineStart, place->isWholeHeading));
    auto item = LoadSingleLine(document, found.EditLineStart);
    auto wizard = makeWizard(*table, {OpeningMode::Edit, std::move(lookup), std::move(item), isHostOld});
    wizard->fillCombos(document.Text());
    wizard->SelectSubsection(*place, subsection);
    wizard->load();
    return wizard;
}

}  // namespace klt
