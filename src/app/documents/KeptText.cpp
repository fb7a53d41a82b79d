#include "app/documents/KeptText.h"

#include "app/documents/frmKLTEditor.h"
#include "platform/MemoryRoom.h"

namespace klt {

KeptText::KeptText(const frmKLTEditor& document)
    : encoding_(document.encoding), view_(*document.RichTextBox1) {
    const RichTextBox& box = *document.RichTextBox1;
    requireRoom(2 * static_cast<size_t>(box.Length()));
    text_ = box.Text();
    styles_ = box.Styles();
    protected_ = box.ProtectedRuns();
}

void KeptText::bringBackTo(frmKLTEditor& document) const {
    RichTextBox& box = *document.RichTextBox1;
    if (!box.ReplaceText(text_)) return;
    box.SetStyles(styles_, protected_);
    document.encoding = encoding_;
    view_.restoreIn(box);
}

}  // namespace klt
