#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "language/Vocabulary.h"

namespace klt {

/// The names of the kind of `prefix` in the texts that begin as what is typed, in any case: in the order of
/// letters, each once however it is spelled, at most `count`, the first ones. They are views into the texts.
std::vector<std::string_view> namesInDocuments(std::span<const std::string_view> documents,
                                               const PrefixRow& prefix, std::string_view typed, size_t count);

}  // namespace klt
