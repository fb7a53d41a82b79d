#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "text/TextArea.h"

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
    std::string_view Slice(Position start, Position end) const override;
    Position SelStart() const override { return selection_.start; }
    Position SelLength() const override { return selection_.end - selection_.start; }
    void Select(Position start, Position length) override;
    void SetSelStyle(StyleByte style) override;
    Position LineCount() const override;
    Position GetLineFromChar(Position place) const override;
    Position LineIndex(Position line) const override;
    Position LineLength(Position line) const override;
    Position FirstVisibleLine() const override { return firstVisibleLine_; }
    void ScrollToLine(Position line) override;
    void ScrollCaret() override { ScrollToLine(GetLineFromChar(selection_.end)); }
    StyleByte StyleAt(Position place) const override;
    void ColourRun(Position start, Position end, StyleByte style, bool protect = false) override;
    void SetStyles(std::string_view styles, const std::vector<TextRange>& runs = {}) override;
    void RewriteRun(Position start, std::string_view text) override;
    std::vector<TextRange> ProtectedRuns() const override;
    bool CanUndo() const override { return !undo_.empty(); }
    bool CanRedo() const override { return !redo_.empty(); }
    void Undo() override;
    void Redo() override;
    void EmptyUndoBuffer() override;
    bool isFrozen() const { return freezes_ > 0; }

protected:
    void replaceAll(std::string_view text) override;
    bool replaceWhole(std::string_view text) override;
    bool replaceSelection(std::string_view text, std::optional<std::string_view> styles) override;
    void MaskNotifications(bool on) override { masks_ += on ? 1 : -1; }
    void Freeze(bool on) override { freezes_ += on ? 1 : -1; }
    void GroupUndo(bool on) override;

private:
    struct Edit {
        Position place;
        std::string out;
        std::string in;
    };
    using Step = std::vector<Edit>;

    bool isProtected(Position place) const;
    TextRange whole(Position start, Position length) const;
    void moveTo(TextRange selection);
    void apply(const Edit& edit);
    void changed(Position caret);

    std::string text_;
    std::string styles_;
    std::string marks_;  // 1 for each protected byte
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
