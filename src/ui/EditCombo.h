#pragma once

#include <QComboBox>
#include <QString>

namespace klt {

/// A combo in which the user may also type. `activated` tells of choices in its list alone, by mouse, wheel
/// or keys: that a text typed is one of the items is no choice, whatever ends the typing. The wheel turns it
/// only while it has the focus. Its text may be of any length, and has the popup of the
/// fields.
class EditCombo : public QComboBox {
    Q_OBJECT

public:
    /// `lineEnd` is what the line ends of a text that is pasted or dropped become.
    explicit EditCombo(QString lineEnd, QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    void changed(const QString& text);

    const QString lineEnd_;
    /// The text changes by the user's hand.
    bool isEdit_ = false;
    QString before_;
};

}  // namespace klt
