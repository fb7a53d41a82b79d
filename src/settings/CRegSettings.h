#pragma once

#include <string>
#include <string_view>

#include "platform/ProgramNames.h"
#include "settings/Store.h"

namespace klt {

/// The road to settings under "Software\" + `Company` + "\" + `AppName`, for the current user.
class CRegSettings {
public:
    explicit CRegSettings(Store& store) : store_(store) {}

    const std::string& Company() const { return company_; }
    /// Trimmed of blanks; a text of length 0 restores the initial value.
    void Company(std::string_view company);
    const std::string& AppName() const { return appName_; }
    /// Trimmed of blanks; a text of length 0 restores the initial value.
    void AppName(std::string_view appName);

    /// With a key: removes its value ("*" is the section's default value). With an empty key: removes the
    /// section and all below it. True if it was there.
    bool DeleteSetting(std::string_view Section, std::string_view Key);
    /// The stored text, or the default where nothing, or a text of length 0, is stored under the key ("*" is
    /// the section's default value).
    std::string GetSetting(std::string_view Section, std::string_view Key, std::string_view Default);
    /// True if the text is stored, on the disk. The key "*" is the section's default value.
    bool SaveSetting(std::string_view Section, std::string_view Key, std::string_view Setting);

private:
    static constexpr std::string_view kCompany = "Shared Program Settings";
    static constexpr std::string_view kAppName = kSettingsApplication;

    std::string path(std::string_view section) const;

    Store& store_;
    std::string company_{kCompany};
    std::string appName_{kAppName};
};

}  // namespace klt
