#include "app/dialogs/CommonDialog1.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <algorithm>

#include "app/dialogs/FileIcons.h"
#include "platform/Paths.h"
#include "platform/ProgramNames.h"
#include "text/TextOperations.h"
#include "tools/MergeOrder.h"
#include "ui/MessageBox.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr std::string_view kPolicedTitle = "Select Data File";

std::string pathOf(const QString& file) {
    return FullFileName(toPath(file));
}

}  // namespace

class CommonDialog1::Dialog : public QFileDialog {
public:
    Dialog(CommonDialog1& properties) : properties_(properties) {
        setObjectName("CommonDialog1");
        setOptions(DontUseNativeDialog | DontUseCustomDirectoryIcons);
        // The thread that reads folders ends behind the dialog.
        static FileIcons icons;
        setIconProvider(&icons);
        // Behind the dialog's own connections, which enable the button too.
        connect(this, &QFileDialog::currentChanged, this, [this] { police(); });
        connect(nameEdit(), &QLineEdit::textChanged, this, [this] { police(); });
        fitColumnsWhenFilled();
    }

    void prepare(QWidget* owner, bool save);
    std::vector<std::string> chosen() const;

    void done(int result) override;

protected:
    void accept() override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    QLineEdit* nameEdit() const { return findChild<QLineEdit*>("fileNameEdit"); }
    bool isPoliced() const { return properties_.DialogTitle == kPolicedTitle; }
    void fitColumnsWhenFilled();
    void police();
    bool isChoicePermitted() const;
    std::vector<QPushButton*> buttons() const;
    bool refusesChoice();

    CommonDialog1& properties_;
};

/// The list is filled while it is up, and sizes and dates come last.
void CommonDialog1::Dialog::fitColumnsWhenFilled() {
    auto* list = findChild<QTreeView*>("treeView");
    auto* later = new QTimer(this);
    later->setSingleShot(true);
    connect(later, &QTimer::timeout, list, [list] {
        for (int column = 0; column < list->model()->columnCount(list->rootIndex()); ++column)
            list->resizeColumnToContents(column);
    });
    const auto fit = [later] { later->start(); };
    connect(list->model(), &QAbstractItemModel::rowsInserted, later, fit);
    connect(list->model(), &QAbstractItemModel::dataChanged, later, fit);
    connect(list->model(), &QAbstractItemModel::layoutChanged, later, fit);
}

void CommonDialog1::Dialog::prepare(QWidget* owner, bool save) {
    setParent(owner, Qt::Dialog);
    const unsigned flags = properties_.Flags;
    setWindowTitle(QString::fromStdString(properties_.DialogTitle));
    setAcceptMode(save ? AcceptSave : AcceptOpen);
    for (auto* button : buttons()) button->installEventFilter(this);
    setFileMode(flags & kAllowMultiselect ? ExistingFiles : flags & kFileMustExist ? ExistingFile : AnyFile);
    setOption(DontConfirmOverwrite, !(flags & kOverwritePrompt));
    const auto filter = SplitText(properties_.Filter, "|");
    QStringList names;
    for (size_t n = 0; n < filter.size(); n += 2) names << QString::fromStdString(filter[n]);
    setNameFilters(names);
    selectNameFilter(names.value(properties_.FilterIndex - 1));
    setDefaultSuffix(QString::fromStdString(properties_.DefaultExt));
    setDirectory(fromPath(properties_.folder_));
    nameEdit()->clear();
    selectFile(fromPath(properties_.FileName));
    nameEdit()->selectAll();
    nameEdit()->setFocus();
}

std::vector<std::string> CommonDialog1::Dialog::chosen() const {
    std::vector<std::string> paths;
    for (const auto& file : selectedFiles()) paths.push_back(pathOf(file));
    return paths;
}

bool CommonDialog1::Dialog::isChoicePermitted() const {
    const auto paths = chosen();
    return std::all_of(paths.begin(), paths.end(), mayBeMerged);
}

void CommonDialog1::Dialog::police() {
    if (!isPoliced() || nameEdit()->text().isEmpty()) return;
    const bool permitted = isChoicePermitted();
    for (auto* button : buttons()) button->setEnabled(permitted);
}

std::vector<QPushButton*> CommonDialog1::Dialog::buttons() const {
    std::vector<QPushButton*> all;
    for (const auto which : {QDialogButtonBox::Open, QDialogButtonBox::Save})
        if (auto* button = findChild<QDialogButtonBox*>()->button(which)) all.push_back(button);
    return all;
}

/// The dialog enables its button also on occasions of its own, such as a folder read to its end.
bool CommonDialog1::Dialog::eventFilter(QObject* receiver, QEvent* event) {
    auto* button = qobject_cast<QPushButton*>(receiver);
    if (button && event->type() == QEvent::EnabledChange && button->isEnabled() && isPoliced() &&
        !nameEdit()->text().isEmpty() && !isChoicePermitted()) {
        button->setEnabled(false);
    }
    return QFileDialog::eventFilter(receiver, event);
}

/// Whether the choice may not stand; the user is told unless the button said so already.
bool CommonDialog1::Dialog::refusesChoice() {
    const auto paths = chosen();
    // Enter and a double click come here even where the button is disabled; on a folder they open it.
    const auto isRefused = [](const auto& path) {
        return !mayBeMerged(path) && !QFileInfo(fromPath(path)).isDir();
    };
    if (isPoliced() && std::any_of(paths.begin(), paths.end(), isRefused)) return true;
    if (!(properties_.Flags & kPathMustExist) || paths.empty()) return false;
    const std::string folder = paths.front().substr(0, paths.front().rfind('/') + 1);
    if (PathExists(folder)) return false;
    MessageBox(this, "The folder " + folder + " does not exist.", MessageIcon::Exclamation, kTitle);
    return true;
}

void CommonDialog1::Dialog::accept() {
    if (!refusesChoice()) QFileDialog::accept();
}

/// Enter leaves the list of completions up, and it would take the next keys from whatever comes.
void CommonDialog1::Dialog::done(int result) {
    nameEdit()->completer()->popup()->hide();
    QFileDialog::done(result);
}

CommonDialog1::CommonDialog1(QWidget& mainWindow) : QObject(&mainWindow), mainWindow_(mainWindow) {}

CommonDialog1::~CommonDialog1() = default;

void CommonDialog1::InitDir(const std::string& folder) {
    folder_ = folder;
}

std::vector<std::string> CommonDialog1::ShowOpen(QWidget* owner) {
    return show(owner, false);
}

std::vector<std::string> CommonDialog1::ShowSave(QWidget* owner) {
    return show(owner, true);
}

std::vector<std::string> CommonDialog1::show(QWidget* owner, bool save) {
    if (!dialog_) dialog_ = new Dialog(*this);
    dialog_->prepare(owner ? owner : &mainWindow_, save);
    const bool accepted = dialog_->exec() == QDialog::Accepted;
    FileName.clear();
    if (!dialog_) return {};
    // A destroyed owner would destroy its children, and this object has to stay.
    dialog_->setParent(&mainWindow_, Qt::Dialog);
    auto paths = accepted ? dialog_->chosen() : std::vector<std::string>();
    if (paths.empty()) return paths;
    FileName = paths.front();
    folder_ = FileName.substr(0, std::max<size_t>(1, FileName.rfind('/')));
    return paths;
}

}  // namespace klt
