#pragma once

#include <QPoint>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "app/menus/ToolbarTable.h"

namespace klt {

/// The toolbars from top left to bottom right: which one, by its index in `kToolbarRows`, and whether it
/// begins a row.
struct BandPlace {
    std::size_t bar = 0;
    bool beginsRow = false;
};
using BandRows = std::array<BandPlace, kToolbarRows.size()>;

/// In order of top, then left; a larger top begins a row. One place for each toolbar.
BandRows rowsByPlaces(const std::array<QPoint, kToolbarRows.size()>& places);

/// The names of the bands, a blank between those of a row, "/" between rows: "A1/A2".
std::string toText(const BandRows& rows);
/// The way back; nothing where the text does not name each band once.
std::optional<BandRows> rowsFrom(std::string_view text);

}  // namespace klt
