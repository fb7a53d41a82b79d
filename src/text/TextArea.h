#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace klt {

/// A position in a text: bytes from 0, CR LF counted as two. None lies inside CR LF or inside a character.
using Position = std::ptrdiff_t;
inline constexpr Position kNotFound = -1;

/// The number of a style category, `Normal Text` being 0.
using StyleByte = unsigned char;

struct FindOptions {
    bool wholeWord = false;
    bool matchCase = false;
};

/// A half-open stretch of a text, in bytes.
struct TextRange {
    Position start = 0;
    Position end = 0;
    bool operator==(const TextRange&) const = default;
};

/// A stretch of a text that stays with its bytes while the text is edited.
struct TrackedRange {
    TextRange range;
    /// Whether an edit came into it or reached over one of its ends.
    bool isTouched = false;
};

/// The caret operations in which much of the logic is told. Text is UTF-8 with CR LF line ends; positions are
/// clamped to the text, and one inside CR LF or a character moves: a caret or a selection's start back in
/// front of it, a selection's end on behind it.
///
/// Protected runs: an edit through `SelText` that would change a protected byte, or put text right in front
/// of a run's first one, is refused as a whole. `Text`, styles and rewrites are not bound by protection.
///
/// Each edit, and each change of the selection, raises one notification, before the outermost operation
/// returns. Styles and rewrites raise none.
class TextArea {
public:
    virtual ~TextArea() = default;

    /// The whole text, without a copy; good until the next change.
    virtual std::string_view Text() const = 0;
    /// The length of the text in bytes.
    virtual Position Length() const = 0;
    /// The bytes of [start, end), clamped to the text, without a copy; good until the next call. Cheaper than
    /// `Text` between edits.
    virtual std::string_view Slice(Position start, Position end) const = 0;
    /// Sets the whole text in `Normal Text`, lone CR and LF made CR LF; caret to 0, protection gone, undo
    /// emptied.
    void SetText(std::string_view text);
    /// The same as one edit: a step to undo that brings the old text back, unprotected. False, with nothing
    /// changed, where the area takes no edit.
    bool ReplaceText(std::string_view text);

    virtual Position SelStart() const = 0;
    virtual Position SelLength() const = 0;
    /// Selects `length` bytes from `start`, the caret at the end of them. A negative length counts as 0.
    virtual void Select(Position start, Position length) = 0;
    /// Moves the caret to `start`; the selection is then empty.
    void SetSelStart(Position start) { Select(start, 0); }
    void SetSelLength(Position length) { Select(SelStart(), length); }

    std::string SelText() const;
    /// Replaces the selection and leaves the caret behind the new text, which takes the style at the caret
    /// (or that of `SetSelStyle`), lone CR and LF made CR LF. False, with nothing changed, where protection
    /// refuses it.
    bool SetSelText(std::string_view text);
    /// The same with a style for each byte of `text`; `styles` must be as long as `text`, else it is refused.
    bool SetSelTextStyled(std::string_view text, std::string_view styles);
    /// The style of what is written next, until caret or selection moves; a selection takes it at once.
    /// Without it, that is the style of the character in front of the caret (at 0, of the first one), but
    /// `Normal Text` right behind a protected run.
    virtual void SetSelStyle(StyleByte style) = 0;

    /// Finds `text` wholly within [start, end) (`end` -1: the end of the text), selects it and returns its
    /// position; kNotFound leaves selection and caret as they were. An empty `text` is never found. Case is
    /// ignored, beyond ASCII too, unless `options` say otherwise.
    Position Find(std::string_view text, Position start, Position end = -1, FindOptions options = {});
    /// Moves the caret until the next character in that direction is one of `set` (ASCII), else to the end of
    /// the text in that direction. Starts at the selection's end, or at its start when backward.
    void UpTo(std::string_view set, bool forward = true);
    /// Extends the selection in that direction over characters of `set`, or not of `set` with `negate`.
    void Span(std::string_view set, bool forward = true, bool negate = false);

    virtual Position LineCount() const = 0;
    /// The line of a position, from 0.
    virtual Position GetLineFromChar(Position position) const = 0;
    /// The position of a line's first character; kNotFound for a line that does not exist.
    virtual Position LineIndex(Position line) const = 0;
    /// A line's length without its line end; 0 for a line that does not exist.
    virtual Position LineLength(Position line) const = 0;
    virtual Position FirstVisibleLine() const = 0;
    /// Makes `line` the top visible line, as far as the text's length lets it.
    virtual void ScrollToLine(Position line) = 0;
    virtual void ScrollCaret() = 0;

    virtual StyleByte StyleAt(Position position) const = 0;
    /// Lays a style on [start, end), and with `protect` protection (without, takes it away). Nothing happens
    /// unless start is less than end. Protecting empties the undo history, which knows no protection.
    virtual void ColourRun(Position start, Position end, StyleByte style, bool protect = false) = 0;
    /// Lays a style on each byte of the text, and protection on `runs` alone. `styles` must be as long as the
    /// text, else nothing happens. With `runs` it empties the undo history.
    virtual void SetStyles(std::string_view styles, const std::vector<TextRange>& runs = {}) = 0;
    /// Replaces the bytes from `start` by `text`, as many, keeping styles, selection and undo history as they
    /// are, and raises no notification. Nothing happens where they would reach behind the text's end.
    virtual void RewriteRun(Position start, std::string_view text) = 0;
    /// The protected runs in ascending order; those that touch are one.
    virtual std::vector<TextRange> ProtectedRuns() const = 0;

    /// From now on the stretch moves with the edits of the text, as long as the result lives. What comes in
    /// at its start stands in front of it, what comes in at its end behind.
    virtual std::shared_ptr<const TrackedRange> Track(TextRange range) = 0;

    /// Text that undo or redo brings back has the styles that it had when it went.
    virtual bool CanUndo() const = 0;
    virtual bool CanRedo() const = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    virtual void EmptyUndoBuffer() = 0;

protected:
    // What the setters above stand on; `text` has CR LF alone, `styles` is as long.
    virtual void replaceAll(std::string_view text) = 0;
    virtual bool replaceWhole(std::string_view text) = 0;
    virtual bool replaceSelection(std::string_view text, std::optional<std::string_view> styles) = 0;

    // Raised and lowered by the guards of TextAreaGuards.h alone; each nests.
    friend class NotificationMask;
    friend class RedrawFreeze;
    friend class UndoGroup;
    virtual void MaskNotifications(bool on) = 0;
    virtual void Freeze(bool on) = 0;
    virtual void GroupUndo(bool on) = 0;
};

}  // namespace klt
