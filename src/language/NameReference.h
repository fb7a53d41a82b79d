#pragma once

#include <optional>
#include <string_view>

#include "language/Outline.h"

namespace klt {

/// A prefix tag in a line, and the name behind it, whose end the names that there are tell: it may hold signs
/// and blanks, as what follows it does.
struct NameReference {
    /// Never null.
    const PrefixRow* prefix = nullptr;
    /// From behind the tag to the physical line's end.
    std::string_view behind;
    /// How many bytes of it stand in front of the caret.
    size_t reach = 0;

    /// How many bytes of `behind` are the name of that line, in any case, with the caret in it or at its end;
    /// 0 where it is not what is referred to.
    size_t lengthOf(const OutlineEntry& entry) const;
};

/// The last prefix tag, in any case, that begins in front of `caret`, an offset in the physical line, or at
/// it; nothing without one.
std::optional<NameReference> referenceAt(std::string_view line, size_t caret);

}  // namespace klt
