#include "platform/Failure.h"

#include <system_error>

namespace klt {

Failure systemFailure(int errorNumber) {
    if (errorNumber == 0) return std::nullopt;
    return std::generic_category().message(errorNumber);
}

}  // namespace klt
