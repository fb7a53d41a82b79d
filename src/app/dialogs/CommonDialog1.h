#pragma once

#include <QObject>
#include <QPointer>
#include <string>
#include <vector>

class QFileDialog;
class QWidget;

namespace klt {

/// Bits of `CommonDialog1::Flags`; the others that the system names say nothing here.
inline constexpr unsigned kOverwritePrompt = 0x2;
inline constexpr unsigned kHideReadOnly = 0x4;
inline constexpr unsigned kAllowMultiselect = 0x200;
inline constexpr unsigned kPathMustExist = 0x800;
inline constexpr unsigned kFileMustExist = 0x1000;
inline constexpr unsigned kExplorer = 0x80000;
inline constexpr unsigned kLongNames = 0x200000;

/// The one file dialog of the program: the folder used last stays in it. It is the toolkit's own dialog, for
/// in the native one the selection could not be policed.
///
/// While its title is "Select Data File", only what `mayBeMerged` allows can be picked, whether it is clicked
/// or typed.
class CommonDialog1 : public QObject {
public:
    explicit CommonDialog1(QWidget& mainWindow);
    ~CommonDialog1() override;

    /// "|" stands between a filter's name and its pattern.
    std::string Filter = "TVM Data Files (*.klt)|*.klt";
    int FilterIndex = 1;
    std::string DefaultExt = "klt";
    std::string DialogTitle;
    unsigned Flags = 0;
    /// What is proposed; after a dialog the chosen path in full, the first one of several, or empty when the
    /// user cancelled.
    std::string FileName;

    /// The folder in which the first dialog opens, and the next one after it was set.
    void InitDir(const std::string& folder);

    /// Show the dialog over `owner`, by default the main window, and return when it is closed, with all the
    /// paths chosen.
    std::vector<std::string> ShowOpen(QWidget* owner = nullptr);
    std::vector<std::string> ShowSave(QWidget* owner = nullptr);

private:
    class Dialog;
    std::vector<std::string> show(QWidget* owner, bool save);

    QWidget& mainWindow_;
    std::string folder_;
    /// Made at its first use, since that takes its time.
    QPointer<Dialog> dialog_;
};

}  // namespace klt
