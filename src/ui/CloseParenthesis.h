#pragma once

#include "ui/RichTextBox.h"

namespace klt {

class Store;

/// Puts ")" in place of the selection and the caret in front of it, where the setting "MatchParenthesis" is
/// on: for a typed "(" that is about to go in. Nothing where protection refuses it. Raises no notification,
/// for the "(" that follows will.
void CloseParenthesis(RichTextBox& box, Store& store);

/// From now on a "(" typed into `box` brings its ")". `store` must outlive the box.
void pairTypedParentheses(RichTextBox& box, Store& store);

}  // namespace klt
