#include "app/window/ClipboardState.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace klt {

ClipboardState::ClipboardState() {
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &ClipboardState::ask);
    ask();
}

void ClipboardState::ask() {
    const auto* data = QGuiApplication::clipboard()->mimeData();
    hasText_ = data && data->hasText();
    emit changed();
}

}  // namespace klt
