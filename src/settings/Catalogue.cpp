#include "settings/Catalogue.h"

#include <algorithm>

#include "settings/Conversions.h"

namespace klt {

namespace {

std::string stored(Store& store, const auto& setting, std::string_view fallback = {}) {
    return GetSetting(store, setting.application, setting.section, setting.key, fallback);
}

}  // namespace

std::int32_t readSetting(Store& store, const NumberSetting& setting) {
    const auto number = numberFrom(stored(store, setting));
    return number ? std::clamp(*number, setting.bounds.least, setting.bounds.most) : setting.fallback;
}

bool readSetting(Store& store, const TruthSetting& setting) {
    return truthFrom(stored(store, setting)).value_or(setting.fallback);
}

std::string readSetting(Store& store, const TextSetting& setting) {
    return readSetting(store, setting, setting.fallback);
}

std::string readSetting(Store& store, const TextSetting& setting, std::string_view fallback) {
    return stored(store, setting, fallback);
}

bool isStored(Store& store, const TextSetting& setting) {
    return HasSetting(store, setting.application, setting.section, setting.key);
}

bool removeSetting(Store& store, const TextSetting& setting) {
    return DeleteSetting(store, setting.application, setting.section, setting.key);
}

bool writeSetting(Store& store, const NumberSetting& setting, std::int32_t value) {
    return SaveSetting(store, setting.application, setting.section, setting.key, std::to_string(value));
}

bool writeSetting(Store& store, const TruthSetting& setting, bool value) {
    return SaveSetting(store, setting.application, setting.section, setting.key, truthText(value));
}

bool writeSetting(Store& store, const TextSetting& setting, std::string_view value) {
    return SaveSetting(store, setting.application, setting.section, setting.key, value);
}

bool resetAllSettings(Store& store) {
    return store.together([&] {
        for (const auto application : {kSettingsApplication, kAuthorsApplication})
            DeleteSetting(store, application);
        return true;
    });
}

}  // namespace klt
