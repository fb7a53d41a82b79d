#pragma once

#include <optional>

#include "ui/RichTextBox.h"

namespace klt {

/// The first run of `style` that begins at `from`, in bytes, or behind it; none that `from` lies inside.
std::optional<TextRange> nextStyleRun(const RichTextBox& box, StyleByte style, Position from);

/// The last run of `style` that ends at `before` or in front of it.
std::optional<TextRange> previousStyleRun(const RichTextBox& box, StyleByte style, Position before);

}  // namespace klt
