#include "app/menus/FileMenu.h"

#include "platform/Paths.h"
#include "settings/cMRUFileList.h"
#include "ui/QtStrings.h"

namespace klt {

std::vector<MenuEntry> recentEntries(const cMRUFileList& recent) {
    std::vector<MenuEntry> entries;
    for (int index = 1; index <= recent.FileCount(); ++index) {
        if (!recent.FileExists(index)) continue;
        // The first "&" is the access key's, all others are the path's.
        const std::string caption = recent.MenuCaption(index);
        entries.push_back({"RecentMenu" + QString::number(index), "&" + literally(caption.substr(1))});
    }
    return entries;
}

QString saveText(const std::string* caption) {
    if (!caption) return "Save";
    return "Save " + literally(caption->starts_with("KLT") ? *caption : FileName(*caption));
}

}  // namespace klt
