#include "ui/BaseFormats.h"

namespace klt {

void SetDocumentFormat(RichTextBox& text) {
    text.setTextFont(documentFont());
    text.setStyleFormats(StyleFormats{});
}

}  // namespace klt
