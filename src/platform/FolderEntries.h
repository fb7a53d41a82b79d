#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Failure.h"

namespace klt {

/// What a folder holds, as far as it is known.
struct FolderEntries {
    /// Names of the folders in it, in the order of `precedes`; links to folders too.
    std::vector<std::string> folders;
    /// Names of the other files, in that order.
    std::vector<std::string> files;
    /// Nothing more will be found.
    bool isWhole = false;
    Failure error;
    /// The path leads to a file.
    bool isNoFolder = false;
};

/// The order in which a person looks for names: hidden ones last, without regard to case.
bool precedes(std::string_view left, std::string_view right);

/// Reads a folder and gives `found` what it knows, each time all of it: first what the folder itself tells,
/// at the end also where its links lead. Nothing but links is asked, for what is mounted on a folder may not
/// answer; a link that leads there holds up the end alone.
void listFolder(const std::string& folder, const std::function<void(const FolderEntries&)>& found);

}  // namespace klt
