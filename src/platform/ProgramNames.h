#pragma once

#include <string_view>

namespace klt {

/// The application on the plain settings road.
inline constexpr std::string_view kSettingsApplication = "KLTEdit";
/// Where the applications of the plain settings road lie, below the current user.
inline constexpr std::string_view kSettingsFolder = "Software\\Shared Program Settings";
/// The application under which the author profiles lie.
inline constexpr std::string_view kAuthorsApplication = "Authors";
/// The title of the main window, and of every message box that carries one.
inline constexpr std::string_view kTitle = "KLT Editor Beta 1.60";
/// `AppVersion`: major, two digits of minor, four of revision.
inline constexpr std::string_view kAppVersion = "1.60.0053";
static_assert(kAppVersion.size() == 9, "the upgrade compares versions of exactly nine characters");

}  // namespace klt
