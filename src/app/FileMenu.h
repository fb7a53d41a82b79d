#pragma once

#include <QObject>
#include <map>
#include <string>
#include <string_view>

class QAction;
class QMenuBar;

namespace klt {

/// The File menu. Each item is one action, named by its key.
class FileMenu : public QObject {
    Q_OBJECT

public:
    explicit FileMenu(QMenuBar& bar);

    /// Brings captions and enabled states up to date; `caption` is the active document's, null without one.
    void update(const std::string* caption);

signals:
    void MenuClick(const QString& key);
    /// The menu is about to drop.
    void dropping();

private:
    QAction* save_;
    QList<QAction*> needDocument_;
};

}  // namespace klt
