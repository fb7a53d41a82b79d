#include "app/commands/Commands.h"

#include <QDesktopServices>
#include <QUrl>
#include <algorithm>
#include <array>
#include <functional>

#include "app/Editor.h"
#include "app/commands/EditCommands.h"
#include "app/commands/WindowCommands.h"
#include "app/commands/WizardCommands.h"
#include "app/documents/frmKLTEditor.h"
#include "app/window/ArrangeWindows.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

template <auto kOperation>
void onActiveControl(Editor& editor) {
    if (auto* text = activeControl(editor.mainWindow())) std::invoke(kOperation, *text);
}

template <auto kOperation>
void onText(Editor& editor) {
    if (auto* document = editor.mainWindow().ActiveForm()) kOperation(*document->RichTextBox1);
}

template <Arrangement kArrangement>
void arrange(Editor& editor) {
    arrangeWindows(editor.mainWindow().area(), kArrangement);
}

void colour(Editor& editor) {
    if (auto* document = editor.mainWindow().ActiveForm()) editor.colouring.ColourDocument(*document);
}

void browse(const char* address) {
    QDesktopServices::openUrl(QUrl(address));
}

struct Command {
    std::string_view key;
    void (*run)(Editor&);
};

/// Every command that there is beside the wizards': one row here turns its menu items and buttons on.
constexpr auto kCommands = std::to_array<Command>({
    {"F1", [](Editor& editor) { editor.documents.New(); }},
    {"F2", [](Editor& editor) { editor.documents.Open(); }},
    {"F3", [](Editor& editor) { editor.documents.Close(); }},
    {"F4", [](Editor& editor) { editor.documents.SaveDocument(); }},
    {"F5", [](Editor& editor) { editor.documents.SaveDocumentAs(); }},
    {"F6", [](Editor& editor) { editor.mainWindow().close(); }},
    {"E1", onActiveControl<&RichTextBox::Undo>},
    {"E2", onActiveControl<&RichTextBox::Cut>},
    {"E3", [](Editor& editor) { copy(editor.mainWindow()); }},
    {"E4", onActiveControl<&RichTextBox::Paste>},
    {"E5", onActiveControl<&RichTextBox::Delete>},
    {"E6", EditLine},
    {"E7", onActiveControl<selectAll>},
    {"E8", [](Editor& editor) { editor.openFind(frmFind::Shape::Find); }},
    {"E9", [](Editor& editor) { editor.openFind(frmFind::Shape::Replace); }},
    {"I10", onText<insertCommentLine>},
    {"I11", onText<insertComment>},
    {"mnuTTDefault", [](Editor& editor) { toggleBand(editor.mainWindow(), "A1"); }},
    {"mnuTTWizards", [](Editor& editor) { toggleBand(editor.mainWindow(), "A2"); }},
    {"T5", [](Editor& editor) { editor.openMerger(); }},
    {"T6", colour},
    {"W1", arrange<Arrangement::TileHorizontally>},
    {"W2", arrange<Arrangement::TileVertically>},
    {"W3", arrange<Arrangement::Cascade>},
    {"W4", [](Editor& editor) { arrangeIcons(editor.mainWindow().area()); }},
    {"W5", [](Editor& editor) { activateNeighbour(editor.mainWindow(), -1); }},
    {"W6", [](Editor& editor) { activateNeighbour(editor.mainWindow(), 1); }},
    {"W7", [](Editor& editor) { toggleCheckerWindow(editor.mainWindow(), editor.store()); }},
    {"H4", [](Editor&) { browse("https://www.example.org/tvm/"); }},
    {"H5", [](Editor&) { browse("https://www.example.org/tvm/data-files/"); }},
    {"H6", [](Editor&) { browse("https://www.example.org/tvm/add-ons/"); }},
    {"H7", [](Editor&) { browse("https://www.example.org/tvm/docs/"); }},
    {"H8", [](Editor&) { browse("https://www.example.net/"); }},
    {"H9", [](Editor&) { browse("https://www.example.net/programs/"); }},
});

const Command* commandOf(std::string_view key) {
    const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                           [key](const Command& command) { return command.key == key; });
    return found == kCommands.end() ? nullptr : found;
}

/// The number of an entry is one digit, the key's last: the entry "RecentMenu12" opens file 2.
int numberOf(std::string_view key) {
    return key.back() - '0';
}

void openRecent(Editor& editor, int number) {
    const cMRUFileList& recent = editor.variables.RecentFiles;
    if (recent.FileExists(number)) editor.documents.openFiles({recent.file(number)});
}

}  // namespace

bool commandIsThere(std::string_view key) {
    return commandOf(key) != nullptr || wizardOfCommand(key) != nullptr;
}

void runCommand(Editor& editor, std::string_view key) {
    if (key.find("RecentMenu") != key.npos) return openRecent(editor, numberOf(key));
    if (key.starts_with("D") && key != "D9") return activateDocument(editor.mainWindow(), numberOf(key));
    if (const WizardTable* table = wizardOfCommand(key)) return openWizard(editor, *table);
    if (const Command* command = commandOf(key)) command->run(editor);
}

}  // namespace klt
