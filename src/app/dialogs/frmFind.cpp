#include "app/dialogs/frmFind.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <utility>

#include "app/commands/CommandQueue.h"
#include "app/modVariables.h"
#include "platform/ProgramNames.h"
#include "text/LineEnds.h"
#include "ui/Combo.h"
#include "ui/FieldLabel.h"
#include "ui/FormPlace.h"
#include "ui/MessageBox.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"
#include "ui/RichTextBox.h"
#include "ui/WaitCursor.h"
#include "ui/modKLTSyntaxHighlighter.h"

namespace klt {
namespace {

constexpr WindowPosition kPosition = *settings::windowPosition("frmFind");

Combo* makeCombo(const char* name) {
    constexpr int kCharactersShown = 28;
    auto* combo = named<Combo>(name, TypedText::Lines);
    combo->setMinimumContentsLength(kCharactersShown);
    return combo;
}

/// Its text as it stands in documents.
std::string textOf(const Combo& combo) {
    return withCrLf(combo.currentText().toStdString());
}

/// Shows the list; the text in the field stays, and nobody is told of a change.
void showHistory(Combo& combo, const FindHistory& history) {
    const QSignalBlocker silent(combo);
    const QString text = combo.currentText();
    combo.clear();
    for (const auto& entry : history.entries()) combo.addItem(toQString(entry));
    combo.setCurrentIndex(-1);
    combo.setEditText(text);
}

}  // namespace

frmFind::frmFind(FindServices services, QWidget* owner)
    : QDialog(owner),
      services_(std::move(services)),
      searches_(FindHistory::load(services_.store, settings::kSearchStrings)),
      replacements_(FindHistory::load(services_.store, settings::kReplaceStrings)) {
    setObjectName("frmFind");
    auto* all = new QGridLayout(this);
    all->addLayout(buildFields(), 0, 0);
    all->addLayout(buildOptions(), 1, 0);
    all->addLayout(buildButtons(), 0, 1, 3, 1);
    all->setRowStretch(2, 1);
    all->setColumnStretch(0, 1);
    // A button can be the default one only once its dialog holds it.
    cmdFindReplace[0]->setDefault(true);
    showHistory(*Combo1, searches_);
    showHistory(*Combo2, replacements_);
    takeSelection();
    wire();
    setShape(Shape::Find);
    restorePosition(*this, services_.store, kPosition);
}

QLayout* frmFind::buildFields() {
    Combo1 = makeCombo("Combo1");
    Combo2 = makeCombo("Combo2");
    auto* fields = new QGridLayout;
    fields->addWidget(fieldLabel("&Find What:", *Combo1), 0, 0);
    fields->addWidget(Combo1, 0, 1);
    replaceLabel_ = fieldLabel("Replace &With:", *Combo2);
    fields->addWidget(replaceLabel_, 1, 0);
    fields->addWidget(Combo2, 1, 1);
    return fields;
}

QLayout* frmFind::buildOptions() {
    auto* frame = new QGroupBox("Direction");
    optDirectionUp = named<QRadioButton>("optDirectionUp", "&Up");
    optDirectionDown = named<QRadioButton>("optDirectionDown", "&Down");
    optDirectionAll = named<QRadioButton>("optDirectionAll", "&All");
    frame->setLayout(new QVBoxLayout);
    for (auto* option : {optDirectionUp, optDirectionDown, optDirectionAll})
        frame->layout()->addWidget(option);
    optDirectionDown->setChecked(true);

    chkWholeWordOnly = named<QCheckBox>("chkWholeWordOnly", "Find Whole Word &Only");
    chkMatchCase = named<QCheckBox>("chkMatchCase", "Match Ca&se");
    chkStartFromBeginning = named<QCheckBox>("chkStartFromBeginning", "&Start From Beginning");
    auto* checks = new QVBoxLayout;
    checks->addStretch();
    for (auto* check : {chkWholeWordOnly, chkMatchCase, chkStartFromBeginning}) checks->addWidget(check);
    checks->addStretch();

    auto* options = new QHBoxLayout;
    options->addWidget(frame);
    options->addLayout(checks);
    options->addStretch();
    return options;
}

QLayout* frmFind::buildButtons() {
    constexpr std::array kNames = {"cmdFindReplace(0)", "cmdFindReplace(1)", "cmdFindReplace(2)"};
    constexpr std::array kCaptions = {"Find &Next", "&Replace", "Rep&lace All"};
    auto* buttons = new QVBoxLayout;
    for (size_t n = 0; n < kCaptions.size(); ++n) {
        cmdFindReplace[n] = named<QPushButton>(kNames[n], kCaptions[n]);
        buttons->addWidget(cmdFindReplace[n]);
    }
    Command2 = named<QPushButton>("Command2", "Cancel");
    buttons->addWidget(Command2);
    buttons->addStretch();
    Command4 = named<QPushButton>("Command4", "&Help");
    Command4->setEnabled(static_cast<bool>(services_.showHelp));
    buttons->addWidget(Command4);
    return buttons;
}

void frmFind::wire() {
    connect(Combo1, &Combo::editTextChanged, this, &frmFind::findTextChanged);
    connect(Combo1, &Combo::activated, this, &frmFind::findTextChanged);
    connect(Combo2, &Combo::editTextChanged, this, [this] { restart_ = true; });
    for (const auto button : {FindButton::FindNext, FindButton::Replace, FindButton::ReplaceAll})
        connect(cmdFindReplace[static_cast<size_t>(button)], &QPushButton::clicked, this,
                [this, button] { pressed(button); });
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(Command4, &QPushButton::clicked, this, [this] { services_.showHelp(); });
    connect(this, &QDialog::finished, this, &frmFind::unload);
}

void frmFind::takeSelection() {
    // A longer text makes the field slow, and nobody looks for one.
    constexpr Position kMost = Position{1} << 20;
    const RichTextBox* const text = services_.activeText();
    if (text == nullptr) return;
    if (text->SelLength() > kMost) {
        Combo1->lineEdit()->setPlaceholderText("The selected text is too long to look for");
    } else {
        Combo1->setEditText(toQString(text->SelText()));
    }
}

void frmFind::setShape(Shape shape) {
    shape_ = shape;
    const bool replaces = shape == Shape::Replace;
    setWindowTitle(replaces ? "Replace" : "Find");
    for (QWidget* control : {static_cast<QWidget*>(replaceLabel_), static_cast<QWidget*>(Combo2),
                             static_cast<QWidget*>(cmdFindReplace[2])})
        control->setVisible(replaces);
    updateButtons();
    layout()->activate();
    resize(std::max(width(), sizeHint().width()), sizeHint().height());
    Combo1->setFocus();
    Combo1->lineEdit()->selectAll();
}

void frmFind::unload() {
    searches_.save(services_.store, settings::kSearchStrings);
    replacements_.save(services_.store, settings::kReplaceStrings);
    storePosition(*this, services_.store, kPosition);
    deleteLater();
}

void frmFind::findTextChanged() {
    updateButtons();
    restart_ = true;
}

void frmFind::updateButtons() {
    const bool hasText = !Combo1->currentText().isEmpty();
    cmdFindReplace[0]->setEnabled(hasText);
    // In the shape Find it only switches to Replace, which needs no text.
    cmdFindReplace[1]->setEnabled(hasText || shape_ == Shape::Find);
    cmdFindReplace[2]->setEnabled(hasText);
}

void frmFind::pressed(FindButton button) {
    if (button == FindButton::Replace && shape_ == Shape::Find) {
        setShape(Shape::Replace);
        findTextChanged();
        Command2->setFocus();
        return;
    }
    services_.queue.submit(Origin::User, [form = QPointer(this), button] {
        if (form) form->run(button);
    });
}

FindRequest frmFind::request() const {
    FindRequest request = {
        .find = textOf(*Combo1),
        .with = textOf(*Combo2),
        .options = {.wholeWord = chkWholeWordOnly->isChecked(), .matchCase = chkMatchCase->isChecked()},
        .direction = FindDirection::Down,
        .startFromBeginning = chkStartFromBeginning->isChecked(),
        .beginsAfresh = restart_};
    if (optDirectionUp->isChecked()) request.direction = FindDirection::Up;
    if (optDirectionAll->isChecked()) request.direction = FindDirection::All;
    return request;
}

void frmFind::enterHistories(FindButton button) {
    searches_.enter(textOf(*Combo1));
    showHistory(*Combo1, searches_);
    if (button == FindButton::FindNext) return;
    replacements_.enter(textOf(*Combo2));
    showHistory(*Combo2, replacements_);
}

void frmFind::run(FindButton button) {
    RichTextBox* const active = services_.activeText();
    if (active == nullptr) return;
    RichTextBox& text = *active;
    enterHistories(button);
    FindOutcome outcome;
    {
        const WaitCursor waiting;
        const RaisedFlag suppressed(services_.SuppressCaretUpdate);
        outcome = runFind(text, button, request());
        if (outcome.isNewText) services_.highlighter.SetDocumentFormat(text);
    }
    // The bars have not heard of the caret's moves.
    emit text.SelChange();
    if (outcome.searchedOn) chkStartFromBeginning->setChecked(false);
    const std::string message = findMessage(button, outcome);
    restart_ = !message.empty();
    if (restart_) MessageBox(this, message, MessageIcon::Information, kTitle);
}

}  // namespace klt
