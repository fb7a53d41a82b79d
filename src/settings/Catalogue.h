#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "settings/GetSetting.h"
#include "settings/Names.h"

namespace klt {

/// What a stored number is kept within.
struct Bounds {
    std::int32_t least = std::numeric_limits<std::int32_t>::min();
    std::int32_t most = std::numeric_limits<std::int32_t>::max();
};

/// A setting read as a number. An absent one, or a text that is no number, is the default.
struct NumberSetting {
    std::string_view section;
    std::string_view key;
    std::int32_t fallback = 0;
    Bounds bounds = {};
    std::string_view application = kSettingsApplication;
};

/// A setting read as "True", "False" or any number (0 is false). Any other text is the default.
struct TruthSetting {
    std::string_view section;
    std::string_view key;
    bool fallback = false;
    std::string_view application = kSettingsApplication;
};

/// A setting taken as it stands.
struct TextSetting {
    std::string_view section;
    std::string_view key;
    std::string_view fallback = {};
    std::string_view application = kSettingsApplication;
};

/// Asks the store at the moment of the call, as everybody does: nobody keeps a setting.
std::int32_t readSetting(Store& store, const NumberSetting& setting);
bool readSetting(Store& store, const TruthSetting& setting);
std::string readSetting(Store& store, const TextSetting& setting);
/// With a default that is known at the call alone, as the program's own folder.
std::string readSetting(Store& store, const TextSetting& setting, std::string_view fallback);

/// Whether anything stands under the setting.
bool isStored(Store& store, const TextSetting& setting);

/// True if it is stored, on the disk.
bool writeSetting(Store& store, const NumberSetting& setting, std::int32_t value);
bool writeSetting(Store& store, const TruthSetting& setting, bool value);
bool writeSetting(Store& store, const TextSetting& setting, std::string_view value);

/// The catalogue: every setting in one row. Places and sizes are twips.
namespace settings {

inline constexpr Bounds kPlace{-500'000, 500'000};
inline constexpr Bounds kSize{1'500, 500'000};

inline constexpr NumberSetting kAutoCompleteNumber{"Options", "AutoComplete", 1000};
inline constexpr TruthSetting kAutoComplete{"Options", "AutoComplete", true};
inline constexpr TruthSetting kShowStatusBar{"Options", "ShowStatusBar", true};
inline constexpr TextSetting kMaxMRUFiles{"Options", "Max MRU Files"};

inline constexpr NumberSetting kWindowState{"KLTEditor", "WindowState", 0, {0, 2}};
inline constexpr NumberSetting kTop{"KLTEditor", "Top", 105, kPlace};
inline constexpr NumberSetting kLeft{"KLTEditor", "Left", 150, kPlace};
inline constexpr NumberSetting kHeight{"KLTEditor", "Height", 7020, kSize};
inline constexpr NumberSetting kWidth{"KLTEditor", "Width", 9330, kSize};
inline constexpr TextSetting kDataFilesPath{"KLTEditor", "Data Files Path"};
inline constexpr TextSetting kVersion{"KLTEditor", "Version"};

inline constexpr NumberSetting kDefaultTop{"Toolbar", "DefaultTop", 1, kPlace};
inline constexpr NumberSetting kWizardsTop{"Toolbar", "WizardsTop", 2, kPlace};

inline constexpr NumberSetting kAuthorCount{"Number", "Value", 8, {0, 1'000}, kAuthorsApplication};

}  // namespace settings

}  // namespace klt
