#include "tools/LineBreakLimits.h"

#include "settings/Catalogue.h"

namespace klt {

LineBreakLimits readLineBreakLimits(Store& store) {
    return {.maximum = readSetting(store, settings::kLineBreakerMaximum),
            .tolerance = readSetting(store, settings::kLineBreakerTolerance)};
}

}  // namespace klt
