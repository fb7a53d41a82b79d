#include "wizards/Wizards.h"

#include <algorithm>
#include <array>
#include <optional>

#include "wizards/EditedBlock.h"

namespace klt {
namespace {

constexpr std::array kWizards = {&kAdWizard,    &kSkillWizard,    &kSpellWizard, &kStatWizard,
                                 &kModWizard,   &kGroupWizard,    &kBonusWizard, &kPackWizard,
                                 &kGivesWizard, &kFunctionsWizard};

std::optional<EditedItem> takenOut(TextArea& document, Position place, ItemStep step) {
    switch (step) {
        case ItemStep::SingleLine:
            return LoadSingleLine(document, place);
        case ItemStep::BlockIntoBox:
            return LoadBlock(document, place);
        case ItemStep::Package:
            return LoadPackage(document, place);
    }
    return std::nullopt;
}

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
    auto item = takenOut(document, found.EditLineStart, place->step);
    if (!item) return nullptr;
    const std::string subsection(subsectionAbove(document, document.SelStart(), place->isWholeHeading));
    auto wizard = makeWizard(*table, {OpeningMode::Edit, std::move(lookup), std::move(*item), isHostOld});
    wizard->fillCombos(document.Text());
    wizard->SelectSubsection(*place, subsection);
    wizard->load();
    return wizard;
}

}  // namespace klt
