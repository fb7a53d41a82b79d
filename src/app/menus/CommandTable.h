#pragma once

#include <array>
#include <string_view>

#include "app/menus/EditRules.h"
#include "platform/CommandKeys.h"

namespace klt {

enum class MenuRowKind : unsigned char { Command, CheckMark, Menu, Separator };

/// One row of the menu tree.
struct MenuRow {
    MenuRowKind kind;
    std::string_view parent;  ///< the key of the menu that it stands in; empty for the menu bar
    std::string_view key;
    std::string_view caption;
    std::string_view shortcut = {};
    Rule rule = Rule::Always;
};

namespace commands {

constexpr MenuRow menu(std::string_view key, std::string_view caption, std::string_view parent = {}) {
    return {MenuRowKind::Menu, parent, key, caption};
}
constexpr MenuRow command(std::string_view parent, std::string_view key, std::string_view caption,
                          std::string_view shortcut = {}, Rule rule = Rule::Always) {
    return {MenuRowKind::Command, parent, key, caption, shortcut, rule};
}
constexpr MenuRow checkMark(std::string_view parent, std::string_view key, std::string_view caption) {
    return {MenuRowKind::CheckMark, parent, key, caption};
}
constexpr MenuRow separator(std::string_view parent) {
    return {MenuRowKind::Separator, parent, {}, {}};
}

inline constexpr std::string_view kFileMenu = "mnuFileTOP", kEditMenu = "mnuEditTOP",
                                  kInsertMenu = "mnuInsertTOP", kToolsMenu = "mnuToolsTOP",
                                  kWindowMenu = "mnuWindowTOP", kHelpMenu = "mnuHelpTOP",
                                  kToolbarsMenu = "mnuTToolbars";

}  // namespace commands

/// The whole tree of the menu bar, but for the recent files (in front of `F6`) and the documents' list (at
/// the end of the Window menu).
inline constexpr auto kMenuTree = [] {
    using namespace commands;
    return std::to_array<MenuRow>({
        menu(kFileMenu, "&File"),
        command(kFileMenu, kNew, "&New", "Ctrl+N"),
        command(kFileMenu, kOpen, "&Open...", "Ctrl+O"),
        command(kFileMenu, kClose, "&Close", "Ctrl+F4", Rule::Document),
        separator(kFileMenu),
        command(kFileMenu, kSave, "&Save", "Ctrl+S", Rule::Document),
        command(kFileMenu, kSaveAs, "Save &As...", "", Rule::Document),
        separator(kFileMenu),
        command(kFileMenu, kExit, "E&xit", "Alt+F4"),

        menu(kEditMenu, "&Edit"),
        command(kEditMenu, kUndo, "&Undo", "Ctrl+Z", Rule::Undo),
        separator(kEditMenu),
        command(kEditMenu, kCut, "&Cut", "Ctrl+X", Rule::CutOrCopy),
        command(kEditMenu, kCopy, "C&opy", "Ctrl+C", Rule::CutOrCopy),
        command(kEditMenu, kPaste, "&Paste", "Ctrl+V", Rule::Paste),
        command(kEditMenu, kDelete, "&Delete", "Del", Rule::Delete),
        command(kEditMenu, kEditLine, "Edit &Line...", "Ctrl+L", Rule::Document),
        command(kEditMenu, kSelectAll, "&Select All", "Ctrl+A", Rule::Document),
        separator(kEditMenu),
        command(kEditMenu, kFind, "&Find...", "Ctrl+F", Rule::Document),
        command(kEditMenu, kReplace, "&Replace...", "Ctrl+R", Rule::Document),

        menu(kInsertMenu, "&Insert"),
        command(kInsertMenu, kAdvantageWizard, "&Ad/Disad/Power/Quirk...", "Ctrl+F1", Rule::Document),
        command(kInsertMenu, kSkillWizard, "&Skill...", "Ctrl+F2", Rule::Document),
        command(kInsertMenu, kSpellWizard, "Sp&ell...", "Ctrl+F3", Rule::Document),
        command(kInsertMenu, kStatWizard, "S&tat...", "Ctrl+F5", Rule::Document),
        command(kInsertMenu, kBonusWizard, "&Bonus...", "Ctrl+F8", Rule::Document),
        command(kInsertMenu, kGroupWizard, "&Group...", "Ctrl+F9", Rule::Document),
        command(kInsertMenu, kModWizard, "&Mod...", "Ctrl+F11", Rule::Document),
        separator(kInsertMenu),
        command(kInsertMenu, kAuthorWizard, "A&uthor Section...", "", Rule::Document),
        command(kInsertMenu, kPackageWizard, "&Package...", "Ctrl+F7", Rule::Document),
        separator(kInsertMenu),
        command(kInsertMenu, kCommentLine, "Comment &Line", "", Rule::Document),
        command(kInsertMenu, kComment, "&Comment", "", Rule::Document),

        menu(kToolsMenu, "&Tools"),
        menu(kToolbarsMenu, "&Toolbars", kToolsMenu),
        checkMark(kToolbarsMenu, kDefaultToolbar, "&Default"),
        checkMark(kToolbarsMenu, kWizardsToolbar, "&Wizards"),
        command(kToolsMenu, kPreferences, "Pre&ferences..."),
        command(kToolsMenu, kProgramPaths, "&Program Paths..."),
        command(kToolsMenu, kAuthorList, "&Modify Author List..."),
        command(kToolsMenu, kEditorFormat, "&Editor Format..."),
        separator(kToolsMenu),
        command(kToolsMenu, kMerger, "KLT &Merger...", "Ctrl+M"),
        command(kToolsMenu, kSyntaxChecker, "KLT &Syntax Checker...", "Ctrl+K", Rule::Document),

        menu(kWindowMenu, "&Window"),
        command(kWindowMenu, kTileHorizontally, "Tile &Horizontally", "", Rule::Document),
        command(kWindowMenu, kTileVertically, "Tile &Vertically", "", Rule::Document),
        command(kWindowMenu, kCascade, "&Cascade", "", Rule::Document),
        command(kWindowMenu, kArrangeIcons, "&Arrange Icons", "", Rule::Document),
        separator(kWindowMenu),
        command(kWindowMenu, kPreviousDocument, "&Previous Data File", "Ctrl+Shift+F6", Rule::Document),
        command(kWindowMenu, kNextDocument, "&Next Data File", "Ctrl+F6", Rule::Document),
        separator(kWindowMenu),
        checkMark(kWindowMenu, kCheckerWindow, "Syntax Checker Window"),
        separator(kWindowMenu),

        menu(kHelpMenu, "&Help"),
        command(kHelpMenu, kContents, "&Contents", "F1"),
        command(kHelpMenu, kSearchHelp, "&Search for Help on..."),
        separator(kHelpMenu),
        command(kHelpMenu, kTips, "&Tips..."),
        separator(kHelpMenu),
        command(kHelpMenu, kHomePage, "&TVM Home Page..."),
        command(kHelpMenu, kDataFilesPage, "TVM Data Files &Page..."),
        command(kHelpMenu, kAddOnsPage, "TV&M Add-Ons Page..."),
        command(kHelpMenu, kDocsPage, "TVM &Docs Page..."),
        command(kHelpMenu, kHarborPage, "Grey &Harbor..."),
        command(kHelpMenu, kHarborPrograms, "Grey Ha&rbor Programs..."),
        separator(kHelpMenu),
        command(kHelpMenu, kAbout, "A&bout..."),
    });
}();

/// The row of a command; null for a key that the tree lacks.
constexpr const MenuRow* menuRow(std::string_view key) {
    if (key.empty()) return nullptr;
    for (const MenuRow& row : kMenuTree)
        if (row.key == key) return &row;
    return nullptr;
}

}  // namespace klt
