#include "checker/CheckerState.h"

namespace klt {

void FunctionStack::push(AtFunction function) {
    if (!isAllocated()) return;
    if (open_.size() > 1 || open_.back() != AtFunction::None) open_.emplace_back();
    open_.back() = function;
}

void CheckerState::SetCurrentSection(std::string_view header) {
    currentSection_ = header;
    section_ = sectionOf(header);
}

}  // namespace klt
