#pragma once

#include <QFileIconProvider>

namespace klt {

/// Icons and types of files by their names alone. The toolkit's own reads each file that a name says nothing
/// of, on the window's thread, and some give no answer.
class FileIcons : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override;
    QString type(const QFileInfo& file) const override;
};

}  // namespace klt
