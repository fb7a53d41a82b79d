#pragma once

#include "checker/Scan.h"

namespace klt {

// The structures of a line, one for each kind of section. Each checks the whole text of `scan`.

/// The walk over the fields of an item: name, second field, tags.
void checkFields(Scan& scan);
void checkBonusLine(Scan& scan);
void checkGroupLine(Scan& scan);
void checkPackageLine(Scan& scan);

/// Checks one logical line, or a part of a package line, by the structure of the current section.
void CheckLine(LineCheck& line, std::string_view text, Position lineStart);

/// Whether the text holds as many opening as closing parentheses.
bool parenthesesMatch(std::string_view text);

}  // namespace klt
