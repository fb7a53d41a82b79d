// What the keys do. Scintilla's own chords are all taken away: many edit in ways that nobody expects here.

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <algorithm>
#include <array>

#include "ui/RichTextBox.h"
#include "ui/RichTextBoxGuards.h"

namespace klt {
namespace {

constexpr int kShift = QsciScintillaBase::SCMOD_SHIFT;
constexpr int kCtrl = QsciScintillaBase::SCMOD_CTRL;
// What is protected is the version line.
constexpr const char* kProtected = "The version line can't be changed";
// In UTF-8.
constexpr Position kBytesOfUnit = 3;
// A character with what handlers put in around it.
constexpr Position kMostOfCharacter = 64;
constexpr Qt::KeyboardModifiers kChordModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

struct Movement {
    int key;
    int modifiers;
    int message;
    int extending;  // the same with Shift
};

using Base = QsciScintillaBase;
constexpr std::array kMovements = {
    Movement{Base::SCK_LEFT, 0, Base::SCI_CHARLEFT, Base::SCI_CHARLEFTEXTEND},
    Movement{Base::SCK_RIGHT, 0, Base::SCI_CHARRIGHT, Base::SCI_CHARRIGHTEXTEND},
    Movement{Base::SCK_LEFT, kCtrl, Base::SCI_WORDLEFT, Base::SCI_WORDLEFTEXTEND},
    Movement{Base::SCK_RIGHT, kCtrl, Base::SCI_WORDRIGHT, Base::SCI_WORDRIGHTEXTEND},
    Movement{Base::SCK_HOME, 0, Base::SCI_HOME, Base::SCI_HOMEEXTEND},
    Movement{Base::SCK_END, 0, Base::SCI_LINEEND, Base::SCI_LINEENDEXTEND},
    Movement{Base::SCK_HOME, kCtrl, Base::SCI_DOCUMENTSTART, Base::SCI_DOCUMENTSTARTEXTEND},
    Movement{Base::SCK_END, kCtrl, Base::SCI_DOCUMENTEND, Base::SCI_DOCUMENTENDEXTEND},
};
constexpr std::array kMovementsAmongLines = {
    Movement{Base::SCK_UP, 0, Base::SCI_LINEUP, Base::SCI_LINEUPEXTEND},
    Movement{Base::SCK_DOWN, 0, Base::SCI_LINEDOWN, Base::SCI_LINEDOWNEXTEND},
    Movement{Base::SCK_PRIOR, 0, Base::SCI_PAGEUP, Base::SCI_PAGEUPEXTEND},
    Movement{Base::SCK_NEXT, 0, Base::SCI_PAGEDOWN, Base::SCI_PAGEDOWNEXTEND},
};

struct Chord {
    int key;
    int message;
};

constexpr std::array kChords = {
    Chord{'A', Base::SCI_SELECTALL},
    Chord{'C', Base::SCI_COPY},
    Chord{Base::SCK_INSERT, Base::SCI_COPY},
};
constexpr std::array kChordsAmongLines = {
    Chord{Base::SCK_UP, Base::SCI_LINESCROLLUP},
    Chord{Base::SCK_DOWN, Base::SCI_LINESCROLLDOWN},
};
constexpr std::array kZoomChords = {
    Chord{'+', Base::SCI_ZOOMIN},
    Chord{'=', Base::SCI_ZOOMIN},
    Chord{Base::SCK_ADD, Base::SCI_ZOOMIN},
    Chord{'-', Base::SCI_ZOOMOUT},
    Chord{Base::SCK_SUBTRACT, Base::SCI_ZOOMOUT},
    Chord{'0', Base::SCI_SETZOOM},
};

}  // namespace

void RichTextBox::setUpKeys() {
    const auto assign = [this](int key, int modifiers, int message) {
        send(SCI_ASSIGNCMDKEY, key | (modifiers << 16), message);
    };
    const auto assignMovement = [&](const Movement& row) {
        assign(row.key, row.modifiers, row.message);
        assign(row.key, row.modifiers | kShift, row.extending);
    };
    const auto assignChord = [&](const Chord& row) { assign(row.key, kCtrl, row.message); };

    send(SCI_CLEARALLCMDKEYS);
    std::for_each(kMovements.begin(), kMovements.end(), assignMovement);
    std::for_each(kChords.begin(), kChords.end(), assignChord);
    for (const Chord& row : kZoomChords) {
        assignChord(row);
        // Where "+" or a digit is typed with Shift.
        assign(row.key, kCtrl | kShift, row.message);
    }
    if (kind_ == Kind::Field) return;
    std::for_each(kMovementsAmongLines.begin(), kMovementsAmongLines.end(), assignMovement);
    std::for_each(kChordsAmongLines.begin(), kChordsAmongLines.end(), assignChord);
}

bool RichTextBox::handleEditingKey(const QKeyEvent& event) {
    struct Row {
        int key;
        Qt::KeyboardModifiers modifiers;
        void (RichTextBox::*action)();
    };
    constexpr auto kControl = Qt::ControlModifier;
    constexpr auto kControlShift = Qt::ControlModifier | Qt::ShiftModifier;
    static constexpr std::array kRows = {
        Row{Qt::Key_Backspace, Qt::NoModifier, &RichTextBox::deleteBack},
        Row{Qt::Key_Backspace, Qt::ShiftModifier, &RichTextBox::deleteBack},
        Row{Qt::Key_Backspace, kControl, &RichTextBox::deleteWordBack},
        Row{Qt::Key_Delete, Qt::NoModifier, &RichTextBox::Delete},
        Row{Qt::Key_Delete, kControl, &RichTextBox::deleteWordForward},
        Row{Qt::Key_Delete, Qt::ShiftModifier, &RichTextBox::Cut},
        Row{Qt::Key_Insert, Qt::ShiftModifier, &RichTextBox::Paste},
        Row{Qt::Key_X, kControl, &RichTextBox::Cut},
        Row{Qt::Key_V, kControl, &RichTextBox::Paste},
        Row{Qt::Key_Z, kControl, &RichTextBox::Undo},
        Row{Qt::Key_Z, kControlShift, &RichTextBox::Redo},
        Row{Qt::Key_Y, kControl, &RichTextBox::Redo},
        Row{Qt::Key_Return, Qt::NoModifier, &RichTextBox::newLine},
        Row{Qt::Key_Return, Qt::ShiftModifier, &RichTextBox::newLine},
        Row{Qt::Key_Enter, Qt::NoModifier, &RichTextBox::newLine},
        Row{Qt::Key_Tab, Qt::NoModifier, &RichTextBox::tab},
    };
    const auto modifiers = event.modifiers() & (kChordModifiers | Qt::ShiftModifier);
    const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& candidate) {
        return candidate.key == event.key() && candidate.modifiers == modifiers;
    });
    if (row == kRows.end()) return false;
    (this->*row->action)();
    return true;
}

bool RichTextBox::leavesToWindow(const QKeyEvent& event) const {
    constexpr std::array kOfWindow = {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab};
    constexpr std::array kOfFormToo = {Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Up,
                                       Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_PageDown};
    const auto holds = [&](const auto& keys) {
        return std::find(keys.begin(), keys.end(), event.key()) != keys.end();
    };
    if (kind_ == Kind::Document && event.key() == Qt::Key_Tab) return false;
    return holds(kOfWindow) || (kind_ == Kind::Field && holds(kOfFormToo));
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
    if (leavesToWindow(*event)) {
        event->ignore();
        return;
    }
    // The menu key makes an event of its own; this chord makes none on every desktop.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) return wantPopupAtCaret();
    isRefused_ = false;
    pressKey(*event);
    if (isRefused_ && !std::exchange(isRefusalTold_, true)) showTipAtCaret(kProtected);
}

void RichTextBox::pressKey(QKeyEvent& event) {
    const Operation operation(*this, Running::Event);
    if (std::exchange(caretPlaced_, false)) send(SCI_CHOOSECARETX);
    if (handleEditingKey(event)) {
        event.accept();
    } else if ((event.modifiers() & kChordModifiers) != 0) {
        // Without its text, which the base would put in for a chord that does nothing.
        QKeyEvent bare(event.type(), event.key(), event.modifiers());
        QsciScintillaBase::keyPressEvent(&bare);
        event.setAccepted(bare.isAccepted());
    } else if (event.text().isEmpty()) {
        QsciScintillaBase::keyPressEvent(&event);
        isRefusalTold_ = false;
    } else {
        typeCharacter(event.text(), [&] { QsciScintillaBase::keyPressEvent(&event); });
        event.accept();
    }
}

template <typename Action>
bool RichTextBox::typeCharacter(const QString& text, Action action) {
    // For it and what handlers put around it.
    if (!isLocked_) makeRoom({SelLength(), kMostOfCharacter, 0});
    std::optional<UndoStep> step;
    {
        const QScopedValueRollback joined(stepOfCharacter_, &step);
        emit KeyPress(text.front());
    }
    return edit(selection(), kBytesOfUnit * text.size(), 0, action);
}

void RichTextBox::inputMethodEvent(QInputMethodEvent* event) {
    const Operation operation(*this, Running::Event);
    const bool wasComposing = std::exchange(composing_, !event->preeditString().isEmpty());
    const auto take = [&] { QsciScintillaBase::inputMethodEvent(event); };
    const bool types = !wasComposing && !composing_ && event->commitString().size() == 1;
    const Position most = kBytesOfUnit * (event->preeditString().size() + event->commitString().size()) + 1;
    if (types ? typeCharacter(event->commitString(), take) : edit(selection(), most, 0, take)) return;
    composing_ = false;
    QGuiApplication::inputMethod()->reset();
    event->accept();
}

bool RichTextBox::focusNextPrevChild(bool next) {
    // The base class would keep Tab for itself.
    return kind_ != Kind::Document &&
           QAbstractScrollArea::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
}

void RichTextBox::Cut() {
    const Operation operation(*this, Running::Code);
    if (SelLength() == 0) return;
    edit(selection(), 0, 0, [&] {
        send(SCI_COPY);
        // The clipboard's copy has taken memory.
        makeRoom({SelLength(), 0, 0});
        send(SCI_CLEAR);
    });
}

void RichTextBox::Copy() {
    send(SCI_COPY);
}

void RichTextBox::Paste() {
    pasteFrom(QClipboard::Clipboard);
}

/// Scintilla's own paste would end at a NUL.
void RichTextBox::pasteFrom(QClipboard::Mode mode) {
    const QMimeData* const source = QGuiApplication::clipboard()->mimeData(mode);
    if (source == nullptr || !source->hasText()) return;
    const Operation operation(*this, Running::Code);
    bool isRectangular = false;
    const QByteArray text = fromMimeData(source, isRectangular);
    if (!text.isEmpty() && SetSelText({text.data(), static_cast<size_t>(text.size())})) ScrollCaret();
}

void RichTextBox::deleteBack() {
    TextRange range = selection();
    if (range.start == range.end) range.start = send(SCI_POSITIONBEFORE, range.start);
    deleteRange(range);
}

void RichTextBox::Delete() {
    TextRange range = selection();
    if (range.start == range.end) range.end = send(SCI_POSITIONAFTER, range.end);
    deleteRange(range);
}

/// Unlike the base's own deletion this one never takes more than was looked at.
bool RichTextBox::deleteRange(TextRange range) {
    return edit(range, 0, 0, [&] {
        send(SCI_DELETERANGE, range.start, range.end - range.start);
        caretPlaced_ = true;
        ScrollCaret();
    });
}

void RichTextBox::deleteWordBack() {
    deleteExtended(SCI_WORDLEFTEXTEND);
}

void RichTextBox::deleteWordForward() {
    deleteExtended(SCI_WORDRIGHTEXTEND);
}

void RichTextBox::deleteExtended(unsigned extend) {
    const TextRange before = selection();
    if (before.start == before.end) send(extend);
    if (!deleteRange(selection())) place(before, false);
}

void RichTextBox::newLine() {
    if (edit(selection(), 2, 1, [&] { send(SCI_NEWLINE); })) stepEnds_ = true;
}

void RichTextBox::tab() {
    edit(selection(), 1, 0, [&] {
        // What is typed on goes into the same step of undo, unless the tab replaces something.
        if (SelLength() == 0) {
            sendText(SCI_ADDTEXT, "\t");
        } else {
            SendScintilla(SCI_REPLACESEL, "\t");
        }
        ScrollCaret();
    });
}

}  // namespace klt
