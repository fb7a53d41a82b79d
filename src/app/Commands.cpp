#include "app/Commands.h"

#include <algorithm>
#include <array>

#include "app/Editor.h"

namespace klt {
namespace {

struct Command {
    std::string_view key;
    void (*run)(Editor&);
};

/// Every command that there is: one row here turns its menu items and buttons on.
constexpr auto kCommands = std::to_array<Command>({
    {"F1", [](Editor& editor) { editor.documents.New(); }},
    {"F2", [](Editor& editor) { editor.documents.Open(); }},
    {"F3", [](Editor& editor) { editor.documents.Close(); }},
    {"F4", [](Editor& editor) { editor.documents.SaveDocument(); }},
    {"F5", [](Editor& editor) { editor.documents.SaveDocumentAs(); }},
    {"F6", [](Editor& editor) { editor.mainWindow().close(); }},
    {"T6",
     [](Editor& editor) {
         if (auto* document = editor.mainWindow().ActiveForm()) editor.colouring.ColourDocument(*document);
     }},
});

const Command* commandOf(std::string_view key) {
    const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                           [key](const Command& command) { return command.key == key; });
    return found == kCommands.end() ? nullptr : found;
}

}  // namespace

bool commandIsThere(std::string_view key) {
    return commandOf(key) != nullptr;
}

void runCommand(Editor& editor, std::string_view key) {
    if (const Command* command = commandOf(key)) command->run(editor);
}

}  // namespace klt
