#pragma once

#include <QWidget>

namespace klt {

/// A tab of the dialog of options. What it shows is loaded with the dialog.
class OptionsPage : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Stores what is shown. False where that can't be, and the user has been told why.
    virtual bool save() = 0;

signals:
    /// Something is to be stored: "Apply" is enabled.
    void changed();
    /// Nothing is to be stored any more: "Apply" is disabled.
    void settled();
    /// A field inside the page has Enter and Escape for itself; false when they are the dialog's again.
    void takesEnter(bool own);
};

/// Tells, over `owner`, that settings were not stored. What it is given comes back.
bool storedOrTold(QWidget& owner, bool isStored);

}  // namespace klt
