#include "settings/GetSetting.h"

#include "platform/ProgramNames.h"

namespace klt {

namespace {

/// Empty names are passed over in a path.
bool namesNothing(std::string_view name) {
    return name.find_first_not_of('\\') == name.npos;
}

/// The path of a section, or of an application when `section` is empty; empty for no application at all,
/// so that nobody removes every application by a slip.
std::string sectionPath(std::string_view application, std::string_view section) {
    if (namesNothing(application)) return {};
    std::string path;
    path.reserve(kSettingsFolder.size() + application.size() + section.size() + 2);
    path.append(kSettingsFolder).append("\\").append(application);
    if (!section.empty()) path.append("\\").append(section);
    return path;
}

std::optional<StoredValue> find(Store& store, std::string_view application, std::string_view section,
                                std::string_view key) {
    const auto path = sectionPath(application, section);
    return path.empty() ? std::nullopt : store.read({HKEY_CURRENT_USER, path}, key);
}

}  // namespace

std::string GetSetting(Store& store, std::string_view application, std::string_view section,
                       std::string_view key, SettingDefault fallback) {
    const auto value = find(store, application, section, key);
    return value ? textOf(*value) : std::move(fallback).text();
}

bool HasSetting(Store& store, std::string_view application, std::string_view section, std::string_view key) {
    return find(store, application, section, key).has_value();
}

bool SaveSetting(Store& store, std::string_view application, std::string_view section, std::string_view key,
                 std::string_view text) {
    const auto path = sectionPath(application, section);
    return !path.empty() && store.write({HKEY_CURRENT_USER, path}, key, {REG_SZ, std::string(text)});
}

bool DeleteSetting(Store& store, std::string_view application) {
    return store.removeKey({HKEY_CURRENT_USER, sectionPath(application, {})});
}

bool DeleteSetting(Store& store, std::string_view application, std::string_view section) {
    return !namesNothing(section) && store.removeKey({HKEY_CURRENT_USER, sectionPath(application, section)});
}

bool DeleteSetting(Store& store, std::string_view application, std::string_view section,
                   std::string_view key) {
    const auto path = sectionPath(application, section);
    return !path.empty() && store.removeValue({HKEY_CURRENT_USER, path}, key);
}

std::vector<std::pair<std::string, std::string>> GetAllSettings(Store& store, std::string_view application,
                                                                std::string_view section) {
    std::vector<std::pair<std::string, std::string>> settings;
    const auto path = sectionPath(application, section);
    if (path.empty()) return settings;
    const NodePath key{HKEY_CURRENT_USER, path};
    for (auto& name : store.valueNames(key))
        if (const auto value = store.read(key, name)) settings.emplace_back(std::move(name), textOf(*value));
    return settings;
}

}  // namespace klt
