#pragma once

#include "ui/RichTextBox.h"

namespace klt {

/// Gives a document's text area the plain format: what no style is laid on, and what is typed, looks so.
void SetDocumentFormat(RichTextBox& text);

}  // namespace klt
