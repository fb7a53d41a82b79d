#pragma once

#include <string>
#include <string_view>

#include "text/TextArea.h"

namespace klt {

class RichTextBox;

/// The styles of [range.start, range.end) of a box, run by run, in no more bytes than the text has there;
/// empty where all of it is `Normal Text`. Throws `std::bad_alloc`.
std::string packedStyles(const RichTextBox& box, TextRange range);

/// Lays them from `start` on.
void layPackedStyles(RichTextBox& box, Position start, std::string_view packed);

}  // namespace klt
