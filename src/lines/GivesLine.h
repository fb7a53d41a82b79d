#pragma once

#include "lines/Wizard.h"

namespace klt {

/// One bonus of a gives( field, put behind what the field holds.
class GivesLine : public Wizard {
public:
    /// `field` is the one to be written into.
    explicit GivesLine(AreaLookup field);

    std::string text() const override;

protected:
    std::unique_ptr<LineTarget> target() const override;
};

}  // namespace klt
