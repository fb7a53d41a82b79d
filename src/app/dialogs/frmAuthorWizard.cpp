#include "app/dialogs/frmAuthorWizard.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/dialogs/Addresses.h"
#include "app/dialogs/CopyrightPages.h"
#include "app/dialogs/FileNameEdit.h"
#include "forms/FittingArea.h"
#include "forms/WizardCombo.h"
#include "platform/Clock.h"
#include "platform/Paths.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "text/Ascii.h"
#include "ui/FieldPopup.h"
#include "ui/FormPlace.h"
#include "ui/MessageBox.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"
#include "ui/WaitCursor.h"
#include "wizards/LinePlace.h"
#include "wizards/Wizard.h"

namespace klt {
namespace {

constexpr char kName[] = "frmAuthorWizard";
constexpr ControlRow kNameRow{.name = "AuthorName", .kind = ControlKind::CategoryCombo, .label = "Name:"};
constexpr std::array kAddressLabels = {"E-mail #1: ", "E-mail #2:", "E-mail #3:"};
constexpr int kFieldWidth = 160;

std::vector<AuthorProfile> profilesOf(Store& store) {
    seedAuthorProfilesOnce(store);
    return readAuthorProfiles(store);
}

/// A line of labels around a field.
void addField(QGridLayout& grid, QWidget& field, std::string_view before, std::string_view behind = {}) {
    const int line = grid.rowCount();
    auto* label = new QLabel(literally(before));
    label->setBuddy(&field);
    field.setMinimumWidth(kFieldWidth);
    grid.addWidget(label, line, 0);
    grid.addWidget(&field, line, 1, 1, behind.empty() ? 2 : 1);
    if (!behind.empty()) grid.addWidget(new QLabel(literally(behind)), line, 2);
}

/// The fields of different frames begin at one place.
void alignLabels(const QWidget& content) {
    const auto labels = content.findChildren<QLabel*>();
    int width = 0;
    for (const auto* label : labels)
        if (label->buddy() != nullptr) width = std::max(width, label->sizeHint().width());
    for (auto* label : labels)
        if (label->buddy() != nullptr) label->setMinimumWidth(width);
}

/// A frame whose lines stand at its top.
QWidget* makeFrame(const char* caption, QGridLayout* lines) {
    auto* frame = new QGroupBox(caption);
    lines->setColumnStretch(1, 1);
    lines->setRowStretch(lines->rowCount(), 1);
    frame->setLayout(lines);
    return frame;
}

}  // namespace

frmAuthorWizard::frmAuthorWizard(WizardServices services, AuthorDocument document, QWidget* owner)
    : QDialog(owner),
      services_(std::move(services)),
      document_(std::move(document)),
      entry_(profilesOf(services_.store), readSetting(services_.store, settings::kLastAuthor)),
      AuthorName_(
          new WizardCombo(kNameRow, entry_.name, services_.store, services_.SuppressCaretUpdate, this)),
      vbTabControl1_(makeCopyrightPages()) {
    setObjectName(kName);
    setWindowTitle("Author Section Wizard");
    buildLayout();
    fill();
}

frmAuthorWizard::~frmAuthorWizard() {
    keepAuthor();
}

QWidget* frmAuthorWizard::makeContact() {
    auto* lines = new QGridLayout;
    AuthorName_->setObjectName(toQString(kNameRow.name));
    addField(*lines, *AuthorName_, kNameRow.label);
    connect(AuthorName_, &WizardCombo::stateChanged, this, [this] {
        entry_.follow();
        showAddresses();
    });
    connect(AuthorName_, &WizardCombo::activated, this, [this](int item) {
        entry_.choose(item);
        AuthorName_->showState();
        showAddresses();
    });
    for (size_t i = 0; i < Email_.size(); ++i) {
        Email_[i] = new QLineEdit;
        Email_[i]->setObjectName(QString("Email(%1)").arg(i));
        addField(*lines, *Email_[i], kAddressLabels[i]);
        connect(Email_[i], &QLineEdit::textChanged, this,
                [this, i](const QString& text) { entry_.typeAddress(i, text.toStdString()); });
    }
    return makeFrame("Contact Info", lines);
}

QWidget* frmAuthorWizard::makeFile() {
    auto* lines = new QGridLayout;
    for (const auto& [name, before, behind] : kFileRows) {
        QLineEdit* const field = behind == kFileEnding ? new FileNameEdit : new QLineEdit;
        field->setObjectName(toQString(name));
        addField(*lines, *field, trimBlanks(before), trimBlanks(behind));
    }
    return makeFrame("Data File Info", lines);
}

QWidget* frmAuthorWizard::makeContents() {
    auto* lines = new QGridLayout;
    lines->addWidget(new QLabel("Information on this file includes:"), 0, 0, 1, 2);
    for (const ContentsRow& row : kContentsRows) addContentsBox(row, *lines);
    return makeFrame("Data File Contents", lines);
}

void frmAuthorWizard::addContentsBox(const ContentsRow& row, QGridLayout& grid) {
    const int line = grid.rowCount();
    auto* box = new QCheckBox(literally(row.caption));
    box->setObjectName(toQString(row.name));
    grid.addWidget(box, line, 0, 1, row.text.empty() ? 2 : 1);
    if (row.text.empty()) return;
    auto* text = new QLineEdit;
    text->setObjectName(toQString(row.text));
    text->setAccessibleName(box->text());
    text->setEnabled(false);
    grid.addWidget(text, line, 1);
    connect(box, &QCheckBox::toggled, text, [text](bool isOn) {
        text->setEnabled(isOn);
        if (isOn) text->setFocus();
    });
}

QWidget* frmAuthorWizard::makeCopyright() {
    auto* frame = new QGroupBox("Copyright Info");
    (new QVBoxLayout(frame))->addWidget(vbTabControl1_);
    return frame;
}

/// In the order in which the focus goes through it.
void frmAuthorWizard::buildLayout() {
    auto* content = new QWidget;
    auto* frames = new QGridLayout(content);
    frames->setContentsMargins(0, 0, 0, 0);
    frames->addWidget(makeContact(), 0, 0);
    frames->addWidget(makeFile(), 1, 0);
    frames->addWidget(makeContents(), 0, 1, 2, 1);
    frames->addWidget(makeCopyright(), 2, 0, 1, 2);
    for (int column = 0; column < 2; ++column) frames->setColumnStretch(column, 1);
    frames->setRowStretch(3, 1);
    alignLabels(*content);
    for (auto* field : content->findChildren<QLineEdit*>())
        if (field->parent() != AuthorName_)
            addFieldPopup(*field, std::ranges::find(Email_, field) == Email_.end() ? MailTo() : mailTo);
    auto* area = new FittingArea;
    area->setWidget(content);

    auto* done = named<QPushButton>("Done", "&Done!");
    auto* cancel = named<QPushButton>("Cancel", "&Cancel");
    auto* help = named<QPushButton>("HelpMe", "&Help");
    help->setEnabled(static_cast<bool>(services_.showHelp));
    connect(done, &QPushButton::clicked, this, &frmAuthorWizard::finish);
    connect(cancel, &QPushButton::clicked, this, [this] {
        // Pressed by its access key it leaves the focus where it is.
        AuthorName_->commit();
        reject();
    });
    connect(help, &QPushButton::clicked, this, [this] { services_.showHelp(kName); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (auto* button : {done, cancel, help}) buttons->addWidget(button);
    auto* column = new QVBoxLayout(this);
    column->addWidget(area, 1);
    column->addLayout(buttons);
    // Not before it is the dialog's.
    done->setDefault(true);
    AuthorName_->setFocus();
}

void frmAuthorWizard::fill() {
    const auto set = [this](const char* field, const QString& text) {
        findChild<QLineEdit*>(field)->setText(text);
    };
    set("FileName", document_.fileName);
    filledFileName_ = findChild<QLineEdit*>("FileName")->text();
    if (readSetting(services_.store, settings::kTvmVersion) == 1)
        set("TVMVersion", toQString(settings::kTvmVersions[1]));
    for (const char* field : {"Created", "Modified"}) set(field, toQString(longDate(today())));
    AuthorName_->showState();
    showAddresses();
    TextArea* const text = document_.text();
    if (text == nullptr) return;
    const QScopedValueRollback suppress(services_.SuppressCaretUpdate, true);
    text->SetSelStart(0);
    ScrollToSection(*text, kAuthorSection);
}

void frmAuthorWizard::showAddresses() {
    for (size_t i = 0; i < Email_.size(); ++i) {
        // What the entry says was not typed.
        const QSignalBlocker quiet(Email_[i]);
        const QString text = toQString(entry_.addresses()[i]);
        if (Email_[i]->text() != text) Email_[i]->setText(text);
    }
}

void frmAuthorWizard::setVisible(bool visible) {
    if (visible && !std::exchange(isPlaced_, true)) {
        // The base class would make it no larger than two thirds of the screen.
        resize(sizeHint());
        restorePosition(*this, services_.store, *settings::windowPosition(kName));
    }
    QDialog::setVisible(visible);
}

void frmAuthorWizard::done(int result) {
    keepAuthor();
    if (TextArea* const text = document_.text(); text != nullptr && result == Rejected) text->ScrollCaret();
    storePosition(*this, services_.store, *settings::windowPosition(kName));
    QDialog::done(result);
}

void frmAuthorWizard::keepAuthor() {
    if (!std::exchange(isAuthorKept_, true)) entry_.store(services_.store);
}

void frmAuthorWizard::finish() {
    // Enter leaves the focus where it is.
    AuthorName_->commit();
    if (!write()) {
        MessageBox(this, kTextHasChanged, MessageIcon::Exclamation, kTitle);
        return;
    }
    writeSetting(services_.store, settings::kLastAuthor, entry_.name.state);
    accept();
}

/// False where the document is closed.
bool frmAuthorWizard::write() {
    if (document_.text() == nullptr) return false;
    const WaitCursor wait;
    const QScopedValueRollback suppress(services_.SuppressCaretUpdate, true);
    const QString fileName = findChild<QLineEdit*>("FileName")->text();
    // It may not show the document's own name as it is.
    if (fileName != filledFileName_) document_.nameFile(fileName);
    const std::string text = authorBlockText(block());
    const bool isWritten = FieldEnd(document_.text, {}).write({text, authorBlockStyles(text)});
    document_.text()->ScrollCaret();
    return isWritten;
}

std::string frmAuthorWizard::textOf(std::string_view field) const {
    return findChild<QLineEdit*>(toQString(field))->text().toStdString();
}

AuthorBlock frmAuthorWizard::block() const {
    const FieldLookup lookup = [this](std::string_view field) { return textOf(field); };
    AuthorBlock block;
    for (size_t i = 0; i < kFileRows.size(); ++i) block.file[i] = textOf(kFileRows[i].name);
    const auto tab = static_cast<size_t>(vbTabControl1_->currentIndex());
    block.notice = noticeLines(kNotices[tab], lookup);
    for (const ContentsRow& row : kContentsRows)
        if (findChild<QCheckBox*>(toQString(row.name))->isChecked())
            block.contents.push_back(contentsLine(row, lookup));
    block.author = entry_.name.text;
    block.addresses = entry_.addresses();
    return block;
}

}  // namespace klt
