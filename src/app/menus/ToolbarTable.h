#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

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
    ToolbarButton{"F1", "New (Ctrl+N)"},
    ToolbarButton{"F2", "Open (Ctrl+O)"},
    ToolbarButton{"F4", "Save (Ctrl+S)"},
    kToolbarSeparator,
    ToolbarButton{"E1", "Undo (Ctrl+Z)"},
    kToolbarSeparator,
    ToolbarButton{"E2", "Cut (Ctrl+X)"},
    ToolbarButton{"E3", "Copy (Ctrl+C)"},
    ToolbarButton{"E4", "Paste (Ctrl+V)"},
    ToolbarButton{"E5", "Delete (Del)"},
    kToolbarSeparator,
    ToolbarButton{"E8", "Find (Ctrl+F)"},
    kToolbarSeparator,
    ToolbarButton{"T1", "Preferences"},
    ToolbarButton{"T2", "Program Paths"},
    ToolbarButton{"T3", "Modify Author List"},
    ToolbarButton{"T4", "Editor Format"},
    kToolbarSeparator,
    ToolbarButton{"H1", "Help (F1)"},
};

inline constexpr std::array kWizardsButtons = {
    ToolbarButton{"I1", "Ads/Disads/Powers/Quirks Wizard (Ctrl+F1)"},
    ToolbarButton{"I2", "Skills Wizard (Ctrl+F2)"},
    ToolbarButton{"I3", "Spells Wizard (Ctrl+F3)"},
    ToolbarButton{"I4", "Stats Wizard (Ctrl+F5)"},
    ToolbarButton{"I5", "Bonus Wizard (Ctrl+F8)"},
    ToolbarButton{"I6", "Group Wizard (Ctrl+F9)"},
    ToolbarButton{"I7", "Mods Wizard (Ctrl+F11)"},
    kToolbarSeparator,
    ToolbarButton{"I8", "Author Section Wizard"},
    ToolbarButton{"I9", "Insert Package (Ctrl+F7)"},
    kToolbarSeparator,
    ToolbarButton{"I11", "Insert Comment"},
    ToolbarButton{"I10", "Insert Comment Line"},
    kToolbarSeparator,
    ToolbarButton{"T5", "KLT Merger (Ctrl+M)"},
    ToolbarButton{"T6", "KLT Syntax Checker (Ctrl+K)"},
    kToolbarSeparator,
    ToolbarButton{"F6", "Exit (Alt+F4)"},
};

/// The indexes that the rules name.
inline constexpr int kSaveButton = 2;
inline constexpr int kUndoButton = 4;
inline constexpr int kCutButton = 6;
inline constexpr int kCopyButton = 7;
inline constexpr int kPasteButton = 8;
inline constexpr int kDeleteButton = 9;
inline constexpr int kFindButton = 11;
static_assert(kDefaultButtons[kSaveButton].key == "F4" && kDefaultButtons[kUndoButton].key == "E1" &&
              kDefaultButtons[kCutButton].key == "E2" && kDefaultButtons[kCopyButton].key == "E3" &&
              kDefaultButtons[kPasteButton].key == "E4" && kDefaultButtons[kDeleteButton].key == "E5" &&
              kDefaultButtons[kFindButton].key == "E8");

/// A toolbar: `ctbrToolbar(0)` and `ctbrToolbar(1)`, each in its band.
struct ToolbarRow {
    std::string_view band;
    std::string_view name;
    std::string_view title;
    std::span<const ToolbarButton> buttons;
};

inline constexpr int kDefaultBar = 0;
inline constexpr int kWizardsBar = 1;
inline constexpr std::array kToolbarRows = {
    ToolbarRow{"A1", "ctbrToolbar(0)", "Default", kDefaultButtons},
    ToolbarRow{"A2", "ctbrToolbar(1)", "Wizards", kWizardsButtons},
};
/// The index of the toolbar in that band; nothing for another one.
constexpr std::optional<std::size_t> barOf(std::string_view band) {
    for (std::size_t bar = 0; bar < kToolbarRows.size(); ++bar)
        if (kToolbarRows[bar].band == band) return bar;
    return std::nullopt;
}

}  // namespace klt
