#pragma once

#include <array>
#include <span>
#include <string_view>

#include "platform/CommandKeys.h"

namespace klt {

/// A popup's item. It repeats the command of its key, under a caption of its own.
struct PopupRow {
    enum class Kind : unsigned char { Command, Heading, Separator } kind;
    std::string_view key = {};
    std::string_view caption = {};
};

struct PopupTable {
    std::string_view name;
    /// The items of the Edit menu that all popups begin with, and behind them its own.
    std::span<const PopupRow> rows;
};

namespace popups {

inline constexpr PopupRow kSeparator{PopupRow::Kind::Separator};

constexpr PopupRow command(std::string_view key, std::string_view caption) {
    return {PopupRow::Kind::Command, key, caption};
}

inline constexpr auto kEditing = std::to_array<PopupRow>({
    command(commands::kUndo, "&Undo"),
    kSeparator,
    command(commands::kCut, "&Cut"),
    command(commands::kCopy, "C&opy"),
    command(commands::kPaste, "&Paste"),
    command(commands::kDelete, "&Delete"),
});

inline constexpr auto kMain = std::to_array<PopupRow>({
    kSeparator,
    command(commands::kEditLine, "Edit &Line"),
    {PopupRow::Kind::Heading, {}, "Insert Menu"},
    command(commands::kAdvantageWizard, "&Ad/Disad/Quirk/Power..."),
    command(commands::kSkillWizard, "&Skill..."),
    command(commands::kSpellWizard, "Sp&ell..."),
    command(commands::kStatWizard, "S&tat..."),
    command(commands::kBonusWizard, "&Bonus..."),
    command(commands::kGroupWizard, "&Group..."),
    command(commands::kModWizard, "&Mod..."),
    kSeparator,
    command(commands::kAuthorWizard, "A&uthor Section Wizard..."),
    command(commands::kPackageWizard, "&Package..."),
    kSeparator,
    command(commands::kCommentLine, "Comment &Line"),
    command(commands::kComment, "&Comment"),
});

}  // namespace popups

inline constexpr auto kPopups = std::to_array<PopupTable>({
    {"MainRTFPopup", popups::kMain},
});

}  // namespace klt
