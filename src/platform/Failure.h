#pragma once

#include <optional>
#include <string>

namespace klt {

/// Why something failed, in a few words for a person to read, without the path; none where it went well.
using Failure = std::optional<std::string>;

/// The words of the system for one of its error numbers; none for 0.
Failure systemFailure(int errorNumber);

}  // namespace klt
