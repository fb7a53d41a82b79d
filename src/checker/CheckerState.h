#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "language/Functions.h"
#include "language/Section.h"

namespace klt {

/// The open @functions, innermost last. Element 0 is the floor: it takes the first @function that is met, and
/// keeps its name after that one has closed.
class FunctionStack {
public:
    /// False until a pass over a whole document has begun. Until then nothing is pushed or popped and `top`
    /// is `None`.
    bool isAllocated() const { return !open_.empty(); }
    /// One empty element: the state that a pass over a document begins with.
    void reset() { open_.assign(1, AtFunction::None); }

    AtFunction top() const { return open_.empty() ? AtFunction::None : open_.back(); }
    void push(AtFunction function);
    void pop() {
        if (open_.size() > 1) open_.pop_back();
    }

    bool operator==(const FunctionStack&) const = default;

private:
    std::vector<AtFunction> open_;
};

/// What outlives a pass. The window owns one for all documents and wizards.
class CheckerState {
public:
    /// The trimmed header text of the section of the line now being checked, or what a wizard has set. No
    /// pass resets it.
    const std::string& CurrentSection() const { return currentSection_; }
    void SetCurrentSection(std::string_view header);
    /// What `CurrentSection` names.
    Section section() const { return section_; }

    FunctionStack functionStack;

    bool operator==(const CheckerState&) const = default;

private:
    std::string currentSection_;
    Section section_ = Section::Other;
};

}  // namespace klt
