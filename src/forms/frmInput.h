#pragma once

#include <QDialog>
#include <string>
#include <string_view>

#include "ui/CompletionPopup.h"

class QLabel;
class QPushButton;

namespace klt {

class RichTextBox;
class Store;
class modKLTSyntaxHighlighter;

/// Asks for one line of text. One object asks one question.
class frmInput : public QDialog {
    Q_OBJECT

public:
    /// What it is given must outlive it.
    frmInput(modKLTSyntaxHighlighter& highlighter, Store& store);

    /// Shows the dialog, modal over `owner`, and returns when it has closed. An empty `title` leaves the
    /// caption as it is.
    void ShowDialog(std::string_view prompt, QWidget* owner, std::string_view title = {});
    /// Lets Ctrl+Space list the names of that kind in the open texts.
    void completeNames(const PrefixRow& kind, OpenTexts openTexts);
    /// What was typed; empty where the user cancelled.
    std::string DialogResult() const;
    /// Closes the dialog and leaves the text as it stands.
    void TerminateDialog();

    /// Every way to close it but OK: the text is emptied.
    void reject() override;

private:
    void buildLayout();

    QLabel* const lblCaption_;
    RichTextBox* const richReturn_;
    QPushButton* const okButton_;
    QPushButton* const cancelButton_;
    bool Terminated = false;
};

}  // namespace klt
