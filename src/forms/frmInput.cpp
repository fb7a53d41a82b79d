#include "forms/frmInput.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "forms/CheckWizardField.h"
#include "ui/FieldPopup.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"
#include "ui/RichTextBox.h"

namespace klt {
namespace {

constexpr int kFieldWidth = 360;

}  // namespace

frmInput::frmInput(modKLTSyntaxHighlighter& highlighter, Store& store)
    : lblCaption_(named<QLabel>("lblCaption", this)),
      richReturn_(named<RichTextBox>("richReturn", RichTextBox::Kind::Field, this)),
      okButton_(named<QPushButton>("OKButton", "&OK", this)),
      cancelButton_(named<QPushButton>("CancelButton", "&Cancel", this)) {
    setObjectName("frmInput");
    setWindowTitle("KLT Editor Beta");
    buildLayout();
    makeWizardField(*richReturn_, "name(", highlighter, store);
    addFieldPopup(*richReturn_);
    connect(richReturn_, &RichTextBox::Change, this,
            [this] { okButton_->setEnabled(richReturn_->Length() > 0); });
    connect(okButton_, &QPushButton::clicked, this, &frmInput::TerminateDialog);
    connect(cancelButton_, &QPushButton::clicked, this, &frmInput::reject);
}

void frmInput::buildLayout() {
    lblCaption_->setBuddy(richReturn_);
    lblCaption_->setWordWrap(true);
    richReturn_->setMinimumWidth(kFieldWidth);
    okButton_->setEnabled(false);
    okButton_->setDefault(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(okButton_, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancelButton_, QDialogButtonBox::RejectRole);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lblCaption_);
    column->addWidget(richReturn_);
    column->addStretch();
    column->addWidget(buttons);
    richReturn_->setFocus();
}

void frmInput::ShowDialog(std::string_view prompt, QWidget* owner, std::string_view title) {
    if (!title.empty()) setWindowTitle(toQString(title));
    lblCaption_->setText(toQString(prompt));
    richReturn_->setAccessibleName(toQString(prompt));
    setParent(owner, windowFlags());
    exec();
}

void frmInput::completeNames(const PrefixRow& kind, OpenTexts openTexts) {
    addCompletion(
        *richReturn_, [&kind](std::string_view, size_t) { return CompletionPlace{.prefix = &kind}; },
        std::move(openTexts));
}

std::string frmInput::DialogResult() const {
    return std::string(richReturn_->Text());
}

void frmInput::TerminateDialog() {
    Terminated = true;
    done(Accepted);
}

void frmInput::reject() {
    if (Terminated) return;
    richReturn_->SetText({});
    TerminateDialog();
}

}  // namespace klt
