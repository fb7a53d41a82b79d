#include "app/documents/ModifiedStamp.h"

#include "platform/Clock.h"
#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {

namespace {

bool mayBeNoDate(std::string_view text) {
    constexpr size_t kLongestDate = 30;
    if (trimBlanksAndTabs(text).empty()) return false;
    return countCharacters(text) > kLongestDate || text.find_first_of("0123456789") == text.npos;
}

}  // namespace

bool stampModified(TextArea& text) {
    if (text.Find("* Modified: ", 0) == kNotFound) return false;
    text.SetSelStart(text.SelStart() + text.SelLength());
    text.Span("\r\n", true, true);
    const bool wasNoDate = mayBeNoDate(text.SelText());
    text.SetSelText(longDate(today()));
    return wasNoDate;
}

}  // namespace klt
