#include "app/options/frmOptions.h"

#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/DataFilesFolder.h"
#include "app/options/AuthorsPage.h"
#include "app/options/FormatPage.h"
#include "app/options/GeneralPage.h"
#include "app/options/PathsPage.h"
#include "forms/FittingArea.h"
#include "platform/ProgramNames.h"
#include "settings/AuthorProfiles.h"
#include "ui/FormPlace.h"
#include "ui/MessageBox.h"
#include "ui/Named.h"

namespace klt {
namespace {

constexpr std::string_view kResetQuestion =
    "This will reset ALL settings to installation defaults!\nAre you want to continue?";
constexpr std::string_view kReopening =
    "KLT Editor will now close and reopen the frmOptions window to refresh the settings.";

}  // namespace

frmOptions::frmOptions(OptionsServices services, QWidget* owner)
    : QDialog(owner),
      services_(std::move(services)),
      area_(new FittingArea),
      vbTabControl1(named<QTabWidget>("vbTabControl1")),
      Apply(named<QPushButton>("Apply", "&Apply")),
      Cancelbttn(named<QPushButton>("Cancelbttn", "&Cancel")),
      Done(named<QPushButton>("Done", "&Done!")) {
    setObjectName("frmOptions");
    setWindowTitle("Preferences");
    seedAuthorProfilesOnce(services_.store);
    auto* all = new QVBoxLayout(this);
    area_->setWidget(vbTabControl1);
    all->addWidget(area_, 1);
    general_ = &addPage<GeneralPage>("General");
    auto& paths = addPage<PathsPage>("Program Paths");
    addPage<AuthorsPage>("Edit Author Profiles");
    addPage<FormatPage>("Editor Format");
    connect(general_, &GeneralPage::hostChosen, &paths, &PathsPage::showHost);
    connect(general_, &GeneralPage::resetWanted, this, &frmOptions::resetAll);
    buildButtons();
    connect(vbTabControl1, &QTabWidget::currentChanged, this, &frmOptions::tabChanged);
}

template <typename Page>
Page& frmOptions::addPage(const char* caption) {
    auto* page = new Page(services_);
    vbTabControl1->addTab(page, caption);
    pages_.push_back(page);
    connect(page, &OptionsPage::changed, Apply, [this] { Apply->setEnabled(true); });
    connect(page, &OptionsPage::settled, Apply, [this] { Apply->setEnabled(false); });
    connect(page, &OptionsPage::takesEnter, this, &frmOptions::takeEnter);
    return *page;
}

void frmOptions::buildButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (auto* button : {Apply, Cancelbttn, Done}) buttons->addWidget(button);
    dynamic_cast<QVBoxLayout&>(*layout()).addLayout(buttons);
    Apply->setEnabled(false);
    // Not before it is the dialog's.
    Done->setDefault(true);
    connect(Apply, &QPushButton::clicked, this, &frmOptions::apply);
    connect(Cancelbttn, &QPushButton::clicked, this, &QDialog::reject);
    connect(Done, &QPushButton::clicked, this, &frmOptions::finish);
}

void frmOptions::showTab(OptionsTab tab) {
    vbTabControl1->setCurrentIndex(static_cast<int>(tab));
}

void frmOptions::focusVersion() {
    general_->focusVersion();
    area_->ensureWidgetVisible(focusWidget());
}

void frmOptions::takeEnter(bool own) {
    fieldTakesEnter_ = own;
    Done->setDefault(!own);
}

void frmOptions::keyPressEvent(QKeyEvent* event) {
    const bool closes =
        event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (fieldTakesEnter_ && closes) return event->accept();
    QDialog::keyPressEvent(event);
}

void frmOptions::apply() {
    if (!pages_[static_cast<size_t>(vbTabControl1->currentIndex())]->save()) return;
    // Else the focus would go on to the button that drops everything.
    if (Apply->hasFocus()) Done->setFocus();
    Apply->setEnabled(false);
}

void frmOptions::finish() {
    if (saveFirstTabs()) accept();
}

/// What is changed on the other tabs is stored by their own means.
bool frmOptions::saveFirstTabs() {
    const auto first = pages_.begin();
    return std::all_of(first, first + 2, [](OptionsPage* page) { return page->save(); });
}

void frmOptions::tabChanged() {
    if (Apply->isEnabled() && saveFirstTabs()) Apply->setEnabled(false);
}

void frmOptions::resetAll() {
    const QPointer self(this);
    const auto answer = MessageBox(this, kResetQuestion, MessageIcon::Exclamation, kTitle,
                                   QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (!self) return;
    if (answer == QMessageBox::Yes && storedOrTold(*this, resetAllSettings(services_.store))) {
        services_.recentFilesChanged();
        services_.showStatusBar(readSetting(services_.store, settings::kShowStatusBar));
        services_.showToolbars();
        services_.setInitialFolder(dataFilesFolder(services_.store));
    }
    if (self) MessageBox(this, kReopening, MessageIcon::None, kTitle);
    if (self) done(kReopen);
}

void frmOptions::done(int result) {
    constexpr WindowPosition kPosition = *settings::windowPosition("frmOptions");
    storePosition(*this, services_.store, kPosition);
    QDialog::done(result);
}

}  // namespace klt
