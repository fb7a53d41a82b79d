#include "ui/FieldPopup.h"

#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QShortcut>
#include <QWhatsThis>
#include <array>
#include <functional>
#include <utility>

#include "platform/CommandKeys.h"
#include "ui/RichTextBox.h"

namespace klt {
namespace {

constexpr char kFieldPopup[] = "SingleItemRTFPopup";
constexpr char kBoxPopup[] = "MultiItemRTFPopup";
constexpr char kMailPopup[] = "MailToRTFPopup";

/// What the popup asks of a field, and does to it.
struct Face {
    QWidget* widget;
    bool canUndo;
    bool hasSelection;
    std::function<void()> undo, cut, copy, paste, remove, selectAll;
    /// Puts the line at the caret back on its tab; empty where the field holds no collected lines.
    std::function<void()> editLine = {};
    /// Mails to what the field holds; empty where that is no address.
    std::function<void()> mailTo = {};

    const char* popupName() const {
        if (mailTo) return kMailPopup;
        return editLine ? kBoxPopup : kFieldPopup;
    }
};

Face faceOf(RichTextBox& box) {
    return {&box,
            box.CanUndo(),
            box.SelLength() > 0,
            [&box] { box.Undo(); },
            [&box] { box.Cut(); },
            [&box] { box.Copy(); },
            [&box] { box.Paste(); },
            [&box] { box.Delete(); },
            [&box] { box.Select(0, box.Length()); }};
}

Face faceOf(QLineEdit& edit) {
    return {&edit,
            edit.isUndoAvailable(),
            edit.hasSelectedText(),
            [&edit] { edit.undo(); },
            [&edit] { edit.cut(); },
            [&edit] { edit.copy(); },
            [&edit] { edit.paste(); },
            [&edit] { edit.del(); },
            [&edit] { edit.selectAll(); }};
}

bool always(const Face&) {
    return true;
}
bool hasSelection(const Face& face) {
    return face.hasSelection;
}
bool canPaste(const Face&) {
    const auto* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && data->hasText();
}

QString helpOn(const QWidget* widget) {
    while (widget != nullptr && widget->whatsThis().isEmpty()) widget = widget->parentWidget();
    return widget == nullptr ? QString() : widget->whatsThis();
}

void showHelp(QWidget& widget, QPoint global) {
    const QString text = helpOn(&widget);
    if (!text.isEmpty()) QWhatsThis::showText(global, text, &widget);
}

/// One that does nothing is a separator.
struct Row {
    const char* key = "";
    const char* caption = "";
    const char* keys = "";
    bool (*isEnabled)(const Face&) = always;
    std::function<void()> Face::*run = nullptr;
};

constexpr std::array kRows = {
    Row{commands::kUndo, "&Undo", "Ctrl+Z", [](const Face& face) { return face.canUndo; }, &Face::undo},
    Row{},
    Row{commands::kCut, "&Cut", "Ctrl+X", hasSelection, &Face::cut},
    Row{commands::kCopy, "C&opy", "Ctrl+C", hasSelection, &Face::copy},
    Row{commands::kPaste, "&Paste", "Ctrl+V", canPaste, &Face::paste},
    Row{commands::kDelete, "&Delete", "Del", always, &Face::remove},
    Row{commands::kEditLine, "Edit &Line", "Ctrl+L", always, &Face::editLine},
    Row{commands::kSelectAll, "&Select All", "Ctrl+A", always, &Face::selectAll},
    Row{},
};

QAction& addItem(QMenu& menu, const char* key, const char* caption, const char* keys = "") {
    // The keys are told only: they act in the field itself.
    QAction& item = *menu.addAction(*keys == '\0' ? QString(caption) : QString(caption) + '\t' + keys);
    item.setObjectName(menu.objectName() + '.' + key);
    return item;
}

void ShowFieldPopup(const Face& face, QPoint global) {
    auto* menu = new QMenu(face.widget);
    menu->setObjectName(face.popupName());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Row& row : kRows) {
        if (row.run == nullptr || !(face.*row.run)) {
            menu->addSeparator();
            continue;
        }
        QAction& item = addItem(*menu, row.key, row.caption, row.keys);
        item.setEnabled(row.isEnabled(face));
        QObject::connect(&item, &QAction::triggered, face.widget, face.*row.run);
    }
    QAction& help = addItem(*menu, commands::kContents, "&Help", "F1");
    help.setEnabled(!helpOn(face.widget).isEmpty());
    QObject::connect(&help, &QAction::triggered, face.widget,
                     [widget = face.widget, global] { showHelp(*widget, global); });
    if (face.mailTo) {
        QAction& mail = addItem(*menu, commands::kMailTo, "&Mail to");
        QObject::connect(&mail, &QAction::triggered, face.widget, face.mailTo);
    }
    menu->popup(global);
}

void addHelpKey(QWidget& field) {
    auto* key = new QShortcut(Qt::Key_F1, &field);
    key->setContext(Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, &field,
                     [&field] { showHelp(field, field.mapToGlobal(field.rect().bottomLeft())); });
}

/// Stands between a line of text and its own popup. In a combo the keys reach the combo, the mouse its line.
class LinePopup : public QObject {
public:
    LinePopup(QWidget& field, QLineEdit& edit, MailTo mailTo)
        : QObject(&field), edit_(edit), mailTo_(std::move(mailTo)) {
        field.installEventFilter(this);
        edit.installEventFilter(this);
    }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        // Others come also while the field is being destroyed.
        if (event->type() == QEvent::KeyPress)
            return isPopupChord(static_cast<QKeyEvent&>(*event)) && showBelow();
        if (event->type() != QEvent::ContextMenu && event->type() != QEvent::MouseButtonRelease) return false;
        if (event->type() == QEvent::ContextMenu) {
            const auto& wish = static_cast<QContextMenuEvent&>(*event);
            // The right button's popup comes with its release.
            if (wish.reason() != QContextMenuEvent::Mouse) show(wish.globalPos());
            return true;
        }
        if (receiver == &edit_ && event->type() == QEvent::MouseButtonRelease) {
            const auto& release = static_cast<QMouseEvent&>(*event);
            if (release.button() == Qt::RightButton) show(release.globalPosition().toPoint());
        }
        return false;
    }

private:
    /// The menu key makes an event of its own; this chord makes none on every desktop.
    static bool isPopupChord(const QKeyEvent& press) {
        return press.key() == Qt::Key_F10 && press.modifiers() == Qt::ShiftModifier;
    }
    bool showBelow() {
        show(edit_.mapToGlobal(edit_.rect().bottomLeft()));
        return true;
    }
    void show(QPoint global) {
        Face face = faceOf(edit_);
        if (mailTo_ && edit_.text().contains('@')) face.mailTo = [this] { mailTo_(edit_.text()); };
        ShowFieldPopup(face, global);
    }

    QLineEdit& edit_;
    const MailTo mailTo_;
};

}  // namespace

void addFieldPopup(RichTextBox& field) {
    addBoxPopup(field, {});
}

void addBoxPopup(RichTextBox& box, std::function<void()> editLine) {
    QObject::connect(&box, &RichTextBox::popupWanted, &box,
                     [&box, editLine = std::move(editLine)](QPoint global) {
                         Face face = faceOf(box);
                         face.editLine = editLine;
                         ShowFieldPopup(face, global);
                     });
    addHelpKey(box);
}

void addFieldPopup(QComboBox& combo) {
    // A list takes no text that could be edited.
    if (combo.isEditable()) new LinePopup(combo, *combo.lineEdit(), {});
    addHelpKey(combo);
}

void addFieldPopup(QLineEdit& line, MailTo mailTo) {
    new LinePopup(line, line, std::move(mailTo));
    addHelpKey(line);
}

}  // namespace klt
