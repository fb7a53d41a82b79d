#include "language/StyleCategory.h"

namespace klt {

static_assert(styleCategoryName(StyleCategory::VersionInformation) == "Version Information",
              "one name for each category");

}  // namespace klt
