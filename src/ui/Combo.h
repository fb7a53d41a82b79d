#pragma once

#include <QComboBox>
#include <QString>

namespace klt {

/// What may be typed into a combo: nothing; one line; lines as in the documents. A pasted line end becomes a
/// blank or CR LF.
enum class TypedText : unsigned char { None, OneLine, Lines };

/// A combo that tells by `activated` of choices in its list alone, by mouse, wheel or keys: that a text typed
/// is one of the items is no choice, whatever ends the typing. The wheel turns it only while it has the
/// focus. What is typed may be of any length, and has the popup of the fields.
class Combo : public QComboBox {
    Q_OBJECT

public:
    explicit Combo(TypedText typed, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void takeText();
    void changed(const QString& text);

    const TypedText typed_;
    /// The text changes by the user's hand.
    bool isEdit_ = false;
    QString before_;
};

}  // namespace klt
