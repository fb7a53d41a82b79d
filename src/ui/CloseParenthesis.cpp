#include "ui/CloseParenthesis.h"

#include "settings/Catalogue.h"
#include "text/TextAreaGuards.h"

namespace klt {

void CloseParenthesis(RichTextBox& box, Store& store) {
    if (!readSetting(store, settings::kMatchParenthesis)) return;
    const NotificationMask mask(box);
    if (box.SetSelText(")")) box.SetSelStart(box.SelStart() - 1);
}

void pairTypedParentheses(RichTextBox& box, Store& store) {
    QObject::connect(&box, &RichTextBox::KeyPress, &box, [&box, &store](QChar character) {
        if (character == '(') CloseParenthesis(box, store);
    });
}

}  // namespace klt
