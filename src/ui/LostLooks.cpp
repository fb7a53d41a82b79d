#include "ui/LostLooks.h"

#include <utility>

#include "platform/MemoryRoom.h"
#include "ui/PackedStyles.h"
#include "ui/RichTextBox.h"

namespace klt {

void LostLooks::textDeleted(TextRange range, bool isStyled, Road road) {
    Looks lost;
    const bool isKept = fitsMemory([&] {
        if (isStyled) lost.styles = packedStyles(box_, range);
        lost.reasons = reasons_.lostBy(range);
    });
    take(isKept ? std::move(lost) : Looks(), {range.start, range.start}, road);
}

void LostLooks::textInserted(TextRange range, Road road) {
    Looks lost;
    fitsMemory([&] { lost.reasons = reasons_.lostBy({range.start, range.start}); });
    take(std::move(lost), range, road);
}

void LostLooks::take(Looks lost, TextRange incoming, Road road) {
    if (road == Road::Edit) {
        undone_.clear();
        push(done_, actions_++, std::move(lost));
    } else if (road == Road::Undo) {
        if (actions_ == 0) return;
        due_ = Return{incoming, pop(done_, --actions_)};
        push(undone_, actions_, std::move(lost));
    } else {
        due_ = Return{incoming, pop(undone_, actions_)};
        push(done_, actions_++, std::move(lost));
    }
}

void LostLooks::push(Stack& stack, size_t action, Looks looks) {
    if (!looks.empty()) fitsMemory([&] { stack.push_back({action, std::move(looks)}); });
}

LostLooks::Looks LostLooks::pop(Stack& stack, size_t action) {
    if (stack.empty() || stack.back().action != action) return {};
    Looks looks = std::move(stack.back().looks);
    stack.pop_back();
    return looks;
}

void LostLooks::bringBack() {
    if (!due_) return;
    const Return due = *std::exchange(due_, std::nullopt);
    layPackedStyles(box_, due.text.start, due.looks.styles);
    reasons_.bringBack(due.looks.reasons, due.text);
}

void LostLooks::clear() {
    actions_ = 0;
    done_.clear();
    undone_.clear();
    due_.reset();
}

}  // namespace klt
