#pragma once

#include <array>
#include <string_view>

#include "app/menus/EditRules.h"

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

inline constexpr std::string_view kFile = "mnuFileTOP", kEdit = "mnuEditTOP", kInsert = "mnuInsertTOP",
                                  kTools = "mnuToolsTOP", kWindow = "mnuWindowTOP", kHelp = "mnuHelpTOP",
                                  kToolbars = "mnuTToolbars";

}  // namespace commands

/// The whole tree of the menu bar, but for the recent files (in front of `F6`) and the documents' list (at
/// the end of the Window menu).
inline constexpr auto kMenuTree = [] {
    using namespace commands;
    return std::to_array<MenuRow>({
        menu(kFile, "&File"),
        command(kFile, "F1", "&New", "Ctrl+N"),
        command(kFile, "F2", "&Open...", "Ctrl+O"),
        command(kFile, "F3", "&Close", "Ctrl+F4", Rule::Document),
        separator(kFile),
        command(kFile, "F4", "&Save", "Ctrl+S", Rule::Document),
        command(kFile, "F5", "Save &As...", "", Rule::Document),
        separator(kFile),
        command(kFile, "F6", "E&xit", "Alt+F4"),

        menu(kEdit, "&Edit"),
        command(kEdit, "E1", "&Undo", "Ctrl+Z", Rule::Undo),
        separator(kEdit),
        command(kEdit, "E2", "&Cut", "Ctrl+X", Rule::CutOrCopy),
        command(kEdit, "E3", "C&opy", "Ctrl+C", Rule::CutOrCopy),
        command(kEdit, "E4", "&Paste", "Ctrl+V", Rule::Paste),
        command(kEdit, "E5", "&Delete", "Del", Rule::Delete),
        command(kEdit, "E6", "Edit &Line...", "Ctrl+L", Rule::Document),
        command(kEdit, "E7", "&Select All", "Ctrl+A", Rule::Document),
        separator(kEdit),
        command(kEdit, "E8", "&Find...", "Ctrl+F", Rule::Document),
        command(kEdit, "E9", "&Replace...", "Ctrl+R", Rule::Document),

        menu(kInsert, "&Insert"),
        command(kInsert, "I1", "&Ad/Disad/Power/Quirk...", "Ctrl+F1", Rule::Document),
        command(kInsert, "I2", "&Skill...", "Ctrl+F2", Rule::Document),
        command(kInsert, "I3", "Sp&ell...", "Ctrl+F3", Rule::Document),
        command(kInsert, "I4", "S&tat...", "Ctrl+F5", Rule::Document),
        command(kInsert, "I5", "&Bonus...", "Ctrl+F8", Rule::Document),
        command(kInsert, "I6", "&Group...", "Ctrl+F9", Rule::Document),
        command(kInsert, "I7", "&Mod...", "Ctrl+F11", Rule::Document),
        separator(kInsert),
        command(kInsert, "I8", "A&uthor Section...", "", Rule::Document),
        command(kInsert, "I9", "&Package...", "Ctrl+F7", Rule::Document),
        separator(kInsert),
        command(kInsert, "I10", "Comment &Line", "", Rule::Document),
        command(kInsert, "I11", "&Comment", "", Rule::Document),

        menu(kTools, "&Tools"),
        menu(kToolbars, "&Toolbars", kTools),
        checkMark(kToolbars, "mnuTTDefault", "&Default"),
        checkMark(kToolbars, "mnuTTWizards", "&Wizards"),
        command(kTools, "T1", "Pre&ferences..."),
        command(kTools, "T2", "&Program Paths..."),
        command(kTools, "T3", "&Modify Author List..."),
        command(kTools, "T4", "&Editor Format..."),
        separator(kTools),
        command(kTools, "T5", "KLT &Merger...", "Ctrl+M"),
        command(kTools, "T6", "KLT &Syntax Checker...", "Ctrl+K", Rule::Document),

        menu(kWindow, "&Window"),
        command(kWindow, "W1", "Tile &Horizontally", "", Rule::Document),
        command(kWindow, "W2", "Tile &Vertically", "", Rule::Document),
        command(kWindow, "W3", "&Cascade", "", Rule::Document),
        command(kWindow, "W4", "&Arrange Icons", "", Rule::Document),
        separator(kWindow),
        command(kWindow, "W5", "&Previous Data File", "Ctrl+Shift+F6", Rule::Document),
        command(kWindow, "W6", "&Next Data File", "Ctrl+F6", Rule::Document),
        separator(kWindow),
        checkMark(kWindow, "W7", "Syntax Checker Window"),
        separator(kWindow),

        menu(kHelp, "&Help"),
        command(kHelp, "H1", "&Contents", "F1"),
        command(kHelp, "H2", "&Search for Help on..."),
        separator(kHelp),
        command(kHelp, "H3", "&Tips..."),
        separator(kHelp),
        command(kHelp, "H4", "&TVM Home Page..."),
        command(kHelp, "H5", "TVM Data Files &Page..."),
        command(kHelp, "H6", "TV&M Add-Ons Page..."),
        command(kHelp, "H7", "TVM &Docs Page..."),
        command(kHelp, "H8", "Grey &Harbor..."),
        command(kHelp, "H9", "Grey Ha&rbor Programs..."),
        separator(kHelp),
        command(kHelp, "H10", "A&bout..."),
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
