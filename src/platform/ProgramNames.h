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
extern const std::string_view kTitle;
/// `AppVersion`: major, two digits of minor, four of revision.
extern const std::string_view kAppVersion;
/// The version as people are told it, with its build.
extern const std::string_view kVersionText;

}  // namespace klt
