#include "ui/DroppedFiles.h"

#include <QFile>
#include <QMimeData>
#include <QUrl>

namespace klt {

std::vector<std::string> localFiles(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const auto& url : data.urls())
        if (url.isLocalFile()) paths.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
    return paths;
}

}  // namespace klt
