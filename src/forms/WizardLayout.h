#pragma once

#include "forms/WizardControls.h"

class QDialog;

namespace klt {

/// Lays the widgets of a wizard out: its frames in the table's order, in two columns where there are many,
/// those of tabs on their tabs, and the form's own buttons under them. In a frame each field has its line,
/// with the button that writes into it; options and checks share theirs. A `note` that
/// is not empty stands in a line below the fields.
void layOut(QDialog& form, const WizardControls& controls, std::string_view note);

}  // namespace klt
