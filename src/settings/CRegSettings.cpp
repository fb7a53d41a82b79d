#include "settings/CRegSettings.h"

#include "settings/Conversions.h"
#include "text/Ascii.h"

namespace klt {

namespace {

std::string_view valueName(std::string_view key) {
    return key == "*" ? std::string_view() : key;
}

}  // namespace

void CRegSettings::Company(std::string_view company) {
    company_ = trimBlanks(company.empty() ? kCompany : company);
}

void CRegSettings::AppName(std::string_view appName) {
    appName_ = trimBlanks(appName.empty() ? kAppName : appName);
}

std::string CRegSettings::path(std::string_view section) const {
    const auto path = "Software\\" + company_ + "\\" + appName_;
    return section.empty() ? path : path + "\\" + std::string(section);
}

bool CRegSettings::DeleteSetting(std::string_view Section, std::string_view Key) {
    if (!Key.empty()) return store_.removeValue({HKEY_CURRENT_USER, path(Section)}, valueName(Key));
    // A section without a name would be the whole application.
    return Section.find_first_not_of('\\') != Section.npos &&
           store_.removeKey({HKEY_CURRENT_USER, path(Section)});
}

std::string CRegSettings::GetSetting(std::string_view Section, std::string_view Key,
                                     std::string_view Default) {
    const auto value = store_.read({HKEY_CURRENT_USER, path(Section)}, valueName(Key));
    auto text = value ? textOf(*value) : std::string();
    return text.empty() ? std::string(Default) : text;
}

bool CRegSettings::SaveSetting(std::string_view Section, std::string_view Key, std::string_view Setting) {
    return store_.write({HKEY_CURRENT_USER, path(Section)}, valueName(Key), {REG_SZ, std::string(Setting)});
}

}  // namespace klt
