#pragma once

#include <string>
#include <vector>

#include "app/menus/MenuEntries.h"

namespace klt {

class cMRUFileList;

/// The recent files' entries, those that are empty left out.
std::vector<MenuEntry> recentEntries(const cMRUFileList& recent);

/// The text of the Save item; `caption` is the active document's, null without one.
QString saveText(const std::string* caption);

}  // namespace klt
