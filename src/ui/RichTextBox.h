#pragma once

#include <Qsci/qsciscintillabase.h>

#include <QByteArray>
#include <QClipboard>
#include <QEvent>
#include <QString>
#include <QTimer>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "checker/ErrorReason.h"
#include "text/TextArea.h"
#include "text/TrackedRanges.h"
#include "ui/CharacterTally.h"
#include "ui/LostLooks.h"
#include "ui/Protection.h"
#include "ui/ReasonMarks.h"
#include "ui/TextBuffers.h"
#include "ui/TextFormats.h"

namespace klt {

class ErrorTip;

/// The text area of documents, preview boxes and wizard fields.
///
/// `Change` and `SelChange` come once for each edit and each move: for an operation by code before it
/// returns, for a key, a click or a drop when the widget is done with it. Handlers may edit.
///
/// What there is no memory for throws `std::bad_alloc` and leaves text, styles and undo as they were; a key,
/// a click or a drop is given up instead, and told of (`tryStep`).
class RichTextBox : public QsciScintillaBase, public TextArea {
    Q_OBJECT
    Q_PROPERTY(QByteArray Text READ textBytes WRITE setTextBytes NOTIFY Change)
    Q_PROPERTY(qlonglong SelStart READ SelStart WRITE setSelStartNumber NOTIFY SelChange)
    Q_PROPERTY(qlonglong SelLength READ SelLength WRITE setSelLengthNumber NOTIFY SelChange)
    Q_PROPERTY(QByteArray SelText READ selTextBytes WRITE setSelTextBytes NOTIFY SelChange)

public:
    /// A document takes Tab as text; a preview has many lines too, but Tab leaves it; a field has one line,
    /// and leaves Enter, Escape, Tab and the keys up and down to its window. Each can be zoomed (`TextZoom`).
    enum class Kind { Document, Preview, Field };

    /// The indicators that mark the parenthesis at the caret: with its partner in the logical line, and
    /// alone, where that has none. A partner that stands more than a megabyte away is not looked for.
    static constexpr Position kPairMark = INDIC_CONTAINER;
    static constexpr Position kLoneMark = INDIC_CONTAINER + 1;
    /// A hidden one, whose value is the reason of an error.
    static constexpr Position kReasonMark = INDIC_CONTAINER + 2;
    static constexpr Position kReasonWordMark = INDIC_CONTAINER + 3;

    explicit RichTextBox(Kind kind = Kind::Document, QWidget* parent = nullptr);
    Kind kind() const { return kind_; }

    std::string_view Text() const override;
    Position Length() const override;
    std::string_view Slice(Position start, Position end) const override;
    /// Copies the text to `target`, which has room for `Length` bytes. Does not move the text about.
    void CopyText(char* target) const;
    /// The length of the text in characters, CR LF being two. Does not move the text about.
    Position CharacterCount() const;

    Position SelStart() const override;
    Position SelLength() const override;
    void Select(Position start, Position length) override;
    void SetSelStyle(StyleByte style) override;

    Position LineCount() const override;
    Position GetLineFromChar(Position place) const override;
    Position LineIndex(Position line) const override;
    Position LineLength(Position line) const override;
    Position FirstVisibleLine() const override;
    void ScrollToLine(Position line) override;
    void ScrollCaret() override;

    StyleByte StyleAt(Position place) const override;
    void ColourRun(Position start, Position end, StyleByte style, bool protect = false) override;
    void SetStyles(std::string_view styles, const std::vector<TextRange>& runs = {}) override;
    void RewriteRun(Position start, std::string_view text) override;
    std::vector<TextRange> ProtectedRuns() const override { return protection_.all(); }

    std::shared_ptr<const TrackedRange> Track(TextRange range) override { return tracked_.track(range); }

    bool CanUndo() const override;
    bool CanRedo() const override;
    void Undo() override;
    void Redo() override;
    void EmptyUndoBuffer() override;

    /// The clipboard's operations on the selection, plain text only. Refused as a whole by protection.
    void Cut();
    void Copy();
    void Paste();
    /// Deletes the selection, or without one the character behind the caret, CR LF being one.
    void Delete();

    /// While it is locked every edit is refused, whoever asks; styles and rewrites are laid all the same.
    void setLocked(bool locked);

    /// One style for all of the text, and for what is typed into an empty one; protection is gone.
    void SetBaseStyle(StyleByte style);
    /// Lays a style on each of as many bytes from `start`; protection stays.
    void LayStyles(Position start, std::string_view styles);
    /// Protects these runs alone. With runs it empties the undo history.
    void SetProtectedRuns(const std::vector<TextRange>& runs);
    /// Keeps why text is in error, in place of what was kept of `checked`; it moves with the edits.
    void keepReasons(TextRange checked, const ErrorRuns& runs);
    /// Why the text at `place` is in error; empty where it is not.
    QString errorAt(Position place) const;
    /// Tells in a tip below a run in error why it is, until the next key. Nothing where it is not.
    void showErrorTip(TextRange run);
    /// The same with any text, below the caret.
    void showTipAtCaret(const char* text);
    /// The text where it stands, good until the next edit: a pass may put letters over those that differ in
    /// ASCII case alone, for that changes no line, length or style. `lettersChanged` then shows them.
    std::span<char> letters();
    void lettersChanged();
    /// The style of each byte of [start, end), clamped to the text.
    std::string Styles(Position start, Position end) const;
    std::string Styles() const { return Styles(0, Length()); }

    /// Takes one font for all styles; colours stay.
    void setTextFont(const TextFont& font);
    /// Takes the looks of all styles; the font stays.
    void setStyleFormats(const StyleFormats& formats);

    /// One line "START END STYLE" for each run that is not `Normal Text`, places in bytes.
    Q_INVOKABLE QString StyleRuns() const;

signals:
    /// A character is about to be typed over the selection. What handlers put in is one step of undo with it.
    void KeyPress(QChar character);
    /// The popup is wanted at this point of the screen: the right button was released there, or the keyboard
    /// asked for it, and the point is below the caret.
    void popupWanted(QPoint global);
    /// The text was edited.
    void Change();
    /// Caret or selection moved.
    void SelChange();

protected:
    void replaceAll(std::string_view text) override;
    bool replaceWhole(std::string_view text) override;
    bool replaceSelection(std::string_view text, std::optional<std::string_view> styles) override;
    void MaskNotifications(bool on) override;
    void Freeze(bool on) override;
    void GroupUndo(bool on) override;

    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    QByteArray fromMimeData(const QMimeData* source, bool& rectangular) const override;
    QMimeData* toMimeData(const QByteArray& text, bool rectangular) const override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    class Gate;
    class Operation;
    class Unrecorded;
    class UndoStep;
    enum class Running { Nothing, Event, Code };
    struct StyledRange {
        TextRange range;
        StyleByte style = 0;
    };
    struct PendingStyle {
        TextRange selection;
        StyleByte style = 0;
    };

    QByteArray textBytes() const;
    void setTextBytes(const QByteArray& text) { SetText({text.data(), static_cast<size_t>(text.size())}); }
    QByteArray selTextBytes() const;
    void setSelTextBytes(const QByteArray& text) {
        SetSelText({text.data(), static_cast<size_t>(text.size())});
    }
    void setSelStartNumber(qlonglong start) { SetSelStart(start); }
    void setSelLengthNumber(qlonglong length) { SetSelLength(length); }

    Position send(unsigned message, Position first = 0, Position second = 0) const;
    Position sendText(unsigned message, std::string_view text) const;

    void setUpText();
    void setUpKeys();
    void setUpMarks();
    void setUpLooks();
    void applyFormats();
    int fontSize() const;
    QColor paper() const;
    void colourSelection();
    void fitHeight();
    void paintFrame();
    void showFocus(QEvent::Type event);

    TextRange selection() const;
    TextRange snapped(Position start, Position length) const;

    TextBuffers::Size size() const { return {Length(), LineCount()}; }
    void makeRoom(const TextBuffers::Edit& edit);
    Position makeRoomForNew(std::string_view text);
    void makeRoomForHistory();

    /// `action` within a gate, as an undo step of its own where the caret was moved; nothing where protection
    /// refuses the range. What comes in, at its start, are `incoming` bytes with so many line ends.
    template <typename Action>
    bool edit(TextRange range, Position incoming, Position lines, Action action);
    void place(TextRange range, bool caretAtStart);
    std::string_view detached(std::string_view text, std::string& store) const;
    StyleByte styleForInsertion(Position place) const;
    void layStyle(TextRange range, StyleByte style);
    void styleInserted();
    void finishEdit();
    void protectionChanged(bool grown);
    /// Scintilla is to refuse what did not come through a gate.
    bool isClosed() const { return isLocked_ || !protection_.empty(); }

    template <typename Action>
    bool typeCharacter(const QString& text, Action action);
    void wantPopupAtCaret();
    void pressKey(QKeyEvent& event);
    bool handleEditingKey(const QKeyEvent& event);
    bool leavesToWindow(const QKeyEvent& event) const;
    void pasteFrom(QClipboard::Mode mode);
    void dropLink(QDropEvent& event, Position at);
    void deleteBack();
    void deleteWordBack();
    void deleteWordForward();
    void deleteExtended(unsigned extend);
    bool deleteRange(TextRange range);
    void newLine();
    void tab();
    Position placeAt(const QPointF& point) const;
    void markParentheses();
    void describeError();
    bool tellErrorAtMouse(QEvent& event);
    ErrorTip& tip();
    QRect lineFrom(Position place) const;
    void showTipBelow(Position shown, const QString& text);
    std::optional<TextRange> parenthesesAtCaret() const;

    void noteModification(int place, int kind, int length);
    void noteInterfaceUpdate(int what);
    void settle();

    const Kind kind_;
    Protection protection_;
    TrackedRanges tracked_;
    ReasonMarks reasons_{*this};
    LostLooks lost_{*this, reasons_};
    ErrorTip* tip_ = nullptr;
    TextBuffers buffers_;
    mutable CharacterTally tally_;
    TextFont font_;
    StyleFormats formats_;
    std::pair<QColor, QColor> selectionColours_;  // behind the text, and of it
    StyleByte baseStyle_ = 0;
    bool isLocked_ = false;
    bool isStyled_ = false;  // some byte may have another style than `Normal Text`

    Running running_ = Running::Nothing;
    int masks_ = 0;
    int freezes_ = 0;
    bool changed_ = false;    // a notification is due
    bool edited_ = false;     // the text was edited since it was last settled
    bool composing_ = false;  // an input method's unfinished text stands in ours
    bool isRefused_ = false;  // the last edit, by protection
    bool isRefusalTold_ = false;
    bool stepEnds_ = false;     // the next edit begins an undo step
    bool caretPlaced_ = false;  // by code, so that the keys up and down have to look where it stands
    bool areParenthesesMarked_ = false;
    TextRange lastSelection_;  // as last notified
    QTimer settlesLater_;
    std::optional<StyledRange> inserted_;  // what came in last, not laid yet
    std::optional<StyleByte> firstStyle_;  // of the first character, before it was deleted
    std::optional<PendingStyle> pendingStyle_;
    std::optional<UndoStep>* stepOfCharacter_ = nullptr;  // begun by an edit before the character is in
};

}  // namespace klt
