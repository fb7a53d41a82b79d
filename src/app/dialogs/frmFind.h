#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "tools/FindHistory.h"
#include "tools/FindText.h"

class QCheckBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;

namespace klt {

class Combo;
class CommandQueue;
class RichTextBox;
class modKLTSyntaxHighlighter;

/// What the find window needs of the program. All of it must outlive the window.
struct FindServices {
    Store& store;
    CommandQueue& queue;
    modKLTSyntaxHighlighter& highlighter;
    /// Up while the window searches.
    bool& SuppressCaretUpdate;
    /// The text area of the active document; null while none is open.
    std::function<RichTextBox*()> activeText;
    /// Empty where there is no help.
    std::function<void()> showHelp = {};
};

/// The find and replace window. It stays open beside the documents, and each press of a button works on the
/// one that is active then. It goes when it is closed.
class frmFind : public QDialog {
    Q_OBJECT

public:
    enum class Shape { Find, Replace };

    /// Takes what is selected in the active document as the text to look for, unless that is longer than a
    /// mebibyte.
    frmFind(FindServices services, QWidget* owner);

    /// Shows or hides what belongs to replacing. The focus goes to the text to look for.
    void setShape(Shape shape);

private:
    QLayout* buildFields();
    QLayout* buildOptions();
    QLayout* buildButtons();
    void wire();
    void takeSelection();
    void unload();

    void findTextChanged();
    void updateButtons();
    void pressed(FindButton button);
    void run(FindButton button);
    FindRequest request() const;
    void enterHistories(FindButton button);

    const FindServices services_;
    Shape shape_ = Shape::Find;
    /// The restart flag: the next search begins afresh.
    bool restart_ = true;
    FindHistory searches_;
    FindHistory replacements_;

    Combo* Combo1 = nullptr;
    Combo* Combo2 = nullptr;
    QLabel* replaceLabel_ = nullptr;
    std::array<QPushButton*, 3> cmdFindReplace{};
    QPushButton* Command2 = nullptr;
    QPushButton* Command4 = nullptr;
    QRadioButton* optDirectionUp = nullptr;
    QRadioButton* optDirectionDown = nullptr;
    QRadioButton* optDirectionAll = nullptr;
    QCheckBox* chkWholeWordOnly = nullptr;
    QCheckBox* chkMatchCase = nullptr;
    QCheckBox* chkStartFromBeginning = nullptr;
};

}  // namespace klt
