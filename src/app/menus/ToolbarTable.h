#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "platform/CommandKeys.h"

namespace klt {

/// A button of a toolbar. Its place in the table is its index; a separator has an index too, and no key.
struct ToolbarButton {
    /// The menu command whose routine it runs.
    std::string_view key;
    std::string_view tip;

    constexpr bool isSeparator() const { return key.empty(); }
};

inline constexpr ToolbarButton kToolbarSeparator{};

inline constexpr std::array kDefaultButtons = {
    ToolbarButton{commands::kNew, "New (Ctrl+N)"},
    ToolbarButton{commands::kOpen, "Open (Ctrl+O)"},
    ToolbarButton{commands::kSave, "Save (Ctrl+S)"},
    kToolbarSeparator,
    ToolbarButton{commands::kUndo, "Undo (Ctrl+Z)"},
    kToolbarSeparator,
    ToolbarButton{commands::kCut, "Cut (Ctrl+X)"},
    ToolbarButton{commands::kCopy, "Copy (Ctrl+C)"},
    ToolbarButton{commands::kPaste, "Paste (Ctrl+V)"},
    ToolbarButton{commands::kDelete, "Delete (Del)"},
    kToolbarSeparator,
    ToolbarButton{commands::kFind, "Find (Ctrl+F)"},
    kToolbarSeparator,
    ToolbarButton{commands::kPreferences, "Preferences"},
    ToolbarButton{commands::kProgramPaths, "Program Paths"},
    ToolbarButton{commands::kAuthorList, "Modify Author List"},
    ToolbarButton{commands::kEditorFormat, "Editor Format"},
    kToolbarSeparator,
    ToolbarButton{commands::kContents, "Help (F1)"},
};

inline constexpr std::array kWizardsButtons = {
    ToolbarButton{commands::kAdvantageWizard, "Ads/Disads/Powers/Quirks Wizard (Ctrl+F1)"},
    ToolbarButton{commands::kSkillWizard, "Skills Wizard (Ctrl+F2)"},
    ToolbarButton{commands::kSpellWizard, "Spells Wizard (Ctrl+F3)"},
    ToolbarButton{commands::kStatWizard, "Stats Wizard (Ctrl+F5)"},
    ToolbarButton{commands::kBonusWizard, "Bonus Wizard (Ctrl+F8)"},
    ToolbarButton{commands::kGroupWizard, "Group Wizard (Ctrl+F9)"},
    ToolbarButton{commands::kModWizard, "Mods Wizard (Ctrl+F11)"},
    kToolbarSeparator,
    ToolbarButton{commands::kAuthorWizard, "Author Section Wizard"},
    ToolbarButton{commands::kPackageWizard, "Insert Package (Ctrl+F7)"},
    kToolbarSeparator,
    ToolbarButton{commands::kComment, "Insert Comment"},
    ToolbarButton{commands::kCommentLine, "Insert Comment Line"},
    kToolbarSeparator,
    ToolbarButton{commands::kMerger, "KLT Merger (Ctrl+M)"},
    ToolbarButton{commands::kSyntaxChecker, "KLT Syntax Checker (Ctrl+K)"},
    kToolbarSeparator,
    ToolbarButton{commands::kExit, "Exit (Alt+F4)"},
};

/// The indexes that the rules name.
inline constexpr int kSaveButton = 2;
inline constexpr int kUndoButton = 4;
inline constexpr int kCutButton = 6;
inline constexpr int kCopyButton = 7;
inline constexpr int kPasteButton = 8;
inline constexpr int kDeleteButton = 9;
inline constexpr int kFindButton = 11;
static_assert(kDefaultButtons[kSaveButton].key == commands::kSave &&
              kDefaultButtons[kUndoButton].key == commands::kUndo &&
              kDefaultButtons[kCutButton].key == commands::kCut &&
              kDefaultButtons[kCopyButton].key == commands::kCopy &&
              kDefaultButtons[kPasteButton].key == commands::kPaste &&
              kDefaultButtons[kDeleteButton].key == commands::kDelete &&
              kDefaultButtons[kFindButton].key == commands::kFind);

/// A toolbar: `ctbrToolbar(0)` and `ctbrToolbar(1)`, each in its band.
struct ToolbarRow {
    std::string_view band;
    std::string_view name;
    std::string_view title;
    std::span<const ToolbarButton> buttons;
};

inline constexpr char kDefaultBand[] = "A1";
inline constexpr char kWizardsBand[] = "A2";
inline constexpr int kDefaultBar = 0;
inline constexpr int kWizardsBar = 1;
inline constexpr std::array kToolbarRows = {
    ToolbarRow{kDefaultBand, "ctbrToolbar(0)", "Default", kDefaultButtons},
    ToolbarRow{kWizardsBand, "ctbrToolbar(1)", "Wizards", kWizardsButtons},
};
/// The index of the toolbar in that band; nothing for another one.
constexpr std::optional<std::size_t> barOf(std::string_view band) {
    for (std::size_t bar = 0; bar < kToolbarRows.size(); ++bar)
        if (kToolbarRows[bar].band == band) return bar;
    return std::nullopt;
}

}  // namespace klt
