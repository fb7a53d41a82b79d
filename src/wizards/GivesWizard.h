#pragma once

#include "wizards/Wizard.h"

namespace klt {

/// One bonus of a gives( field, put behind what the field holds.
class GivesWizard : public Wizard {
public:
    /// `field` is the one to be written into.
    explicit GivesWizard(AreaLookup field);

    std::string text() const override;

protected:
    std::unique_ptr<LineTarget> target() const override;
};

}  // namespace klt
