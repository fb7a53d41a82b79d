#pragma once

#include "checker/Scan.h"

namespace klt {

// The scanners of values. Each starts at the first character of the value, colours what it recognises, and
// returns the place of the last character that it took: the closing parenthesis or terminator, or one behind
// the end of the text.

Place CheckNeeds(Scan& scan, Place position);
Place CheckGives(Scan& scan, Place position);
Place CheckDefault(Scan& scan, Place position);
Place CheckExpression(Scan& scan, Place position);
Place CheckCost(Scan& scan, Place position, char terminator);
Place CheckArithmetic(Scan& scan, Place position);
Place CheckModValue(Scan& scan, Place position);
Place CheckYesNo(Scan& scan, Place position);
Place CheckStep(Scan& scan, Place position);
Place CheckRounding(Scan& scan, Place position);
Place CheckSkillType(Scan& scan, Place position, char terminator);
Place CheckFreeText(Scan& scan, Place position);

/// Runs the scanner of `scan.CurrentTag`.
Place checkTagValue(Scan& scan, Place position);

}  // namespace klt
