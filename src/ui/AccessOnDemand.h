#pragma once

namespace klt {

/// Text boxes get the library's accessible object only once somebody listens: it counts the characters from
/// the text's start at each move of the caret, and the toolkit makes one for every widget that it tells of.
/// To be called when the library has installed its own, that is after the first box was made; later calls do
/// nothing.
void useAccessibleTextOnDemand();

/// Whether an assistive tool is there that is to be told of things.
bool somebodyListens();

}  // namespace klt
