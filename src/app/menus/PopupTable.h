#pragma once

#include <array>
#include <span>
#include <string_view>

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
    command("E1", "&Undo"),
    kSeparator,
    command("E2", "&Cut"),
    command("E3", "C&opy"),
    command("E4", "&Paste"),
    command("E5", "&Delete"),
});

inline constexpr auto kMain = std::to_array<PopupRow>({
    kSeparator,
    command("E6", "Edit &Line"),
    {PopupRow::Kind::Heading, {}, "Insert Menu"},
    command("I1", "&Ad/Disad/Quirk/Power..."),
    command("I2", "&Skill..."),
    command("I3", "Sp&ell..."),
    command("I4", "S&tat..."),
    command("I5", "&Bonus..."),
    command("I6", "&Group..."),
    command("I7", "&Mod..."),
    kSeparator,
    command("I8", "A&uthor Section Wizard..."),
    command("I9", "&Package..."),
    kSeparator,
    command("I10", "Comment &Line"),
    command("I11", "&Comment"),
});

inline constexpr auto kMailTo = std::to_array<PopupRow>({
    kSeparator,
    command("E7", "&Select All"),
    kSeparator,
    command("H1", "&Help"),
    command("MailTo", "&Mail to"),
});

inline constexpr auto kMultiItem = std::to_array<PopupRow>({
    command("E6", "Edit &Line"),
    command("E7", "&Select All"),
    kSeparator,
    command("H1", "&Help"),
});

}  // namespace popups

inline constexpr auto kPopups = std::to_array<PopupTable>({
    {"MainRTFPopup", popups::kMain},
    {"MailToRTFPopup", popups::kMailTo},
    {"MultiItemRTFPopup", popups::kMultiItem},
});

}  // namespace klt
