#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/FileNews.h"
#include "text/Encoding.h"
#include "ui/RichTextBox.h"

namespace klt {

/// The window of one document, which its text area covers. It lives inside a sub-window of the main window.
class frmKLTEditor : public QWidget {
    Q_OBJECT

public:
    frmKLTEditor();

    RichTextBox* const RichTextBox1;
    /// Flags of the document, out of view: enabled means that the text has changes that are not saved, and
    /// that the document has a file.
    QLabel* const Label1;
    QLabel* const Label2;
    /// The main window's shutdown has asked already: the document is to close without a question.
    bool AppEnd = false;

    bool Modified() const { return Label1->isEnabledTo(this); }
    void setModified(bool on);
    bool Exists() const { return Label2->isEnabledTo(this); }

    /// The document's identity: the full path of its file, as bytes, or a name while it has none.
    const std::string& Caption() const { return caption_; }
    void setCaption(std::string caption);
    /// What its file is called, or will be, without folder and ".klt"; empty for a new document without a
    /// name of its own.
    std::string fileStem() const;

    /// What its file is written in.
    Encoding encoding = Encoding::Any;
    /// While true, a change of the text is the load of this document and no edit.
    bool isLoading = false;
    /// While true as well, what is loaded is a text that was kept: nothing in it is put right.
    bool isKeptText = false;
    /// The load put the day's date in place of what may have been no date: the next save keeps the file.
    bool isFileWanted = false;
    /// What is known of the file that it was read from or saved in, and its path without any link.
    KnownFile file;
    std::string fileTarget;
    /// The file that it was read from or saved in, while the caption names one that the next save makes.
    std::string oldFile;

    /// Asked when the window is about to close; true keeps it.
    std::function<bool()> QueryUnload;

    QSize sizeHint() const override { return {560, 360}; }

signals:
    /// The flag was set, whatever it was before.
    void modifiedSet(bool on);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    std::string caption_;
};

}  // namespace klt
