#include "ui/DroppedFiles.h"
#include "ui/QtStrings.h"

#include <QFile>
#include <QMimeData>
#include <QUrl>

namespace klt {

std::vector<std::string> localFiles(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const auto& url : data.urls())
        if (url.isLocalFile()) paths.push_back(toPath(url.toLocalFile()));
    return paths;
}

}  // namespace klt
