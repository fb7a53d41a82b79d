#include "app/documents/frmKLTEditor.h"

#include <QCloseEvent>
#include <QMdiSubWindow>

#include "platform/Paths.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

QLabel* makeFlag(const char* name, const char* caption, QWidget* parent) {
    auto* flag = new QLabel(caption, parent);
    flag->setObjectName(name);
    flag->setEnabled(false);
    flag->hide();
    return flag;
}

}  // namespace

frmKLTEditor::frmKLTEditor()
    : RichTextBox1(new RichTextBox(RichTextBox::Kind::Document, this)),
      Label1(makeFlag("Label1", "Modified", this)),
      Label2(makeFlag("Label2", "Exists", this)) {
    setObjectName("frmKLTEditor");
    RichTextBox1->setObjectName("RichTextBox1");
    RichTextBox1->setFrameShape(QFrame::NoFrame);
    setFocusProxy(RichTextBox1);
    setCaption("Untitled");
}

void frmKLTEditor::setModified(bool on) {
    Label1->setEnabled(on);
    emit modifiedSet(on);
}

void frmKLTEditor::setCaption(std::string caption) {
    caption_ = std::move(caption);
    RichTextBox1->setAccessibleName(toQString(caption_));
    setWindowTitle(asTitle(caption_));
}

std::string frmKLTEditor::fileStem() const {
    const std::string name = caption_.substr(caption_.rfind('/') + 1);
    return Exists() || !FileExtension(name).empty() ? std::string(withoutFileEnding(name)) : std::string();
}

void frmKLTEditor::closeEvent(QCloseEvent* event) {
    event->setAccepted(!QueryUnload || !QueryUnload());
}

void frmKLTEditor::resizeEvent(QResizeEvent*) {
    RichTextBox1->setGeometry(rect());
}

}  // namespace klt
