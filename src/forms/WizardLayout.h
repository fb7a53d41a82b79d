#pragma once

#include "forms/WizardControls.h"

class QDialog;

namespace klt {

class Wizard;

/// Lays the widgets of a wizard out: its frames in the table's order, in two columns where there are many,
/// those of tabs on their tabs, and the form's own buttons under them. In a frame each field has its line,
/// with the button that writes into it; options and checks share theirs. What the wizard
/// does not keep of its line stands in a line below the fields.
void layOut(QDialog& form, const Wizard& wizard, const WizardControls& controls);

}  // namespace klt
