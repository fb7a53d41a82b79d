#pragma once

#include "wizards/Wizard.h"

namespace klt {

/// Told with the information icon.
inline constexpr std::string_view kNoMoreNesting = "Cannot nest any more @Functions!";

/// One call of an @function, put behind what a field holds. An argument may be made by another one.
class FunctionWizard : public Wizard {
public:
    /// `field` is the one to be written into, `level` how many others are open, 0 for the first.
    FunctionWizard(AreaLookup field, int level);

    int level() const { return level_; }
    /// Whether one more may open for an argument, the set limit being `maximum`.
    bool canNest(int maximum) const { return level_ < maximum; }

    void click(std::string_view control, int newState) override;
    std::optional<Complaint> check() const override;
    std::string text() const override;

protected:
    std::unique_ptr<LineTarget> target() const override;

private:
    int level_;
};

}  // namespace klt
