#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "text/TextArea.h"
#include "text/TrackedRanges.h"
#include "text/Unicode.h"

namespace klt {

/// A text area without a window: a text, with a style and a mark of protection for each byte, and the edits
/// to be undone.
class MemoryTextArea : public TextArea {
public:
    MemoryTextArea() = default;
    explicit MemoryTextArea(std::string_view text) { SetText(text); }

    std::function<void()> onChange = [] {};
    std::function<void()> onSelChange = [] {};

    std::string_view Text() const override { return text_; }
    Position Length() const override { return static_cast<Position>(text_.size()); }
    std::string_view Slice(Position start, Position end) const override {
        start = std::max<Position>(start, 0);
        end = std::min(end, Length());
        return start < end ? Text().substr(at(start), at(end - start)) : std::string_view();
    }
    Position SelStart() const override { return selection_.start; }
    Position SelLength() const override { return selection_.end - selection_.start; }
    void Select(Position start, Position length) override { moveTo(whole(start, length)); }
    void SetSelStyle(StyleByte style) override {
        fill(styles_, selection_, style);
        selStyle_ = style;
    }
    Position LineCount() const override { return GetLineFromChar(Length()) + 1; }
    Position GetLineFromChar(Position place) const override {
        const std::string_view before = Slice(0, place);
        return std::count(before.begin(), before.end(), '\n');
    }
    Position LineIndex(Position line) const override {
        if (line < 0 || line >= LineCount()) return kNotFound;
        size_t start = 0;
        for (; line > 0; --line) start = text_.find('\n', start) + 1;
        return static_cast<Position>(start);
    }
    Position LineLength(Position line) const override {
        const Position start = LineIndex(line);
        if (start == kNotFound) return 0;
        return static_cast<Position>(std::min(text_.find('\r', at(start)), text_.size())) - start;
    }
    Position FirstVisibleLine() const override { return firstVisibleLine_; }
    void ScrollToLine(Position line) override {
        firstVisibleLine_ = std::clamp<Position>(line, 0, LineCount() - 1);
    }
    void ScrollCaret() override { ScrollToLine(GetLineFromChar(selection_.end)); }
    StyleByte StyleAt(Position place) const override {
        return place >= 0 && place < Length() ? static_cast<StyleByte>(styles_[at(place)]) : 0;
    }
    void ColourRun(Position start, Position end, StyleByte style, bool protect = false) override {
        if (start >= end) return;
        const Position from = std::clamp<Position>(start, 0, Length());
        const TextRange range = whole(from, end - from);
        fill(styles_, range, style);
        fill(marks_, range, protect ? 1 : 0);
        if (protect && range.start < range.end) EmptyUndoBuffer();
    }
    void SetStyles(std::string_view styles, const std::vector<TextRange>& runs = {}) override {
        if (styles.size() != text_.size()) return;
        marks_.assign(styles.size(), '\0');
        for (const TextRange& run : runs) ColourRun(run.start, run.end, 0, true);
        styles_ = styles;
    }
    void RewriteRun(Position start, std::string_view text) override {
        if (start < 0 || start + static_cast<Position>(text.size()) > Length()) return;
        text_.replace(at(start), text.size(), text);
    }
    std::vector<TextRange> ProtectedRuns() const override {
        std::vector<TextRange> runs;
        for (Position place = 0; place < Length(); ++place) {
            if (!isProtected(place)) continue;
            if (!isProtected(place - 1)) runs.push_back({place, place});
            runs.back().end = place + 1;
        }
        return runs;
    }
    std::shared_ptr<const TrackedRange> Track(TextRange range) override { return tracked_.track(range); }
    bool CanUndo() const override { return !undo_.empty(); }
    bool CanRedo() const override { return !redo_.empty(); }
    void Undo() override { replay(undo_, redo_); }
    void Redo() override { replay(redo_, undo_); }
    void EmptyUndoBuffer() override {
        undo_.clear();
        redo_.clear();
    }
    bool isFrozen() const { return freezes_ > 0; }

protected:
    void replaceAll(std::string_view text) override {
        tracked_.textDeleted(0, Length());
        text_ = std::string(text);
        styles_.assign(text_.size(), '\0');
        marks_ = styles_;
        EmptyUndoBuffer();
        firstVisibleLine_ = 0;
        changed(0);
    }
    bool replaceWhole(std::string_view text) override {
        marks_.assign(text_.size(), '\0');
        selection_ = {0, Length()};
        selStyle_ = 0;
        replaceSelection(text, {});
        moveTo({0, 0});
        return true;
    }
    bool replaceSelection(std::string_view text, std::optional<std::string_view> styles) override {
        const auto [start, end] = selection_;
        if (text.empty() && start == end) return true;
        const auto marked = marks_.find('\1', at(start));
        if (marked < at(end) || (!text.empty() && marked == at(start))) return false;

        const std::string in(text), laid(styles.value_or(""));
        const auto style = selStyle_;
        if (groups_ == 0 || !groupHasStep_) undo_.emplace_back();
        groupHasStep_ = groups_ > 0;
        undo_.back().push_back(apply({start, text_.substr(at(start), at(end - start)), in, {}}));
        redo_.clear();
        const Position newEnd = start + static_cast<Position>(in.size());
        if (style) fill(styles_, {start, newEnd}, *style);
        styles_.replace(at(start), laid.size(), laid);
        changed(newEnd);
        return true;
    }
    void MaskNotifications(bool on) override { masks_ += on ? 1 : -1; }
    void Freeze(bool on) override { freezes_ += on ? 1 : -1; }
    void GroupUndo(bool on) override {
        groups_ += on ? 1 : -1;
        if (groups_ == 0 || (on && groups_ == 1)) groupHasStep_ = false;
    }

private:
    struct Edit {
        Position place;
        std::string out;
        std::string in;
        std::optional<std::string> styles;  // of `in`; else the style at its place
    };
    // Each edit takes one back, the last one first.
    using Step = std::vector<Edit>;

    static size_t at(Position place) { return static_cast<size_t>(place); }
    static void fill(std::string& bytes, TextRange range, StyleByte value) {
        std::fill(bytes.begin() + range.start, bytes.begin() + range.end, static_cast<char>(value));
    }
    bool isProtected(Position place) const {
        return place >= 0 && place < Length() && marks_[at(place)] != 0;
    }
    TextRange whole(Position start, Position length) const {
        start = std::clamp<Position>(start, 0, Length());
        const Position end = start + std::clamp<Position>(length, 0, Length() - start);
        const auto first = static_cast<Position>(unitStart(Text(), at(start)));
        return {first, start == end ? first : static_cast<Position>(unitEnd(Text(), at(end)))};
    }
    void moveTo(TextRange selection) {
        if (selection == selection_) return;
        selection_ = selection;
        selStyle_.reset();
        if (masks_ == 0) onSelChange();
    }
    /// Gives the edit that takes it back.
    Edit apply(const Edit& edit) {
        const Position before = edit.place - 1;
        const StyleByte style = isProtected(before) ? 0 : StyleAt(std::max<Position>(before, 0));
        tracked_.textDeleted(edit.place, static_cast<Position>(edit.out.size()));
        tracked_.textInserted(edit.place, static_cast<Position>(edit.in.size()));
        text_.replace(at(edit.place), edit.out.size(), edit.in);
        const std::string lost = styles_.substr(at(edit.place), edit.out.size());
        styles_.replace(at(edit.place), edit.out.size(),
                        edit.styles.value_or(std::string(edit.in.size(), static_cast<char>(style))));
        marks_.replace(at(edit.place), edit.out.size(), std::string(edit.in.size(), '\0'));
        return {edit.place, edit.in, edit.out, lost};
    }
    void replay(std::vector<Step>& from, std::vector<Step>& to) {
        if (from.empty()) return;
        Step step = std::move(from.back());
        from.pop_back();
        std::reverse(step.begin(), step.end());
        for (Edit& edit : step) edit = apply(edit);
        const Edit& last = step.back();
        const Position caret = last.place + static_cast<Position>(last.out.size());
        to.push_back(std::move(step));
        changed(caret);
    }
    void changed(Position caret) {
        if (masks_ == 0) onChange();
        Select(caret, 0);
    }

    std::string text_;
    std::string styles_;
    std::string marks_;  // 1 for each protected byte
    TrackedRanges tracked_;
    TextRange selection_;
    std::vector<Step> undo_;
    std::vector<Step> redo_;
    std::optional<StyleByte> selStyle_;
    Position firstVisibleLine_ = 0;
    int masks_ = 0;
    int freezes_ = 0;
    int groups_ = 0;
    bool groupHasStep_ = false;
};

}  // namespace klt
