#include "app/dialogs/FileIcons.h"

#include <QFileInfo>
#include <QMimeDatabase>

namespace klt {

QIcon FileIcons::icon(const QFileInfo& file) const {
    return icon(file.isDir() ? Folder : File);
}

QString FileIcons::type(const QFileInfo& file) const {
    const auto known = QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension);
    const QString ending = file.suffix();
    return known.isDefault() && !ending.isEmpty() ? ending.toUpper() + " file" : known.comment();
}

}  // namespace klt
