#include "app/FileMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <array>

#include "platform/TextOperations.h"

namespace klt {
namespace {

struct Item {
    const char* key;
    const char* caption;
    const char* shortcut;
    bool needsDocument;
};

constexpr Item kSeparator{nullptr, nullptr, nullptr, false};

constexpr std::array kItems = {
    Item{"F1", "&New", "Ctrl+N", false},
    Item{"F2", "&Open...", "Ctrl+O", false},
    Item{"F3", "&Close", "Ctrl+F4", true},
    kSeparator,
    Item{"F4", "&Save", "Ctrl+S", true},
    Item{"F5", "Save &As...", "", true},
    kSeparator,
    Item{"F6", "E&xit", "Alt+F4", false},
};

/// Names show as they are, with every "&".
QString shown(std::string_view name) {
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).replace("&", "&&");
}

QString saveCaption(const std::string* caption) {
    if (!caption) return "Save";
    return "Save " + shown(caption->starts_with("KLT") ? *caption : FileName(*caption));
}

}  // namespace

FileMenu::FileMenu(QMenuBar& bar) {
    auto* menu = bar.addMenu("&File");
    menu->setObjectName("mnuFileTOP");
    menu->menuAction()->setObjectName("mnuFileTOP");
    for (const Item& item : kItems) {
        if (!item.key) {
            menu->addSeparator();
            continue;
        }
        auto* action = menu->addAction(item.caption);
        action->setObjectName(item.key);
        action->setShortcut(QKeySequence(QString::fromLatin1(item.shortcut)));
        connect(action, &QAction::triggered, this, [this, key = QString(item.key)] { emit MenuClick(key); });
        if (item.needsDocument) needDocument_.append(action);
        if (std::string_view(item.key) == "F4") save_ = action;
    }
    connect(menu, &QMenu::aboutToShow, this, &FileMenu::dropping);
    update(nullptr);
}

void FileMenu::update(const std::string* caption) {
    for (auto* action : needDocument_) action->setEnabled(caption != nullptr);
    save_->setText(saveCaption(caption));
}

}  // namespace klt
