#include "ui/CompletionPopup.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "text/TextAreaGuards.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

size_t caretOf(const RichTextBox& box) {
    return static_cast<size_t>(box.SelStart());
}

/// Writes the choice over what is typed of it, and over the selection, as typing would. Where the box takes
/// no edit there, all stays.
void write(RichTextBox& box, size_t start, const Completion& choice) {
    const Position caret = box.SelStart();
    const Position length = box.SelLength();
    const auto from = static_cast<Position>(start);
    const Position to = caret + std::max(length, static_cast<Position>(choice.taken));
    {
        const NotificationMask mask(box);
        box.Select(from, to - from);
    }
    if (box.SetSelText(choice.text)) {
        box.SetSelStart(from + static_cast<Position>(choice.caret));
    } else {
        box.Select(caret, length);
    }
    box.ScrollCaret();
}

}  // namespace

CompletionPopup::CompletionPopup(RichTextBox& box, PlaceInBox placeAt, OpenTexts openTexts)
    : QListView(&box), box_(box), placeAt_(std::move(placeAt)), openTexts_(std::move(openTexts)) {
    setWindowFlags(Qt::Popup);
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("Completions");
    setAccessibleName("Completions");
    setFocusPolicy(Qt::NoFocus);
    setFocusProxy(&box);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setModel(&rows_);
    box.installEventFilter(this);
    connect(this, &QListView::clicked, this, &CompletionPopup::take);
    connect(&box, &RichTextBox::Change, this, &CompletionPopup::narrow);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        if (now != &box_ && now != this) close();
    });
    connect(&box, &RichTextBox::SelChange, this, [this] {
        // An edit has told of the move that goes with it.
        if (box_.SelStart() != caret_ || box_.SelLength() != 0) narrow();
    });
}

CompletionPopup::~CompletionPopup() {
    // What goes gives up its focus, which is the box's.
    setFocusProxy(nullptr);
}

void CompletionPopup::open(RichTextBox& box, PlaceInBox placeAt, OpenTexts openTexts) {
    auto* popup = new CompletionPopup(box, std::move(placeAt), std::move(openTexts));
    if (!popup->list(popup->completions())) return delete popup;
    popup->place();
    popup->show();
}

Completions CompletionPopup::completions() {
    caret_ = box_.SelStart();
    const auto texts = openTexts_ ? openTexts_() : std::vector<std::string_view>();
    const auto text = box_.Text();
    return completionsAt(text, caretOf(box_), placeAt_(text, caretOf(box_)), texts);
}

/// False where there is nothing to show.
bool CompletionPopup::list(Completions found) {
    if (found.choices.empty()) return false;
    found_ = std::move(found);
    QStringList shown;
    for (const Completion& choice : found_.choices) shown << toQString(choice.shown);
    rows_.setStringList(shown);
    setCurrentIndex(rows_.index(0));
    return true;
}

void CompletionPopup::narrow() {
    if (isTaking_ || !isVisible()) return;
    auto found = completions();
    const bool isSameWord = found.start == found_.start;
    if (!isSameWord || !list(std::move(found))) {
        close();
    } else {
        place();
    }
}

void CompletionPopup::take() {
    const auto row = static_cast<size_t>(currentIndex().row());
    const Completion choice = found_.choices[row];
    const auto start = found_.start;
    isTaking_ = true;
    close();
    write(box_, start, choice);
}

/// Below the line of the word, or above it where there is no room; as wide as its rows, within bounds.
void CompletionPopup::place() {
    constexpr int kMostRows = 12, kNarrowest = 16, kWidest = 60;
    const auto start = static_cast<long>(found_.start);
    const auto lineHeight = static_cast<int>(box_.SendScintilla(RichTextBox::SCI_TEXTHEIGHT, 0L));
    const QPoint word(static_cast<int>(box_.SendScintilla(RichTextBox::SCI_POINTXFROMPOSITION, 0L, start)),
                      static_cast<int>(box_.SendScintilla(RichTextBox::SCI_POINTYFROMPOSITION, 0L, start)));
    const QPoint top = box_.viewport()->mapToGlobal(word);

    const int letter = fontMetrics().averageCharWidth();
    const int frame = 2 * frameWidth();
    const int bar = verticalScrollBar()->sizeHint().width();
    const int width = std::clamp(sizeHintForColumn(0) + bar, kNarrowest * letter, kWidest * letter) + frame;
    const int height = std::min(rows_.rowCount(), kMostRows) * sizeHintForRow(0) + frame;
    const QRect screen = box_.screen()->availableGeometry();
    const int below = top.y() + lineHeight;
    const bool fitsBelow = below + height <= screen.bottom() + 1;
    const int x = std::max(screen.left(), std::min(top.x(), screen.right() + 1 - width));
    setGeometry(x, fitsBelow ? below : top.y() - height, width, height);
}

/// The box keeps its caret, for the keyboard is still its own.
bool CompletionPopup::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &box_) return QListView::eventFilter(watched, event);
    const bool isFocusLost = event->type() == QEvent::FocusOut && isVisible() && !isTaking_;
    return isFocusLost && static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason;
}

void CompletionPopup::keyPressEvent(QKeyEvent* event) {
    const bool hasModifiers = (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier;
    switch (event->key()) {
        case Qt::Key_Escape:
            close();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
            if (hasModifiers) break;
            return take();
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            if (hasModifiers) break;
            return QListView::keyPressEvent(event);
        case Qt::Key_Space:
            if (event->modifiers() == Qt::ControlModifier) return;
            break;
        default:
            break;
    }
    QApplication::sendEvent(&box_, event);
}

bool CompletionPopup::focusNextPrevChild(bool) {
    // Tab takes the row.
    return false;
}

void addCompletion(RichTextBox& box, PlaceInBox placeAt, OpenTexts openTexts) {
    auto* key = new QShortcut(Qt::CTRL | Qt::Key_Space, &box);
    key->setContext(Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, &box,
                     [&box, placeAt = std::move(placeAt), openTexts = std::move(openTexts)] {
                         CompletionPopup::open(box, placeAt, openTexts);
                     });
}

}  // namespace klt
