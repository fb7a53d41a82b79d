#pragma once

#include <vector>

#include "app/menus/MenuEntries.h"

namespace klt {

class OpenForms;

/// The documents' entries of the Window menu: eight at most, and behind them one for the rest.
std::vector<MenuEntry> windowEntries(const OpenForms& forms);

}  // namespace klt
