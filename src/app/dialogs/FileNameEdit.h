#pragma once

#include <QLineEdit>

namespace klt {

/// Takes the name of a file without its folder: what can't stand in one is not typed, and left out of what is
/// pasted.
class FileNameEdit : public QLineEdit {
public:
    explicit FileNameEdit(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace klt
