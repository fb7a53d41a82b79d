#pragma once

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>
#include <functional>

namespace klt {

/// Drags `data` over the widget and drops it there; `beforeDrop` is called in between.
inline void dropOnto(QWidget& widget, const QMimeData& data, const std::function<void()>& beforeDrop = {}) {
    QDragEnterEvent enter({4, 4}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    if (beforeDrop) beforeDrop();
    QDropEvent drop({4, 4}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &drop);
}

}  // namespace klt
