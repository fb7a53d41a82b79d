#include "app/dialogs/FileNameEdit.h"

#include <QKeyEvent>
#include <QValidator>

namespace klt {
namespace {

bool isSeparator(QChar letter) {
    return letter == '/' || letter == '\\';
}

bool isForbidden(QChar letter) {
    return isSeparator(letter) || letter.category() == QChar::Other_Control;
}

class FileNameValidator : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int& position) const override {
        QString before = input.left(position);
        before.removeIf(isForbidden);
        position = static_cast<int>(before.size());
        input.removeIf(isForbidden);
        return Acceptable;
    }
};

}  // namespace

FileNameEdit::FileNameEdit(QWidget* parent) : QLineEdit(parent) {
    setValidator(new FileNameValidator(this));
}

/// The validator would take away what is selected, and the steps to undo.
void FileNameEdit::keyPressEvent(QKeyEvent* event) {
    if (event->text().isEmpty() || !isSeparator(event->text().front())) QLineEdit::keyPressEvent(event);
}

}  // namespace klt
