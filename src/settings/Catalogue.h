#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "platform/ProgramNames.h"
#include "settings/GetSetting.h"

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
/// Takes the setting out of the store; true if it was there.
bool removeSetting(Store& store, const TextSetting& setting);

/// True if it is stored, on the disk.
bool writeSetting(Store& store, const NumberSetting& setting, std::int32_t value);
bool writeSetting(Store& store, const TruthSetting& setting, bool value);
bool writeSetting(Store& store, const TextSetting& setting, std::string_view value);

/// Deletes everything that is stored, the author profiles with it, so that the defaults hold. True if it is
/// stored.
bool resetAllSettings(Store& store);

/// Where a window opens: the frame's top and left, in twips, by the window's name.
struct WindowPosition {
    NumberSetting top;
    NumberSetting left;
};

/// The catalogue: every setting in one row. Places and sizes are twips. The bounds keep what would cost time
/// or memory, or make no sense, out of every reader.
namespace settings {

inline constexpr Bounds kPlace{-500'000, 500'000};
inline constexpr Bounds kSize{1'500, 500'000};
inline constexpr Bounds kBandWidth{0, 500'000};

/// Absent or empty as long as nobody has chosen a version.
inline constexpr TextSetting kTvmVersionChosen{"Options", "TVM Version"};
/// The host's versions. What is stored is the index of one.
inline constexpr std::array<std::string_view, 2> kTvmVersions = {"2.12", "2.2ß"};
inline constexpr NumberSetting kTvmVersion{"Options", "TVM Version", 0, {0, 1}};
/// These two are on where they equal 1, and for no other number.
inline constexpr NumberSetting kShowTips{"Options", "Show Tips at Startup", 1};
inline constexpr NumberSetting kShowKLTCheckerWindow{"Options", "Show KLT Checker Window", 1};
/// Any number may stand there: what is no tip's the window of tips decides.
inline constexpr NumberSetting kCurrentTip{"Options", "Current Tip"};
inline constexpr TruthSetting kAutoSyntaxCheck{"Options", "AutoSyntaxCheck", true};
inline constexpr TruthSetting kWizardSyntaxCheck{"Options", "WizardSyntaxCheck", true};
/// What earlier versions kept there.
inline constexpr NumberSetting kAutoCompleteNumber{"Options", "AutoComplete", 1000};
inline constexpr TruthSetting kAutoComplete{"Options", "AutoComplete", true};
inline constexpr TruthSetting kMatchParenthesis{"Options", "MatchParenthesis", true};
inline constexpr TruthSetting kShowStatusBar{"Options", "ShowStatusBar", true};
inline constexpr NumberSetting kMaximumNested{"Options", "Maximum Nested @Functions", 50, {0, 100}};
inline constexpr NumberSetting kLineBreakerMaximum{"Options", "LineBreaker Maximum Length", 80, {0, 200}};
inline constexpr NumberSetting kLineBreakerTolerance{"Options", "LineBreaker Tolerance", 10, {0, 20}};
inline constexpr TextSetting kTvmIniPath{"Options", "TVMINIPath"};
inline constexpr TextSetting kMaxMRUFiles{"Options", "Max MRU Files"};

inline constexpr NumberSetting kWindowState{"KLTEditor", "WindowState", 0, {0, 2}};
inline constexpr NumberSetting kTop{"KLTEditor", "Top", 105, kPlace};
inline constexpr NumberSetting kLeft{"KLTEditor", "Left", 150, kPlace};
inline constexpr NumberSetting kHeight{"KLTEditor", "Height", 7020, kSize};
inline constexpr NumberSetting kWidth{"KLTEditor", "Width", 9330, kSize};
/// By how many points the texts of documents, and of fields and previews, are larger than their font says.
inline constexpr Bounds kZoomBounds{-10, 20};
inline constexpr NumberSetting kZoom{"KLTEditor", "Zoom", 0, kZoomBounds};
inline constexpr NumberSetting kFieldZoom{"KLTEditor", "FieldZoom", 0, kZoomBounds};
inline constexpr TextSetting kDataFilesPath{"KLTEditor", "Data Files Path"};
inline constexpr TextSetting kVersion{"KLTEditor", "Version"};

inline constexpr NumberSetting kMenubarLeft{"Toolbar", "MenubarLeft", 0, kPlace};
inline constexpr NumberSetting kMenubarTop{"Toolbar", "MenubarTop", 0, kPlace};
inline constexpr NumberSetting kMenubarWidth{"Toolbar", "MenubarWidth", 0, kBandWidth};
inline constexpr NumberSetting kDefaultLeft{"Toolbar", "DefaultLeft", 0, kPlace};
inline constexpr NumberSetting kDefaultTop{"Toolbar", "DefaultTop", 1, kPlace};
inline constexpr NumberSetting kDefaultWidth{"Toolbar", "DefaultWidth", 0, kBandWidth};
inline constexpr TruthSetting kDefaultVisible{"Toolbar", "DefaultVisible", true};
inline constexpr NumberSetting kWizardsLeft{"Toolbar", "WizardsLeft", 0, kPlace};
inline constexpr NumberSetting kWizardsTop{"Toolbar", "WizardsTop", 2, kPlace};
inline constexpr NumberSetting kWizardsWidth{"Toolbar", "WizardsWidth", 0, kBandWidth};
inline constexpr TruthSetting kWizardsVisible{"Toolbar", "WizardsVisible", true};
/// How the toolbars followed each other at an exit that left one hidden; absent where none was.
inline constexpr TextSetting kBandRows{"Toolbar", "Rows"};

/// The list itself is kept by `cMRUFileList`.
inline constexpr TextSetting kMRUMaxCount{"MRU", "MaxCount"};

/// The histories of the find window, newest first.
inline constexpr std::array<TextSetting, 4> kSearchStrings = {
    {{"Search Strings", "0"}, {"Search Strings", "1"}, {"Search Strings", "2"}, {"Search Strings", "3"}}};
inline constexpr std::array<TextSetting, 4> kReplaceStrings = {
    {{"Replace Strings", "0"}, {"Replace Strings", "1"}, {"Replace Strings", "2"}, {"Replace Strings", "3"}}};

/// `kEasterEggEnabled` from a click on the opening window until the end of the run.
inline constexpr TextSetting kAboutBoxEasterEgg{"Special", "frmAboutBox Easter Egg"};
inline constexpr std::string_view kEasterEggEnabled = "Enabled";

constexpr WindowPosition windowRow(std::string_view window, std::int32_t top, std::int32_t left) {
    return {{window, "Top", top, kPlace}, {window, "Left", left, kPlace}};
}
inline constexpr std::array<WindowPosition, 13> kWindowPositions = {{
    windowRow("frmFind", 2160, 1725),
    windowRow("frmAdWizard", 540, 1140),
    windowRow("frmSkillWizard", 165, 1440),
    windowRow("frmSpellWizard", 450, 1545),
    windowRow("frmStatWizard", 1620, 330),
    windowRow("frmPackWizard", 1110, 420),
    windowRow("frmAuthorWizard", 150, 1155),
    windowRow("frmBonusWizard", 855, 1095),
    windowRow("frmFunctionsWizard", 2385, 2205),
    windowRow("frmGivesWizard", 1920, 1515),
    windowRow("frmGroupWizard", 2010, 1095),
    windowRow("frmModWizard", 1650, 2145),
    // Stored, but the window opens where it is designed to.
    windowRow("frmOptions", 0, 0),
}};
/// The row of a window; null for one whose position nobody keeps.
constexpr const WindowPosition* windowPosition(std::string_view window) {
    for (const auto& row : kWindowPositions) {
        if (row.top.section == window) return &row;
    }
    return nullptr;
}

inline constexpr TruthSetting kFirstTime{"frmAuthorWizard", "First Time", true};
/// The index of the profile used last; -1 for none.
inline constexpr NumberSetting kLastAuthor{"frmAuthorWizard", "Last Author", -1, {-1, 999}};
inline constexpr NumberSetting kAuthorCount{"Number", "Value", 8, {0, 1'000}, kAuthorsApplication};

}  // namespace settings

}  // namespace klt
