#pragma once

#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace klt {

inline constexpr std::string_view kAuthorSection = "[Author]";

/// A line about the data file: a control and the words around it, which the form shows beside it.
struct FileRow {
    std::string_view name;
    std::string_view before;
    std::string_view behind = {};
};
inline constexpr std::array<FileRow, 4> kFileRows = {{
    {"FileName", "Filename: ", ".klt"},
    {"Created", "Created: "},
    {"Modified", "Modified: "},
    {"TVMVersion", "Requires TVM v", " or later!"},
}};

/// A check box of what the file holds, and what its line says behind the caption.
struct ContentsRow {
    std::string_view name;
    std::string_view caption;
    std::string_view phrase;
    /// The control whose text stands in the line instead of the caption.
    std::string_view text = {};
};
inline constexpr std::array<ContentsRow, 7> kContentsRows = {{
    {"Ads", "Ads, Disads, Quirks", ", Including Bonuses and Penalties."},
    {"Skills", "Skills", ", Including Bonuses, Classes, Needs and Prereqs."},
    {"Spells", "Spells", ", Including Bonuses, Coleges, Needs and Prereqs."},
    {"Powers", "Powers", ", Including Bonuses and Categories."},
    {"RacePacks", "Racial Packages", ", Including Racial Ads, Disads & Etc."},
    {"OtherPacks", "Other Packages", ", Including Ads, Disads, Skills & Etc."},
    {"Other", "Other:", ".", "OtherName"},
}};

/// Fixed words of a notice, and the control whose text follows them; either may be empty.
struct NoticePart {
    std::string_view words = {};
    std::string_view field = {};
};
using NoticeLine = std::array<NoticePart, 3>;

/// The copyright notice of one kind of source: a page of the form, and lines of the block.
struct Notice {
    std::string_view tab;
    std::span<const NoticeLine> lines;
};
extern const std::array<Notice, 3> kNotices;

/// Two fields of a notice that hold the same.
struct FieldPair {
    std::string_view first, second;
};
inline constexpr std::array<FieldPair, 3> kPairedFields = {{
    {"BookName1", "BookName2"},
    {"GazetteNumber1", "GazetteNumber2"},
    {"RulesName1", "RulesName2"},
}};

/// Gives the text of the control of that name.
using FieldLookup = std::function<std::string(std::string_view field)>;

std::string contentsLine(const ContentsRow& row, const FieldLookup& textOf);
std::vector<std::string> noticeLines(const Notice& notice, const FieldLookup& textOf);

/// What an author's block says. Nothing is required; line ends become blanks.
struct AuthorBlock {
    /// In the order of `kFileRows`. The file's name may have its ending already.
    std::array<std::string, kFileRows.size()> file = {};
    std::vector<std::string> notice = {};
    std::vector<std::string> contents = {};
    std::string author = {};
    std::array<std::string, 3> addresses = {};
};

/// The block as it goes behind the text of a data file, with CR LF and without a line end behind it.
std::string authorBlockText(const AuthorBlock& block);
/// The style of each byte of such a text, as a pass lays them.
std::string authorBlockStyles(const std::string& text);

}  // namespace klt
