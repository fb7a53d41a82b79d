#pragma once

#include <vector>

#include "wizards/WizardTable.h"

class QGroupBox;
class QLabel;
class QWidget;

namespace klt {

class WizardState;
struct WizardServices;

/// The widgets of one row. The labels are there where a field or combo has room for them; they may be hidden.
struct WizardControl {
    const ControlRow& row;
    QWidget& widget;
    /// Null for the form's own row of buttons.
    const FrameRow* frame = nullptr;
    QLabel* before = nullptr;
    QLabel* behind = nullptr;
};

struct WizardFrame {
    const FrameRow& row;
    QGroupBox& box;
};

/// The widgets of a table, in the order of its rows.
struct WizardControls {
    std::vector<WizardFrame> frames;
    std::vector<WizardControl> controls;
};

/// Makes the widgets of a wizard's table, named, labelled and checking themselves, in the order in which the
/// focus goes through them. Fields keep their texts in `state` as they are typed. Nothing is laid out yet.
WizardControls makeControls(QWidget& form, const WizardTable& table, WizardState& state,
                            const WizardServices& services);

/// Brings captions, labels, texts, items, marks and what is enabled and shown up to date.
void showState(const WizardControls& controls, const WizardState& state);

}  // namespace klt
