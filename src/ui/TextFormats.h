#pragma once

#include <QColor>
#include <QString>
#include <array>

#include "language/StyleCategory.h"

namespace klt {

/// How the text of one style category looks.
struct StyleFormat {
    QColor colour = Qt::black;
    bool bold = false;
    bool italic = false;
    bool operator==(const StyleFormat&) const = default;
};

/// One format for each category, in the categories' order.
using StyleFormats = std::array<StyleFormat, kStyleCategoryNames.size()>;

/// Name and size of a text box's font; a twip is a twentieth of a point.
struct TextFont {
    QString family;
    int twips = 0;
    bool operator==(const TextFont&) const = default;
};

TextFont documentFont();
TextFont fieldFont();

}  // namespace klt
