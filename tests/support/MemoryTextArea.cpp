#include "support/MemoryTextArea.h"

#include <algorithm>

#include "text/Unicode.h"

namespace klt {
namespace {

size_t at(Position place) {
    return static_cast<size_t>(place);
}

}  // namespace

std::string_view MemoryTextArea::Slice(Position start, Position end) const {
    start = std::max<Position>(start, 0);
    end = std::min(end, Length());
    return start < end ? Text().substr(at(start), at(end - start)) : std::string_view();
}

void MemoryTextArea::replaceAll(std::string_view text) {
    text_ = std::string(text);
    styles_.assign(text_.size(), '\0');
    marks_ = styles_;
    EmptyUndoBuffer();
    firstVisibleLine_ = 0;
    changed(0);
}

bool MemoryTextArea::replaceWhole(std::string_view text) {
    ColourRun(0, Length(), 0);
    selection_ = {0, Length()};
    replaceSelection(text, {});
    moveTo({0, 0});
    return true;
}

TextRange MemoryTextArea::whole(Position start, Position length) const {
    start = std::clamp<Position>(start, 0, Length());
    const Position end = start + std::clamp<Position>(length, 0, Length() - start);
    const auto first = static_cast<Position>(unitStart(Text(), at(start)));
    return {first, start == end ? first : static_cast<Position>(unitEnd(Text(), at(end)))};
}

void MemoryTextArea::moveTo(TextRange selection) {
    if (selection == selection_) return;
    selection_ = selection;
    selStyle_.reset();
    if (masks_ == 0) onSelChange();
}

void MemoryTextArea::Select(Position start, Position length) {
    moveTo(whole(start, length));
}

bool MemoryTextArea::isProtected(Position place) const {
    return place >= 0 && place < Length() && marks_[at(place)] != 0;
}

bool MemoryTextArea::replaceSelection(std::string_view text, std::optional<std::string_view> styles) {
    const auto [start, end] = selection_;
    const size_t length = at(end - start);
    if (text.empty() && length == 0) return true;
    for (Position place = start; place < end; ++place) {
        if (isProtected(place)) return false;
    }
    if (!text.empty() && isProtected(start)) return false;

    const Edit edit = {start, text_.substr(at(start), length), std::string(text)};
    const auto style = selStyle_;
    const std::string laid(styles.value_or(""));
    if (groups_ == 0 || !groupHasStep_) undo_.emplace_back();
    groupHasStep_ = groups_ > 0;
    undo_.back().push_back(edit);
    redo_.clear();
    apply(edit);
    if (style) std::fill_n(styles_.begin() + start, edit.in.size(), static_cast<char>(*style));
    if (styles) styles_.replace(at(start), laid.size(), laid);
    changed(start + static_cast<Position>(edit.in.size()));
    return true;
}

void MemoryTextArea::apply(const Edit& edit) {
    const Position before = edit.place - 1;
    const StyleByte style = isProtected(before) ? 0 : StyleAt(std::max<Position>(before, 0));
    text_.replace(at(edit.place), edit.out.size(), edit.in);
    styles_.replace(at(edit.place), edit.out.size(), std::string(edit.in.size(), static_cast<char>(style)));
    marks_.replace(at(edit.place), edit.out.size(), std::string(edit.in.size(), '\0'));
}

void MemoryTextArea::changed(Position caret) {
    if (masks_ == 0) onChange();
    Select(caret, 0);
}

void MemoryTextArea::SetSelStyle(StyleByte style) {
    std::fill_n(styles_.begin() + SelStart(), SelLength(), static_cast<char>(style));
    selStyle_ = style;
}

Position MemoryTextArea::LineCount() const {
    return GetLineFromChar(Length()) + 1;
}

Position MemoryTextArea::GetLineFromChar(Position place) const {
    const std::string_view before = Slice(0, place);
    return std::count(before.begin(), before.end(), '\n');
}

Position MemoryTextArea::LineIndex(Position line) const {
    if (line < 0) return kNotFound;
    size_t start = 0;
    for (; line > 0; --line) {
        start = text_.find('\n', start) + 1;
        if (start == 0) return kNotFound;
    }
    return static_cast<Position>(start);
}

Position MemoryTextArea::LineLength(Position line) const {
    const Position start = LineIndex(line);
    if (start == kNotFound) return 0;
    return static_cast<Position>(std::min(text_.find('\r', at(start)), text_.size())) - start;
}

void MemoryTextArea::ScrollToLine(Position line) {
    firstVisibleLine_ = std::clamp<Position>(line, 0, LineCount() - 1);
}

StyleByte MemoryTextArea::StyleAt(Position place) const {
    return place >= 0 && place < Length() ? static_cast<StyleByte>(styles_[at(place)]) : 0;
}

void MemoryTextArea::ColourRun(Position start, Position end, StyleByte style, bool protect) {
    if (start >= end) return;
    const Position from = std::clamp<Position>(start, 0, Length());
    const TextRange range = whole(from, end - from);
    std::fill(styles_.begin() + range.start, styles_.begin() + range.end, static_cast<char>(style));
    std::fill(marks_.begin() + range.start, marks_.begin() + range.end, protect ? '\1' : '\0');
    if (protect && range.start < range.end) EmptyUndoBuffer();
}

void MemoryTextArea::SetStyles(std::string_view styles, const std::vector<TextRange>& runs) {
    if (styles.size() != text_.size()) return;
    marks_.assign(styles.size(), '\0');
    for (const TextRange& run : runs) ColourRun(run.start, run.end, 0, true);
    styles_ = styles;
}

void MemoryTextArea::RewriteRun(Position start, std::string_view text) {
    if (start < 0 || start + static_cast<Position>(text.size()) > Length()) return;
    text_.replace(at(start), text.size(), text);
}

std::vector<TextRange> MemoryTextArea::ProtectedRuns() const {
    std::vector<TextRange> runs;
    for (Position place = 0; place < Length(); ++place) {
        if (!isProtected(place)) continue;
        if (!isProtected(place - 1)) runs.push_back({place, place});
        runs.back().end = place + 1;
    }
    return runs;
}

void MemoryTextArea::Undo() {
    if (undo_.empty()) return;
    redo_.push_back(std::move(undo_.back()));
    undo_.pop_back();
    const Step& step = redo_.back();
    std::for_each(step.rbegin(), step.rend(), [this](const Edit& edit) {
        apply({edit.place, edit.in, edit.out});
    });
    changed(step.front().place + static_cast<Position>(step.front().out.size()));
}

void MemoryTextArea::Redo() {
    if (redo_.empty()) return;
    undo_.push_back(std::move(redo_.back()));
    redo_.pop_back();
    const Step& step = undo_.back();
    std::for_each(step.begin(), step.end(), [this](const Edit& edit) { apply(edit); });
    changed(step.back().place + static_cast<Position>(step.back().in.size()));
}

void MemoryTextArea::EmptyUndoBuffer() {
    undo_.clear();
    redo_.clear();
}

void MemoryTextArea::GroupUndo(bool on) {
    groups_ += on ? 1 : -1;
    if (groups_ == 0 || (on && groups_ == 1)) groupHasStep_ = false;
}

}  // namespace klt
