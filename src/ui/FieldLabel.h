#pragma once

#include <QLabel>
#include <QString>

namespace klt {

/// What a screen reader calls a control: its caption without the signs that only the eye needs.
inline QString spokenCaption(QString caption) {
    return caption.remove('&').remove(':');
}

/// A label whose access key leads to the field, which is called by its caption.
inline QLabel* fieldLabel(const QString& caption, QWidget& field) {
    auto* label = new QLabel(caption);
    label->setBuddy(&field);
    field.setAccessibleName(spokenCaption(caption));
    return label;
}

}  // namespace klt
