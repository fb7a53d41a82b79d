#pragma once

#include "checker/Completion.h"

namespace klt {

/// What may stand at the end of a tag's value as far as it is typed. The offsets are in `value`.
CompletionPlace placeInValue(std::string_view value, Tag tag, Section section);

/// The same place in a text in which what it was told of begins at `offset`.
CompletionPlace movedBy(size_t offset, CompletionPlace place);

}  // namespace klt
