#pragma once

#include <string>
#include <vector>

class QMimeData;

namespace klt {

/// The paths of the files of this machine that are dragged or dropped; a web link is none.
std::vector<std::string> localFiles(const QMimeData& data);

}  // namespace klt
