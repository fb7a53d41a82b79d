#pragma once

#include "settings/CRegSettings.h"

namespace klt {

/// The road to the styles of the text: one section a category, under "Editor Format".
CRegSettings editorFormatSettings(Store& store);

/// Deletes the section, so that every style is its default again. True if there was one.
bool resetEditorFormat(Store& store);

}  // namespace klt
