#include "app/menus/WindowMenu.h"

#include "app/commands/Commands.h"
#include "app/documents/OpenForms.h"
#include "app/documents/frmKLTEditor.h"
#include "platform/CommandKeys.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr int kMore = 9;

}  // namespace

std::vector<MenuEntry> windowEntries(const OpenForms& forms) {
    std::vector<MenuEntry> entries;
    int number = 0;
    for (const auto* document : forms.documents()) {
        if (++number == kMore) {
            entries.push_back(
                {commands::kMoreDocuments, "&More Data Files...", commandIsThere(commands::kMoreDocuments)});
            break;
        }
        const QString digits = QString::number(number);
        entries.push_back({"D" + digits, "&" + digits + " " + literally(document->Caption()), true,
                           document == forms.active()});
    }
    return entries;
}

}  // namespace klt
