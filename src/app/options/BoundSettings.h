#pragma once

#include <functional>
#include <vector>

#include "settings/Catalogue.h"

class QAbstractButton;
class QComboBox;

namespace klt {

class SpinField;

/// Controls, each with the row of the catalogue that it shows: a check box a truth, a number field a number,
/// a list the index of its item.
class BoundSettings {
public:
    /// `store` must outlive it, and so must what is bound.
    explicit BoundSettings(Store& store) : store_(store) {}

    /// Shows in the control what is stored.
    void bind(QAbstractButton& control, const TruthSetting& setting);
    void bind(SpinField& control, const NumberSetting& setting);
    void bind(QComboBox& control, const NumberSetting& setting);

    /// Stores what the controls show, in the order in which they were bound: all of it, or nothing. True if
    /// it is stored.
    bool save();

private:
    Store& store_;
    std::vector<std::function<bool()>> saves_;
};

}  // namespace klt
