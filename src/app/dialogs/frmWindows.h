#pragma once

#include <QDialog>
#include <QPointer>
#include <vector>

#include "app/documents/frmKLTEditor.h"

class QListWidget;

namespace klt {

class OpenForms;

/// Lists all documents that are open, for one to be chosen.
class frmWindows : public QDialog {
    Q_OBJECT

public:
    explicit frmWindows(const OpenForms& forms, QWidget* owner = nullptr);

    /// The document that was chosen; null where none was, or where it has closed meanwhile.
    frmKLTEditor* chosen() const { return chosen_; }

private:
    void buildLayout();
    void choose();

    QListWidget* lstDataFiles_;
    /// Of the list's rows. Another process's files may be opened meanwhile, but are not among them.
    std::vector<QPointer<frmKLTEditor>> documents_;
    QPointer<frmKLTEditor> chosen_;
};

}  // namespace klt
