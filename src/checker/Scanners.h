#pragma once

#include "checker/Scan.h"

namespace klt {

// The scanners of values. Each starts at the first character of the value, colours what it recognises, and
// returns where the last character stands that it took: the closing parenthesis or terminator, or the end of
// the text.

ScanPosition CheckNeeds(Scan& scan, ScanPosition position);
ScanPosition CheckGives(Scan& scan, ScanPosition position);
ScanPosition CheckDefault(Scan& scan, ScanPosition position);
ScanPosition CheckExpression(Scan& scan, ScanPosition position);
ScanPosition CheckCost(Scan& scan, ScanPosition position, char terminator);
ScanPosition CheckArithmetic(Scan& scan, ScanPosition position);
ScanPosition CheckModValue(Scan& scan, ScanPosition position);
ScanPosition CheckYesNo(Scan& scan, ScanPosition position);
ScanPosition CheckStep(Scan& scan, ScanPosition position);
ScanPosition CheckRounding(Scan& scan, ScanPosition position);
ScanPosition CheckSkillType(Scan& scan, ScanPosition position, char terminator);
ScanPosition CheckFreeText(Scan& scan, ScanPosition position);

/// Runs the scanner of `scan.CurrentTag`.
ScanPosition checkTagValue(Scan& scan, ScanPosition position);

}  // namespace klt
