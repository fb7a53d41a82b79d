#include "app/recovery/WizardLines.h"

#include <string>
#include <tuple>

#include "app/window/NoticeBar.h"
#include "ui/RichTextBox.h"

namespace klt {

void WizardLines::watch(RichTextBox& box, std::string_view title, std::function<bool()> hasUnwritten) {
    copies_.watch(box, [&box, title = std::string(title), hasUnwritten]() -> std::optional<KeptAbout> {
        if (box.Length() == 0 || !hasUnwritten()) return std::nullopt;
        return KeptAbout{.name = title, .caret = box.SelStart()};
    });
}

void WizardLines::drop(RichTextBox& box) {
    copies_.drop(box);
}

void WizardLines::leave(RichTextBox& box) {
    const auto kept = copies_.leave(box);
    if (kept.error) {
        bar_().tell("The lines of the wizard could not be kept in " + kept.path + ": " + *kept.error);
    } else if (!kept.path.empty()) {
        bar_().tell("The lines of the wizard were not written. They are kept in " + kept.path,
                    [&folder = folder_, kept] { std::ignore = folder.dismiss(kept.path); });
    }
}

}  // namespace klt
