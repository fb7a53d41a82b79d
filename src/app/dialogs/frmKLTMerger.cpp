#include "app/dialogs/frmKLTMerger.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "app/dialogs/CommonDialog1.h"
#include "app/dialogs/MergeFileList.h"
#include "platform/Paths.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "text/Unicode.h"
#include "tools/MergeFiles.h"
#include "tools/MergeOrder.h"
#include "ui/FieldPopup.h"
#include "ui/MessageBox.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"
#include "ui/RichTextBox.h"
#include "ui/WaitCursor.h"

namespace klt {
namespace {

constexpr std::string_view kExtension = ".klt";
constexpr unsigned kAddFlags = kHideReadOnly | kPathMustExist | kFileMustExist | kExplorer | kLongNames;
constexpr unsigned kBrowseFlags = kOverwritePrompt | kHideReadOnly | kPathMustExist | kExplorer | kLongNames;
static_assert(kAddFlags == 2627588);

std::string withSeparator(const std::string& folder) {
    return folder.ends_with('/') ? folder : folder + "/";
}

bool isFile(const std::string& path) {
    return QFileInfo(fromPath(path)).isFile();
}

void nameBy(QLabel& label, QWidget& field) {
    label.setBuddy(&field);
    field.setAccessibleName(label.text().remove(':'));
}

}  // namespace

frmKLTMerger::frmKLTMerger(CommonDialog1& fileDialog, Store& store, const std::string& folder, QWidget* owner)
    : QDialog(owner), fileDialog_(fileDialog), store_(store), folder_(withSeparator(folder)) {
    setObjectName("frmKLTMerger");
    setWindowTitle("KLT Merger");
    auto* files = new QGridLayout;
    addList(*files);
    addOutput(*files);
    auto* all = new QVBoxLayout(this);
    all->addLayout(files);
    all->addLayout(buildButtons());
    Text1->SetText(folder_ + "MyKLT.klt");
    filesChanged();
    loadFileClicked();
    wire();
    // A button can be the default one only once its dialog holds it.
    cmdMerge->setDefault(true);
    cmdAddFile->setFocus();
}

void frmKLTMerger::addList(QGridLayout& grid) {
    constexpr QSize kListSize(420, 160);
    Label1 = named<QLabel>("Label1", "Files to be merged:");
    vbFilesToMerge = named<MergeFileList>("vbFilesToMerge");
    vbFilesToMerge->setMinimumSize(kListSize);
    nameBy(*Label1, *vbFilesToMerge);
    cmdAddFile = named<QPushButton>("cmdAddFile", "&Add File");
    cmdRemoveFiles = named<QPushButton>("cmdRemoveFiles", "&Remove Files");
    grid.addWidget(Label1, 0, 0);
    grid.addWidget(vbFilesToMerge, 1, 0, 3, 1);
    grid.addWidget(cmdAddFile, 1, 1);
    grid.addWidget(cmdRemoveFiles, 2, 1);
    grid.setRowStretch(3, 1);
}

void frmKLTMerger::addOutput(QGridLayout& grid) {
    Label2 = named<QLabel>("Label2", "Name of the compiled KLT File:");
    Text1 = named<RichTextBox>("Text1", RichTextBox::Kind::Field);
    addFieldPopup(*Text1);
    nameBy(*Label2, *Text1);
    cmdBrowse = named<QPushButton>("cmdBrowse", "&Browse...");
    grid.addWidget(Label2, 4, 0);
    grid.addWidget(Text1, 5, 0);
    grid.addWidget(cmdBrowse, 5, 1);
}

QLayout* frmKLTMerger::buildButtons() {
    chkLoadFile = named<QCheckBox>("chkLoadFile", "Load file after merging");
    chkCheckSyntax = named<QCheckBox>("chkCheckSyntax", "Check Syntax after merging");
    cmdMerge = named<QPushButton>("cmdMerge", "&Merge");
    cmdCancel = named<QPushButton>("cmdCancel", "Cancel");
    auto* grid = new QGridLayout;
    grid->addWidget(chkLoadFile, 0, 0);
    grid->addWidget(chkCheckSyntax, 1, 0);
    grid->setColumnStretch(1, 1);
    grid->addWidget(cmdMerge, 1, 2);
    grid->addWidget(cmdCancel, 1, 3);
    return grid;
}

void frmKLTMerger::wire() {
    connect(Text1, &RichTextBox::Change, this, &frmKLTMerger::outputChanged);
    connect(vbFilesToMerge, &MergeFileList::filesDropped, this, &frmKLTMerger::addDropped);
    connect(chkLoadFile, &QCheckBox::toggled, this, &frmKLTMerger::loadFileClicked);
    connect(cmdAddFile, &QPushButton::clicked, this, &frmKLTMerger::addFile);
    connect(cmdRemoveFiles, &QPushButton::clicked, this, &frmKLTMerger::removeFiles);
    connect(cmdBrowse, &QPushButton::clicked, this, &frmKLTMerger::browse);
    connect(cmdMerge, &QPushButton::clicked, this, &frmKLTMerger::merge);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

std::string frmKLTMerger::outputName() const {
    return FullFileName(Text1->Text());
}

bool frmKLTMerger::loadsFile() const {
    return chkLoadFile->isChecked();
}

bool frmKLTMerger::checksSyntax() const {
    return chkCheckSyntax->isChecked();
}

void frmKLTMerger::outputChanged() {
    if (upperCase(Text1->Text()).ends_with(".KLT")) return;
    const auto caret = Text1->SelStart();
    Text1->SetText(std::string(Text1->Text()).append(kExtension));
    Text1->Select(caret, 0);
}

void frmKLTMerger::loadFileClicked() {
    const bool loads = chkLoadFile->isChecked();
    chkCheckSyntax->setEnabled(loads);
    chkCheckSyntax->setChecked(loads == readSetting(store_, settings::kAutoSyntaxCheck));
}

void frmKLTMerger::addFile() {
    bool isDuplicate = true;
    while (isDuplicate) {
        fileDialog_.FileName.clear();
        fileDialog_.DialogTitle = "Select Data File";
        fileDialog_.Flags = kAddFlags;
        const auto chosen = fileDialog_.ShowOpen(this);
        isDuplicate = !chosen.empty() && !add(chosen.front());
        if (isDuplicate) tellOfDuplicate();
    }
}

void frmKLTMerger::addDropped(const std::vector<std::string>& paths) {
    bool hasDuplicate = false;
    for (const auto& path : paths)
        if (mayBeMerged(path) && isFile(path) && !add(FullFileName(path))) hasDuplicate = true;
    if (hasDuplicate) tellOfDuplicate();
}

bool frmKLTMerger::add(const std::string& path) {
    const auto row = placeInMergeList(files_, path);
    if (!row) return false;
    files_.insert(files_.begin() + static_cast<std::ptrdiff_t>(*row), path);
    vbFilesToMerge->insertFile(*row, path);
    filesChanged();
    return true;
}

void frmKLTMerger::tellOfDuplicate() {
    MessageBox(this, "File already selected; you can't merge a file with itself.", MessageIcon::Information,
               kTitle);
}

void frmKLTMerger::removeFiles() {
    for (auto row = files_.size(); row-- > 0;) {
        if (!vbFilesToMerge->isSelected(row)) continue;
        files_.erase(files_.begin() + static_cast<std::ptrdiff_t>(row));
        vbFilesToMerge->removeFile(row);
    }
    filesChanged();
}

void frmKLTMerger::filesChanged() {
    cmdMerge->setEnabled(!files_.empty());
    cmdRemoveFiles->setEnabled(!files_.empty());
}

void frmKLTMerger::browse() {
    fileDialog_.FileName = FileName(Text1->Text());
    fileDialog_.DialogTitle = "Select Data File Name";
    fileDialog_.Flags = kBrowseFlags;
    fileDialog_.ShowSave(this);
    if (!fileDialog_.FileName.empty()) Text1->SetText(FullFileName(fileDialog_.FileName));
}

void frmKLTMerger::merge() {
    if (files_.size() < 2) {
        MessageBox(this, "Not enough files to merge; proccess cancelled.", MessageIcon::Critical, kTitle);
        return;
    }
    MergeResult result;
    {
        const WaitCursor waiting;
        if (outputName().starts_with(folder_)) QDir().mkpath(fromPath(folder_));
        result = MergeFiles(outputName(), files_);
    }
    std::string told;
    keptInput_ = result.kept;
    notes_ = std::move(result.notes);
    for (const auto& [path, reason] : result.failures)
        told.append("\n").append(path).append(": ").append(reason);
    if (told.empty()) return accept();
    MessageBox(this, "The files were not merged." + told, MessageIcon::Critical, kTitle);
}

}  // namespace klt
