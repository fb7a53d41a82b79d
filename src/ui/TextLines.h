#pragma once

#include <QTextLayout>
#include <limits>

namespace klt {

inline constexpr int kAllLines = std::numeric_limits<int>::max();

/// Breaks a text into lines of a width in pixels, at words where it can be and anywhere else, but makes no
/// more than `most`. Gives their height.
qreal breakLines(QTextLayout& layout, qreal width, int most = kAllLines);

/// Whether the lines hold less than the text.
bool isCut(const QTextLayout& layout);

}  // namespace klt
