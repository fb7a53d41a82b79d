#include "app/commands/Commands.h"

#include <algorithm>
#include <array>
#include <functional>

#include "app/Editor.h"
#include "app/commands/EditCommands.h"
#include "app/commands/OptionCommands.h"
#include "app/commands/WindowCommands.h"
#include "app/commands/WizardCommands.h"
#include "app/dialogs/Addresses.h"
#include "app/dialogs/ShowDialog.h"
#include "app/dialogs/frmAbout.h"
#include "app/dialogs/frmTip.h"
#include "app/dialogs/frmWindows.h"
#include "app/documents/frmKLTEditor.h"
#include "app/window/ArrangeWindows.h"
#include "platform/CommandKeys.h"
#include "settings/Catalogue.h"
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

void showTips(Editor& editor) {
    writeSetting(editor.store(), settings::kShowTips, 1);
    showDialog<frmTip>(editor.store(), editor.mainWindow());
}

template <OptionsTab kTab>
void options(Editor& editor) {
    openOptions(editor, kTab);
}

void chooseDocument(Editor& editor) {
    frmMDIKLTEditor& window = editor.mainWindow();
    const auto list = showDialog<frmWindows>(window.forms(), window);
    if (list && list->chosen() != nullptr) activateDocument(window, *list->chosen());
}

struct Command {
    std::string_view key;
    void (*run)(Editor&);
};

/// Every command that there is beside the wizards': one row here turns its menu items and buttons on.
constexpr auto kCommands = std::to_array<Command>({
    {commands::kNew, [](Editor& editor) { editor.documents.New(); }},
    {commands::kOpen, [](Editor& editor) { editor.documents.Open(); }},
    {commands::kClose, [](Editor& editor) { editor.documents.Close(); }},
    {commands::kSave, [](Editor& editor) { editor.documents.SaveDocument(); }},
    {commands::kSaveAs, [](Editor& editor) { editor.documents.SaveDocumentAs(); }},
    {commands::kExit, [](Editor& editor) { editor.mainWindow().close(); }},
    {commands::kUndo, onActiveControl<&RichTextBox::Undo>},
    {commands::kCut, onActiveControl<&RichTextBox::Cut>},
    {commands::kCopy, [](Editor& editor) { copy(editor.mainWindow()); }},
    {commands::kPaste, onActiveControl<&RichTextBox::Paste>},
    {commands::kDelete, onActiveControl<&RichTextBox::Delete>},
    {commands::kEditLine, EditLine},
    {commands::kSelectAll, onActiveControl<selectAll>},
    {commands::kFind, [](Editor& editor) { editor.openFind(frmFind::Shape::Find); }},
    {commands::kReplace, [](Editor& editor) { editor.openFind(frmFind::Shape::Replace); }},
    {commands::kAuthorWizard, openAuthorWizard},
    {commands::kCommentLine, onText<insertCommentLine>},
    {commands::kComment, onText<insertComment>},
    {commands::kDefaultToolbar, [](Editor& editor) { toggleBand(editor.mainWindow(), kDefaultBand); }},
    {commands::kWizardsToolbar, [](Editor& editor) { toggleBand(editor.mainWindow(), kWizardsBand); }},
    {commands::kPreferences, options<OptionsTab::General>},
    {commands::kProgramPaths, options<OptionsTab::Paths>},
    {commands::kAuthorList, options<OptionsTab::Authors>},
    {commands::kEditorFormat, options<OptionsTab::Format>},
    {commands::kMerger, [](Editor& editor) { editor.openMerger(); }},
    {commands::kSyntaxChecker, colour},
    {commands::kTileHorizontally, arrange<Arrangement::TileHorizontally>},
    {commands::kTileVertically, arrange<Arrangement::TileVertically>},
    {commands::kCascade, arrange<Arrangement::Cascade>},
    {commands::kArrangeIcons, [](Editor& editor) { arrangeIcons(editor.mainWindow().area()); }},
    {commands::kPreviousDocument, [](Editor& editor) { activateNeighbour(editor.mainWindow(), -1); }},
    {commands::kNextDocument, [](Editor& editor) { activateNeighbour(editor.mainWindow(), 1); }},
    {commands::kCheckerWindow,
     [](Editor& editor) { toggleCheckerWindow(editor.mainWindow(), editor.store()); }},
    {commands::kHomePage, [](Editor&) { openAddress("https://www.example.org/tvm/"); }},
    {commands::kDataFilesPage, [](Editor&) { openAddress("https://www.example.org/tvm/data-files/"); }},
    {commands::kAddOnsPage, [](Editor&) { openAddress("https://www.example.org/tvm/add-ons/"); }},
    {commands::kDocsPage, [](Editor&) { openAddress("https://www.example.org/tvm/docs/"); }},
    {commands::kHarborPage, [](Editor&) { openAddress("https://www.example.net/"); }},
    {commands::kHarborPrograms, [](Editor&) { openAddress("https://www.example.net/programs/"); }},
    {commands::kMoreDocuments, chooseDocument},
    {commands::kTips, showTips},
    {commands::kAbout, [](Editor& editor) { showDialog<frmAbout>(editor.store(), editor.mainWindow()); }},
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
    if (key.starts_with("D") && key != commands::kMoreDocuments)
        return activateDocument(editor.mainWindow(), numberOf(key));
    if (const WizardTable* table = wizardOfCommand(key)) return openWizard(editor, *table);
    if (const Command* command = commandOf(key)) command->run(editor);
}

}  // namespace klt
