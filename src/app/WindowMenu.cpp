#include "app/WindowMenu.h"

#include "app/Commands.h"
#include "app/OpenForms.h"
#include "app/frmKLTEditor.h"

namespace klt {
namespace {

constexpr int kMore = 9;

}  // namespace

std::vector<MenuEntry> windowEntries(const OpenForms& forms) {
    std::vector<MenuEntry> entries;
    int number = 0;
    for (const auto* document : forms.documents()) {
        if (++number == kMore) {
            entries.push_back({"D9", "&More Data Files...", commandIsThere("D9")});
            break;
        }
        const QString digits = QString::number(number);
        entries.push_back({"D" + digits, "&" + digits + " " + menuText(document->Caption()), true,
                           document == forms.active()});
    }
    return entries;
}

}  // namespace klt
