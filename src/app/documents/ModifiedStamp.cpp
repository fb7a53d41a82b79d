#include "app/documents/ModifiedStamp.h"

#include "platform/Clock.h"

namespace klt {

void stampModified(TextArea& text) {
    if (text.Find("* Modified: ", 0) == kNotFound) return;
    text.SetSelStart(text.SelStart() + text.SelLength());
    text.Span("\r\n", true, true);
    text.SetSelText(longDate(today()));
}

}  // namespace klt
