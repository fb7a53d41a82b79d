#pragma once

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace klt {

/// Drags `data` over the widget and drops it there; `beforeDrop` is called in between.
inline void dropOnto(QWidget& widget, const QMimeData& data, const std::function<void()>& beforeDrop = {}) {
    QDragEnterEvent enter({4, 4}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    if (beforeDrop) beforeDrop();
    QDropEvent drop({4, 4}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &drop);
}

/// Drops files, and what else has an address, onto the widget.
inline void dropFiles(QWidget& widget, const std::vector<std::string>& addresses) {
    QList<QUrl> urls;
    for (const auto& it : addresses)
        urls << (it.starts_with('/') ? QUrl::fromLocalFile(it.c_str()) : QUrl(it.c_str()));
    QMimeData data;
    data.setUrls(urls);
    dropOnto(widget, data);
}

}  // namespace klt
