#include "settings/Upgrade.h"

#include <array>
#include <string>
#include <string_view>

#include "settings/AuthorProfiles.h"
#include "settings/Catalogue.h"
#include "settings/MakerProfile.h"
#include "settings/cMRUFileList.h"

namespace klt {

namespace {

using settings::kVersion;

/// The recent-files list kept its numbers as texts.
void convertRecentFiles(Store& store) {
    if (!isStored(store, settings::kMaxMRUFiles)) writeSetting(store, settings::kMRUMaxCount, "4");
    if (!store.read({HKEY_CURRENT_USER, recentFilesPath()}, "RecentFile1")) return;
    auto registry = recentFilesRegistry(store);
    const auto capacity = cMRUFileList::storedCapacity(registry);
    const auto rewrite = [&](std::string_view name, std::int32_t value) {
        registry.ValueType(REG_DWORD);
        registry.ValueKey(name);
        registry.Value(value);
    };
    rewrite("MaxCount", capacity);
    rewrite("Count", static_cast<std::int32_t>(GetAllSettings(store, kSettingsApplication, "MRU").size()));
}

void convertOldForms(Store& store) {
    convertRecentFiles(store);
    if (readSetting(store, settings::kAutoCompleteNumber) == 0)
        writeSetting(store, settings::kAutoComplete, false);
}

/// The menu bar became the first band.
void moveBands(Store& store) {
    for (const auto& top : {settings::kDefaultTop, settings::kWizardsTop})
        writeSetting(store, top, readSetting(store, top) + 1);
}

struct Step {
    std::string_view below;
    void (*run)(Store& store);
};
constexpr std::array<Step, 3> kSteps = {{
    {"1.53.0002", [](Store& store) { convertOldForms(store); }},
    {"1.60.0050", [](Store& store) { moveBands(store); }},
    {"1.60.0053", [](Store& store) { correctSecondAddress(store, kMakerName, kMakerAddress); }},
}};

/// Which steps are taken is decided by the version that was found, not by what a step stores; so an empty
/// store goes through all of them. Versions are compared as plain texts: a minor number of one digit counts
/// as higher than "60".
void upgradeFrom(Store& store, std::string version) {
    if (version.size() > kAppVersion.size()) {
        version = "1.52.0000";
        writeSetting(store, kVersion, version);
        correctSecondAddress(store, kMakerName, kMakerFormerAddress);
    }
    for (const auto& step : kSteps) {
        if (version >= step.below) continue;
        step.run(store);
        writeSetting(store, kVersion, kAppVersion);
    }
}

}  // namespace

bool upgradeSettings(Store& store) {
    const auto version = readSetting(store, kVersion);
    if (version.size() <= kAppVersion.size() && version >= kSteps.back().below) return true;
    return store.together([&] {
        upgradeFrom(store, readSetting(store, kVersion));
        return true;
    });
}

}  // namespace klt
