#pragma once

#include <QTimer>
#include <optional>
#include <string>
#include <vector>

#include "app/options/FolderReader.h"
#include "app/options/OptionsPage.h"
#include "app/options/OptionsServices.h"
#include "app/options/Places.h"
#include "platform/MountPoints.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QTabBar;

namespace klt {

class Combo;
class FolderTree;

/// The folders that are remembered: that of the data files and that of the host's file. One at a time is
/// shown and stored.
class PathsPage : public OptionsPage {
    Q_OBJECT

public:
    /// `mountPoints` are the drives, "/" first.
    explicit PathsPage(const OptionsServices& services, QWidget* parent = nullptr,
                       std::vector<std::string> mountPoints = klt::mountPoints());

    /// Stores the folder that is shown. A host's folder where the view merely begins, without a host's file
    /// in it, is nobody's choice and stays out. False also where what is typed into `FullPath` is no folder,
    /// which the page tells.
    bool save() override;

    /// Whether the host is of a version that has a file to be entered into; else there are the data files
    /// alone, and the page goes back to them without a question.
    void showHost(bool is22);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Folder { DataFiles, Host };

    void fillLists();
    void buildLayout();
    void wire();

    /// Shows what is stored of a folder.
    void load(Folder folder);
    void innerTabChanged(int index);
    std::string stored() const;
    std::optional<std::string> toStore() const;
    bool store(const std::string& path);
    /// The user has gone to a folder in the tree.
    void choose(const std::string& path);
    /// The same in another control.
    void goTo(const std::string& path);
    /// Goes to what is typed; false, and told, where that is no folder.
    bool takeTyped();
    void showPath();
    void showFiles(const std::string& folder, const FolderEntries& entries);
    void tell(const QString& note);

    OptionsServices services_;
    FolderReader reader_;
    const std::vector<std::string> mountPoints_;
    const std::vector<Place> places_;
    QTabBar* vbTabControl2_;
    Combo* Drive1_;
    QListWidget* placeList_;
    FolderTree* Dir1_;
    QListWidget* File1_;
    QLineEdit* FullPath_;
    QLabel* lblNote_;
    /// Runs out where the folder that is shown does not answer.
    QTimer patience_;

    Folder folder_ = Folder::DataFiles;
    /// What `FullPath` shows, but for what is being typed.
    std::string path_;
    /// The same as the lists spell it.
    std::string view_;
    /// It is a file, as what is mounted may be.
    bool isNoFolder_ = false;
    /// The view merely begins there.
    bool isStart_ = false;
};

}  // namespace klt
