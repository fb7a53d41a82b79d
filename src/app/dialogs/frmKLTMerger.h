#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace klt {

class CommonDialog1;
class MergeFileList;
class RichTextBox;
class Store;

/// Makes one data file of several: collects them in the order that the host expects, and writes the file. It
/// stays open, with its list, where that fails.
class frmKLTMerger : public QDialog {
    Q_OBJECT

public:
    /// Proposes a file in `folder`, which is made at the merging where it is missing. `fileDialog` and
    /// `store` must outlive it.
    frmKLTMerger(CommonDialog1& fileDialog, Store& store, const std::string& folder, QWidget* owner);

    /// Where the merged file is written.
    std::string outputName() const;
    /// Whether the merged file is to be opened, once the dialog was accepted, and whether it may be checked.
    bool loadsFile() const;
    bool checksSyntax() const;
    /// Where the input is kept whose place the merged file took; empty where it took none.
    const std::string& keptInput() const { return keptInput_; }
    /// What the user is to be told of the merge, a line each.
    const std::vector<std::string>& notes() const { return notes_; }

private:
    void addList(QGridLayout& grid);
    void addOutput(QGridLayout& grid);
    QLayout* buildButtons();
    void wire();

    void outputChanged();
    void loadFileClicked();
    void addFile();
    void addDropped(const std::vector<std::string>& paths);
    /// False where it is in the list already, of which the user is to be told.
    bool add(const std::string& path);
    void tellOfDuplicate();
    void removeFiles();
    void filesChanged();
    void browse();
    void merge();

    CommonDialog1& fileDialog_;
    Store& store_;
    const std::string folder_;
    std::vector<std::string> files_;
    std::string keptInput_;
    std::vector<std::string> notes_;

    QLabel *Label1, *Label2;
    MergeFileList* vbFilesToMerge;
    RichTextBox* Text1;
    QPushButton *cmdAddFile, *cmdRemoveFiles, *cmdBrowse, *cmdMerge, *cmdCancel;
    QCheckBox *chkLoadFile, *chkCheckSyntax;
};

}  // namespace klt
