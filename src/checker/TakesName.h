#pragma once

#include "checker/Completion.h"

namespace klt {

/// Whether the checker finds no fault with a name of that kind where it is wanted.
bool takesName(const NameTrial& trial, const PrefixRow& prefix, std::string_view name);

/// Whether it takes names of that kind there.
bool takesPrefix(const NameTrial& trial, const PrefixRow& prefix);

}  // namespace klt
