#include "platform/ProgramNames.h"

namespace klt {

// The numbers stand in the project's CMakeLists.txt.
constinit const std::string_view kTitle = "KLT Editor Beta " KLT_MAJOR "." KLT_MINOR;
constinit const std::string_view kAppVersion = KLT_MAJOR "." KLT_MINOR "." KLT_REVISION;
constinit const std::string_view kVersionText = "Beta " KLT_MAJOR "." KLT_MINOR ", build " KLT_REVISION;
static_assert(std::string_view(KLT_MAJOR "." KLT_MINOR "." KLT_REVISION).size() == 9,
              "the upgrade compares versions of exactly nine characters");

}  // namespace klt
