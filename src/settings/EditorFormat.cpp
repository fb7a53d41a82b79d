#include "settings/EditorFormat.h"

#include "settings/GetSetting.h"

namespace klt {

namespace {
constexpr std::string_view kEditorFormat = "Editor Format";
}

CRegSettings editorFormatSettings(Store& store) {
    CRegSettings settings(store);
    settings.Company(std::string("Shared Program Settings\\").append(kSettingsApplication));
    settings.AppName(kEditorFormat);
    return settings;
}

bool resetEditorFormat(Store& store) {
    return DeleteSetting(store, kSettingsApplication, kEditorFormat);
}

}  // namespace klt
