#include "app/options/PathsPage.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QSignalBlocker>
#include <QTabBar>
#include <algorithm>
#include <utility>

#include "app/DataFilesFolder.h"
#include "app/options/FolderTree.h"
#include "platform/DrivePaths.h"
#include "platform/Paths.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "settings/HostFolder.h"
#include "text/Unicode.h"
#include "ui/Combo.h"
#include "ui/FieldLabel.h"
#include "ui/MessageBox.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr std::chrono::milliseconds kAnswerTime{500};
constexpr std::chrono::milliseconds kPatience{1000};
constexpr char kNoFolder[] = "There is no such folder.";
constexpr char kSilent[] = "The folder does not answer.";
constexpr std::string_view kHostFile = "TVM.INI";
constexpr std::string_view kExtension = "klt";

/// As the lists spell folders: no "/" at the end.
std::string withoutEnd(std::string path) {
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

/// The path that a person means: one of Windows programs, one that begins at home, or one that goes on from
/// `here`.
std::string pathMeant(std::string path, const std::string& here) {
    if (path.empty()) return path;
    path = fromDrivePath(path, winePrefix());
    if (path == "~" || path.starts_with("~/")) path.replace(0, 1, homeFolder());
    if (!path.starts_with('/')) path.insert(0, here + "/");
    return withoutEnd(FullFileName(path));
}

}  // namespace

PathsPage::PathsPage(const OptionsServices& services, QWidget* parent, std::vector<std::string> mountPoints)
    : OptionsPage(parent),
      services_(services),
      mountPoints_(std::move(mountPoints)),
      places_(userPlaces()),
      vbTabControl2_(named<QTabBar>("vbTabControl2")),
      Drive1_(named<Combo>("Drive1", TypedText::None)),
      placeList_(named<QListWidget>("Places")),
      Dir1_(new FolderTree(reader_)),
      File1_(named<QListWidget>("File1")),
      FullPath_(named<QLineEdit>("FullPath")),
      lblNote_(named<QLabel>("lblNote")) {
    setObjectName("PathsPage");
    Dir1_->setObjectName("Dir1");
    fillLists();
    buildLayout();
    wire();
    load(Folder::DataFiles);
    showHost(readSetting(services_.store, settings::kTvmVersion) == 1);
}

void PathsPage::fillLists() {
    for (const auto* caption : {"Data Files Path", "TVM.INI Path"}) vbTabControl2_->addTab(caption);
    for (const auto& point : mountPoints_) Drive1_->addItem(fromPath(point));
    for (const auto& place : places_) {
        auto* item = new QListWidgetItem(place.name, placeList_);
        item->setToolTip(fromPath(place.folder));
    }
    // So that the first key goes to the first place.
    static_cast<QAbstractItemView&>(*placeList_).setCurrentIndex({});
}

void PathsPage::buildLayout() {
    constexpr int kCharactersOfPlace = 16, kCharactersOfFolder = 28, kLines = 9;
    const int character = fontMetrics().averageCharWidth();
    for (auto* list : {placeList_, File1_}) {
        list->setMinimumWidth(kCharactersOfPlace * character);
        list->setTextElideMode(Qt::ElideMiddle);
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    Dir1_->setMinimumSize(kCharactersOfFolder * character, kLines * fontMetrics().lineSpacing());
    Drive1_->setMinimumContentsLength(kCharactersOfPlace);
    // Nothing can be done with a file.
    File1_->setSelectionMode(QAbstractItemView::NoSelection);
    vbTabControl2_->setExpanding(false);
    lblNote_->setTextFormat(Qt::PlainText);
    lblNote_->setWordWrap(true);
    lblNote_->setMinimumHeight(fontMetrics().lineSpacing());

    auto* drive = new QHBoxLayout;
    drive->addWidget(fieldLabel("Dri&ve:", *Drive1_));
    drive->addWidget(Drive1_, 1);
    auto* lists = new QGridLayout;
    lists->addWidget(fieldLabel("P&laces:", *placeList_), 0, 0);
    lists->addWidget(placeList_, 1, 0, 2, 1);
    lists->addWidget(fieldLabel("F&olders:", *Dir1_), 0, 1);
    lists->addLayout(drive, 1, 1);
    lists->addWidget(Dir1_, 2, 1);
    lists->addWidget(fieldLabel("F&iles:", *File1_), 0, 2);
    lists->addWidget(File1_, 1, 2, 2, 1);
    lists->setRowStretch(2, 1);
    for (const auto& [column, share] : {std::pair(0, 2), std::pair(1, 4), std::pair(2, 3)})
        lists->setColumnStretch(column, share);
    auto* path = new QGridLayout;
    path->addWidget(fieldLabel("Full Path:", *FullPath_), 0, 0);
    path->addWidget(FullPath_, 0, 1);
    path->addWidget(lblNote_, 1, 1);

    auto* all = new QVBoxLayout(this);
    all->addWidget(vbTabControl2_);
    all->addLayout(lists, 1);
    all->addLayout(path);
    QWidget* before = vbTabControl2_;
    for (QWidget* next : std::initializer_list<QWidget*>{placeList_, Drive1_, Dir1_, File1_, FullPath_}) {
        setTabOrder(before, next);
        before = next;
    }
}

void PathsPage::wire() {
    const auto goToPlace = [this] {
        const auto chosen = placeList_->selectedItems();
        if (!chosen.isEmpty()) goTo(places_.at(static_cast<size_t>(placeList_->row(chosen.front()))).folder);
    };
    connect(vbTabControl2_, &QTabBar::currentChanged, this, &PathsPage::innerTabChanged);
    // The focus alone makes the first item the current one, which is nobody's choice.
    connect(placeList_, &QListWidget::itemSelectionChanged, this, goToPlace);
    connect(placeList_, &QListWidget::itemClicked, this, goToPlace);
    connect(Drive1_, &Combo::activated, this, [this](int index) {
        const auto& drive = mountPoints_.at(static_cast<size_t>(index));
        if (drive != mountPointOf(view_, mountPoints_)) goTo(drive);
    });
    connect(Dir1_, &FolderTree::chosen, this, &PathsPage::choose);
    connect(&reader_, &FolderReader::found, this, &PathsPage::showFiles);
    connect(FullPath_, &QLineEdit::textEdited, this, [this] {
        tell({});
        emit changed();
    });
    FullPath_->installEventFilter(this);
    patience_.setSingleShot(true);
    patience_.setInterval(kPatience);
    connect(&patience_, &QTimer::timeout, this, [this] { tell(kSilent); });
}

void PathsPage::load(Folder folder) {
    folder_ = folder;
    path_ = stored();
    isStart_ = path_.empty();
    if (isStart_) path_ = findHostFolder();
    showPath();
    Dir1_->goTo(view_);
}

std::string PathsPage::stored() const {
    return folder_ == Folder::Host ? readSetting(services_.store, settings::kTvmIniPath)
                                   : dataFilesFolder(services_.store);
}

std::optional<std::string> PathsPage::toStore() const {
    if (isStart_ && !PathExists(hostFileIn(path_))) return std::nullopt;
    return path_;
}

bool PathsPage::store(const std::string& path) {
    const auto& setting = folder_ == Folder::Host ? settings::kTvmIniPath : settings::kDataFilesPath;
    if (!storedOrTold(*this, writeSetting(services_.store, setting, path))) return false;
    if (folder_ == Folder::Host) return true;
    if (services_.setInitialFolder) services_.setInitialFolder(path);
    return true;
}

bool PathsPage::save() {
    if (FullPath_->isModified() && !takeTyped()) return false;
    if (isNoFolder_) {
        tell(kNoFolder);
        return false;
    }
    const auto path = toStore();
    return !path || store(*path);
}

void PathsPage::showHost(bool is22) {
    vbTabControl2_->setVisible(is22);
    if (is22 || folder_ == Folder::DataFiles) return;
    const QSignalBlocker silent(vbTabControl2_);
    vbTabControl2_->setCurrentIndex(0);
    load(Folder::DataFiles);
}

void PathsPage::innerTabChanged(int index) {
    if (FullPath_->isModified() && !takeTyped()) {
        const QSignalBlocker silent(vbTabControl2_);
        return vbTabControl2_->setCurrentIndex(static_cast<int>(folder_));
    }
    const QPointer<PathsPage> page(this);
    if (const auto path = toStore(); path && *path != stored()) {
        const auto left = vbTabControl2_->tabText(static_cast<int>(folder_)).toStdString();
        const auto answer = MessageBox(this, "Do you wish to save the changes to the " + left + "?",
                                       MessageIcon::None, kTitle, QMessageBox::Yes | QMessageBox::No);
        if (!page) return;
        if (answer == QMessageBox::Yes) store(*path);
        if (!page) return;
    }
    load(static_cast<Folder>(index));
    emit settled();
}

void PathsPage::choose(const std::string& path) {
    if (path == path_ && !isStart_ && !FullPath_->isModified()) return;
    isStart_ = false;
    path_ = path;
    showPath();
    emit changed();
}

void PathsPage::goTo(const std::string& path) {
    choose(withoutEnd(path));
    Dir1_->goTo(view_);
}

bool PathsPage::takeTyped() {
    const auto folder = folderWithin(
        [typed = toPath(FullPath_->text().trimmed()), here = view_] { return pathMeant(typed, here); },
        kAnswerTime);
    if (folder && !folder->empty()) {
        goTo(*folder);
        return true;
    }
    tell(folder ? kNoFolder : kSilent);
    return false;
}

void PathsPage::showPath() {
    view_ = withoutEnd(FullFileName(fromDrivePath(path_, winePrefix())));
    FullPath_->setText(fromPath(path_));
    const auto drive = std::ranges::find(mountPoints_, mountPointOf(view_, mountPoints_));
    Drive1_->setCurrentIndex(static_cast<int>(drive - mountPoints_.begin()));
    const QSignalBlocker silent(placeList_);
    const auto place = std::ranges::find(places_, view_, &Place::folder);
    placeList_->setCurrentRow(place == places_.end() ? -1 : static_cast<int>(place - places_.begin()));
    tell({});
    isNoFolder_ = false;
    File1_->clear();
    patience_.start();
    reader_.read(view_);
}

void PathsPage::showFiles(const std::string& folder, const FolderEntries& entries) {
    if (folder != view_) return;
    patience_.stop();
    isNoFolder_ = entries.isNoFolder;
    File1_->clear();
    for (const auto& name : entries.files)
        if (folder_ == Folder::Host ? equalIgnoringCase(name, kHostFile)
                                    : equalIgnoringCase(FileExtension(name), kExtension))
            File1_->addItem(fromPath(name));
    if (entries.error) tell(toQString(*entries.error));
}

void PathsPage::tell(const QString& note) {
    lblNote_->setText(note);
    FullPath_->setAccessibleDescription(note);
}

/// Enter and Escape are the field's as long as what was typed stands in it.
bool PathsPage::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || !FullPath_->isModified()) return OptionsPage::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool takes = key == Qt::Key_Return || key == Qt::Key_Enter, drops = key == Qt::Key_Escape;
    if (!takes && !drops) return OptionsPage::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::ShortcutOverride) return true;
    if (takes)
        takeTyped();
    else
        showPath();
    return true;
}

void PathsPage::hideEvent(QHideEvent* event) {
    // Nobody would see what is told of it.
    if (!event->spontaneous() && FullPath_->isModified() && !takeTyped()) showPath();
    OptionsPage::hideEvent(event);
}

}  // namespace klt
