#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klt {

/// Whether a file can be picked for merging: a data file by its extension, and none of the host's base files,
/// which have "BASE" in their names. Case is ignored.
bool mayBeMerged(std::string_view path);

/// The row, counted from 0, that a new file takes in the list of files to be merged: BASIC.KLT stands right
/// above the last one, COMPEND1.KLT at the end, any other at the top. Nothing where it is in the list
/// already, as far as that is looked at: the rows from which a file of its kind would be told apart.
std::optional<size_t> placeInMergeList(const std::vector<std::string>& rows, std::string_view path);

}  // namespace klt
