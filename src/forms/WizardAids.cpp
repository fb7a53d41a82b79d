#include "forms/WizardAids.h"

#include <memory>
#include <utility>

#include "forms/AidPopup.h"
#include "forms/WizardForm.h"
#include "forms/frmInput.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "ui/MessageBox.h"
#include "wizards/AidMenus.h"
#include "wizards/SyntaxAid.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::string_view kNoMoreNesting = "Cannot nest any more @Functions!";

/// A wizard that writes into a field of another form.
std::unique_ptr<Wizard> wizardFor(RichTextBox& field, const WizardTable& table, OpeningMode mode) {
    Opening opening;
    opening.mode = mode;
    opening.target = lookupOf(field);
    return makeWizard(table, std::move(opening));
}

}  // namespace

/// The place of an @Function wizard's field in `FunctionTargets`, as long as the wizard is open.
class WizardAids::OpenFunction {
public:
    OpenFunction(WizardAids& aids, RichTextBox& field, int level)
        : aids_(aids), place_(static_cast<size_t>(level)) {
        aids_.FunctionTargets.resize(place_);
        aids_.FunctionTargets.emplace_back(&field);
    }
    ~OpenFunction() { aids_.FunctionTargets.resize(place_); }
    OpenFunction(const OpenFunction&) = delete;
    OpenFunction& operator=(const OpenFunction&) = delete;

    RichTextBox* target() const { return aids_.FunctionTargets[place_]; }

private:
    WizardAids& aids_;
    const size_t place_;
};

WizardAids::WizardAids(WizardServices services) : services_(std::move(services)) {
    services_.showSyntaxAid = [this](WizardForm& form, RichTextBox& field, std::string_view menu,
                                     QPoint place) { SyntaxAid(menu, field, form, place); };
    services_.showGivesWizard = [this](WizardForm& form, RichTextBox& field) {
        ShowGivesWizard(form, field);
    };
    services_.showItemWizard = [this](WizardForm& form, const ItemCall& call) { ShowItemWizard(form, call); };
}

std::string WizardAids::AskFor(std::string_view prompt, QWidget& owner, const PrefixRow* kind) {
    frmInput dialog(services_.highlighter, services_.store);
    if (kind != nullptr) dialog.completeNames(*kind, services_.openTexts);
    dialog.ShowDialog(prompt, &owner);
    return dialog.DialogResult();
}

void WizardAids::SyntaxAid(std::string_view kind, RichTextBox& field, WizardForm& form, QPoint place) {
    const AidMenu* const table = aidMenu(kind);
    if (table == nullptr) return;
    const int position = AidPopup(*table, &form).choose(place);
    const auto ask = [&](std::string_view prompt, const PrefixRow* asked) {
        return AskFor(prompt, form, asked);
    };
    switch (klt::SyntaxAid(*table, position, field, ask)) {
        case AidOutcome::Nothing:
            break;
        case AidOutcome::Inserted:
            field.setFocus();
            break;
        case AidOutcome::OpensFunctions:
            ShowFunctionsWizard(form, field, form.wizard().opening().level);
            break;
        case AidOutcome::OpensMods:
            ShowOver(form, wizardFor(field, kModWizard, OpeningMode::Package));
            break;
    }
}

void WizardAids::ShowFunctionsWizard(QWidget& owner, RichTextBox& field, int level) {
    if (level > readSetting(services_.store, settings::kMaximumNested)) {
        MessageBox(&owner, kNoMoreNesting, MessageIcon::Information, kTitle);
        return;
    }
    const OpenFunction open(*this, field, level);
    WizardForm form(
        makeWizard(kFunctionsWizard, {.target = [&open] { return open.target(); }, .level = level + 1}),
        services_, &owner);
    form.setProperty("Tag", QString::number(level));
    form.exec();
    if (open.target() != nullptr) open.target()->setFocus();
}

void WizardAids::ShowGivesWizard(QWidget& owner, RichTextBox& field) {
    ShowOver(owner, wizardFor(field, kGivesWizard, OpeningMode::Insert));
}

void WizardAids::ShowItemWizard(WizardForm& form, const ItemCall& call) {
    RichTextBox& field = form.field(call.field);
    const auto [table, place] = wizardOfSection(call.section);
    auto wizard = wizardFor(field, *table, OpeningMode::Package);
    wizard->SelectSubsection(*place, {});
    if (call.isFilled) wizard->load(field.Text());
    ShowOver(form, std::move(wizard));
}

void WizardAids::ShowOver(QWidget& owner, std::unique_ptr<Wizard> wizard) {
    WizardForm form(std::move(wizard), services_, &owner);
    form.exec();
    owner.activateWindow();
}

}  // namespace klt
