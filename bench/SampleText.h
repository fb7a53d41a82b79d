#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// A realistic data file of at least `bytes` bytes: sections, items with nested values, comments and
/// continuation lines; ASCII with CR LF. The same size and seed give
/// the same text.
std::string sampleText(size_t bytes, unsigned seed = 20260);

}  // namespace bench
