#include "ui/RichTextBox.h"

#include <QStringList>
#include <algorithm>

#include "language/StyleCategory.h"
#include "text/Ascii.h"
#include "text/Unicode.h"
#include "ui/AccessOnDemand.h"
#include "ui/LargeBlocks.h"
#include "ui/RichTextBoxGuards.h"

namespace klt {
namespace {

// Without the events that carry text the library need not count characters at each edit.
constexpr Position kEventMask =
    QsciScintillaBase::SC_MOD_BEFOREINSERT | QsciScintillaBase::SC_MOD_BEFOREDELETE;

QByteArray bytesOf(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

RichTextBox::RichTextBox(Kind kind, QWidget* parent)
    : QsciScintillaBase(parent), kind_(kind), font_(kind == Kind::Field ? fieldFont() : documentFont()) {
    useLargeBlocks();
    useAccessibleTextOnDemand();
    setUpText();
    setUpKeys();
    setUpMarks();
    setUpLooks();
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int place, int kindOfChange, const char*, int length) {
                noteModification(place, kindOfChange, length);
            });
    // For what no operation of ours stands around: a message sent to Scintilla by others, an assistive tool.
    settlesLater_.setSingleShot(true);
    connect(&settlesLater_, &QTimer::timeout, this, [this] {
        if (running_ != Running::Code) tryStep([this] { settle(); });
    });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, &RichTextBox::noteInterfaceUpdate);
}

void RichTextBox::setUpText() {
    send(SCI_SETMODEVENTMASK, kEventMask);
    send(SCI_SETCODEPAGE, SC_CP_UTF8);
    send(SCI_SETEOLMODE, SC_EOL_CRLF);
    send(SCI_SETMULTIPLESELECTION, 0);
    send(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    send(SCI_USEPOPUP, 0);
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_SETSCROLLWIDTHTRACKING, 1);
    for (Position margin = 0; margin < send(SCI_GETMARGINS); ++margin) send(SCI_SETMARGINWIDTHN, margin, 0);
    if (kind_ != Kind::Field) return;
    send(SCI_SETHSCROLLBAR, 0);
    send(SCI_SETVSCROLLBAR, 0);
}

Position RichTextBox::send(unsigned message, Position first, Position second) const {
    return SendScintilla(message, static_cast<unsigned long>(first), static_cast<long>(second));
}

Position RichTextBox::sendText(unsigned message, std::string_view text) const {
    return SendScintilla(message, static_cast<unsigned long>(text.size()), text.data());
}

std::string_view RichTextBox::Text() const {
    return {static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER)),
            static_cast<size_t>(Length())};
}

Position RichTextBox::Length() const {
    return send(SCI_GETLENGTH);
}

std::string_view RichTextBox::Slice(Position start, Position end) const {
    start = std::max<Position>(start, 0);
    end = std::min(end, Length());
    if (start >= end) return {};
    const Position address = send(SCI_GETRANGEPOINTER, start, end - start);
    // Scintilla's messages return pointers as integers.
    return {reinterpret_cast<const char*>(address),  // NOLINT(performance-no-int-to-ptr)
            static_cast<size_t>(end - start)};
}

void RichTextBox::CopyText(char* target) const {
    const Position gap = send(SCI_GETGAPPOSITION);
    for (const auto part : {Slice(0, gap), Slice(gap, Length())}) target += part.copy(target, part.size());
}

Position RichTextBox::CharacterCount() const {
    // In two parts where it has to be counted, so that the text's gap stays where it is.
    return tally_.count(*this, send(SCI_GETGAPPOSITION));
}

Position RichTextBox::SelStart() const {
    return send(SCI_GETSELECTIONSTART);
}

Position RichTextBox::SelLength() const {
    return send(SCI_GETSELECTIONEND) - SelStart();
}

TextRange RichTextBox::selection() const {
    return {SelStart(), send(SCI_GETSELECTIONEND)};
}

TextRange RichTextBox::snapped(Position start, Position length) const {
    const Position size = Length();
    start = std::clamp<Position>(start, 0, size);
    const Position end = start + std::clamp<Position>(length, 0, size - start);
    // No character is longer than this, so nothing further away matters.
    constexpr Position kReach = 4;
    const auto moved = [&](Position at, auto boundary) {
        const Position from = std::max<Position>(at - kReach, 0);
        return from +
               static_cast<Position>(boundary(Slice(from, at + kReach), static_cast<size_t>(at - from)));
    };
    const Position newStart = moved(start, unitStart);
    return {newStart, start == end ? newStart : moved(end, unitEnd)};
}

void RichTextBox::place(TextRange range, bool caretAtStart) {
    const auto [anchor, caret] = caretAtStart ? TextRange{range.end, range.start} : range;
    send(SCI_SETSELECTION, caret, anchor);
    caretPlaced_ = true;
    if (kind_ == Kind::Field) send(SCI_SCROLLCARET);
}

void RichTextBox::Select(Position start, Position length) {
    const Operation operation(*this, Running::Code);
    place(snapped(start, length), false);
}

void RichTextBox::SetSelStyle(StyleByte style) {
    const TextRange range = selection();
    layStyle(range, style);
    pendingStyle_ = {range, style};
}

Position RichTextBox::LineCount() const {
    return send(SCI_GETLINECOUNT);
}

Position RichTextBox::GetLineFromChar(Position place) const {
    return send(SCI_LINEFROMPOSITION, std::clamp<Position>(place, 0, Length()));
}

Position RichTextBox::LineIndex(Position line) const {
    return line < 0 || line >= LineCount() ? kNotFound : send(SCI_POSITIONFROMLINE, line);
}

Position RichTextBox::LineLength(Position line) const {
    const Position start = LineIndex(line);
    return start == kNotFound ? 0 : send(SCI_GETLINEENDPOSITION, line) - start;
}

Position RichTextBox::FirstVisibleLine() const {
    return send(SCI_GETFIRSTVISIBLELINE);
}

void RichTextBox::ScrollToLine(Position line) {
    send(SCI_SETFIRSTVISIBLELINE, std::clamp<Position>(line, 0, LineCount() - 1));
}

void RichTextBox::ScrollCaret() {
    send(SCI_SCROLLCARET);
}

StyleByte RichTextBox::StyleAt(Position place) const {
    return static_cast<StyleByte>(send(SCI_GETSTYLEAT, place));
}

std::string RichTextBox::Styles(Position start, Position end) const {
    constexpr Position kBlock = 65536;
    start = std::max<Position>(start, 0);
    end = std::min(end, Length());
    std::string styles;
    if (start >= end) return styles;
    styles.reserve(static_cast<size_t>(end - start));
    // Each byte stands in front of its style, two NULs behind them all.
    std::string cells(static_cast<size_t>(2 * std::min(kBlock, end - start) + 2), '\0');
    for (; start < end; start += kBlock) {
        const Position length = std::min(kBlock, end - start);
        SendScintilla(SCI_GETSTYLEDTEXT, start, start + length, cells.data());
        for (Position at = 0; at < length; ++at) styles += cells[static_cast<size_t>(2 * at + 1)];
    }
    return styles;
}

void RichTextBox::SetBaseStyle(StyleByte style) {
    baseStyle_ = style;
    protection_.clear();
    protectionChanged(false);
    reasons_.forget({0, Length()});
    if (isStyled_ || style != 0) layStyle({0, Length()}, style);
    isStyled_ = style != 0;
}

void RichTextBox::layStyle(TextRange range, StyleByte style) {
    if (range.start >= range.end) return;
    isStyled_ = isStyled_ || style != 0;
    send(SCI_STARTSTYLING, range.start);
    send(SCI_SETSTYLING, range.end - range.start, style);
}

void RichTextBox::ColourRun(Position start, Position end, StyleByte style, bool protect) {
    if (start >= end) return;
    start = std::clamp<Position>(start, 0, Length());
    const TextRange range = snapped(start, end - start);
    if (range.start == range.end) return;
    layStyle(range, style);
    if (protect) {
        protection_.protect(range);
    } else {
        protection_.unprotect(range);
    }
    protectionChanged(protect);
}

void RichTextBox::SetStyles(std::string_view styles, const std::vector<TextRange>& runs) {
    if (static_cast<Position>(styles.size()) != Length()) return;
    LayStyles(0, styles);
    SetProtectedRuns(runs);
}

void RichTextBox::SetProtectedRuns(const std::vector<TextRange>& runs) {
    protection_.clear();
    for (const TextRange& run : runs) {
        if (run.start < run.end) protection_.protect(snapped(run.start, run.end - run.start));
    }
    protectionChanged(!runs.empty());
}

void RichTextBox::setLocked(bool locked) {
    isLocked_ = locked;
    protectionChanged(false);
}

void RichTextBox::LayStyles(Position start, std::string_view styles) {
    isStyled_ = true;
    send(SCI_STARTSTYLING, start);
    sendText(SCI_SETSTYLINGEX, styles);
}

void RichTextBox::protectionChanged(bool grown) {
    send(SCI_SETREADONLY, isClosed() ? 1 : 0);
    if (grown) EmptyUndoBuffer();
}

void RichTextBox::RewriteRun(Position start, std::string_view text) {
    const Position end = start + static_cast<Position>(text.size());
    if (start < 0 || end > Length() || Slice(start, end) == text) return;
    if (equalIgnoringAsciiCase(Slice(start, end), text)) {
        text.copy(letters().data() + start, text.size());
        return lettersChanged();
    }
    makeRoom({end - start, end - start, LineCount()});
    std::string styles(text.size(), '\0');
    for (size_t at = 0; at < styles.size(); ++at) {
        styles[at] = static_cast<char>(StyleAt(start + static_cast<Position>(at)));
    }
    const Position anchor = send(SCI_GETANCHOR);
    const Position caret = send(SCI_GETCURRENTPOS);
    const Unrecorded unrecorded(*this);
    send(SCI_SETTARGETRANGE, start, end);
    sendText(SCI_REPLACETARGET, text);
    LayStyles(start, styles);
    tally_.forget();
    buffers_.grow(0);
    if (send(SCI_GETANCHOR) != anchor) send(SCI_SETANCHOR, anchor);
    if (send(SCI_GETCURRENTPOS) != caret) send(SCI_SETCURRENTPOS, caret);
}

std::span<char> RichTextBox::letters() {
    const std::string_view own = Text();
    // Scintilla's own replacement costs more than a microsecond a word, which would be most of a pass's time
    // over a file written by hand. Its buffer is its own to write, only the pointer that it gives out is not.
    return {const_cast<char*>(own.data()), own.size()};
}

/// What has been laid out would still show the old letters.
void RichTextBox::lettersChanged() {
    send(SCI_SETTABWIDTH, send(SCI_GETTABWIDTH));
}

QString RichTextBox::StyleRuns() const {
    QStringList lines;
    const std::string styles = Styles();
    for (size_t start = 0, end = 0; start < styles.size(); start = end) {
        end = std::min(styles.find_first_not_of(styles[start], start), styles.size());
        const auto style = static_cast<StyleByte>(styles[start]);
        if (style == 0 || style >= kStyleCategoryNames.size()) continue;
        const std::string_view name = kStyleCategoryNames[style];
        lines << QStringLiteral("%1 %2 %3")
                     .arg(start)
                     .arg(end)
                     .arg(QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())));
    }
    return lines.join(QLatin1Char('\n'));
}

QByteArray RichTextBox::textBytes() const {
    return bytesOf(Text());
}

QByteArray RichTextBox::selTextBytes() const {
    return bytesOf(Slice(SelStart(), SelStart() + SelLength()));
}

}  // namespace klt
