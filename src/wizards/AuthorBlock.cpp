#include "wizards/AuthorBlock.h"

#include <algorithm>

#include "checker/DocumentPass.h"
#include "platform/Paths.h"

namespace klt {
namespace {

constexpr size_t kLongestStatement = 74;

constexpr std::array<NoticeLine, 3> kBookLines = {{
    {{{"This file holds information taken from the ZENDA ", "BookName1"}, {" sourcebook. "}}},
    {{{"ZENDA ", "BookName2"}, {" is Copyright(C)", "CopyrightYears"}, {" by the publisher of ZENDA"}}},
    {{{"books and games. All rights reserved."}}},
}};

constexpr std::array<NoticeLine, 4> kGazetteLines = {{
    {{{"This file holds information taken from Gazette #", "GazetteNumber1"}}},
    {{{"Gazette is Copyright(C) by the publisher of ZENDA. All rights reserved."}}},
    {{{"Gazette #", "GazetteNumber2"}, {" can be obtained from the following Web Site:"}}},
    {{{"", "GazetteURL"}}},
}};

constexpr std::array<NoticeLine, 4> kInternetLines = {{
    {{{"Thanks to the publisher of ZENDA, this file holds information taken from the ZENDA rules ",
       "RulesName1"}}},
    {{{"by ", "RulesWriter"}, {". ZENDA ", "RulesName2"}, {" is based on the game "}}},
    {{{"by ", "OriginalRules"}, {". All rights reserved. See"}}},
    {{{"", "RulesURL"}, {" for a copy of these rules."}}},
}};

constexpr auto kStatements = std::to_array<std::string_view>({
    "* ZENDA is a registered trademark of the publisher of ZENDA, and its name",
    "* is used here by permission. All rights are reserved.",
    "*",
    "* The ZENDA game system is Copyright(C) by the publisher of ZENDA. All",
    "* rights reserved. This file holds material that is the original creation",
    "* of its author, for use with that game system. The publisher of ZENDA has",
    "* neither checked nor endorsed it.",
});
static_assert(std::ranges::all_of(kStatements, [](auto line) { return line.size() <= kLongestStatement; }));

std::string inOneLine(std::string_view text) {
    std::string line;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) == "\r\n") ++i;
        line += text[i] == '\r' || text[i] == '\n' ? ' ' : text[i];
    }
    return line;
}

/// The lines of a block, joined as they are added.
class Lines {
public:
    void add(std::string_view start, std::string_view text = {}) {
        if (!isFirst_) text_ += "\r\n";
        isFirst_ = false;
        text_.append(start).append(inOneLine(text));
    }
    void addStars() { add(std::string(74, '*')); }
    std::string take() { return std::move(text_); }

private:
    std::string text_;
    bool isFirst_ = true;
};

void addFile(Lines& lines, const AuthorBlock& block) {
    lines.add("* ZENDA(R) Character Assistant");
    for (size_t i = 0; i < kFileRows.size(); ++i) {
        const auto [name, before, behind] = kFileRows[i];
        std::string_view text = block.file[i];
        if (behind == kFileEnding) text = withoutFileEnding(text);
        lines.add("* ", std::string(before).append(text).append(behind));
    }
}

void addContact(Lines& lines, const AuthorBlock& block) {
    constexpr std::string_view kContact = "* Contact: ", kBelow = "*          ";
    static_assert(kContact.size() == kBelow.size());
    lines.add(kContact, block.author);
    for (const auto& address : block.addresses)
        if (&address == block.addresses.begin() || !address.empty()) lines.add(kBelow, address);
}

}  // namespace

const std::array<Notice, 3> kNotices = {{
    {"ZENDA Book", kBookLines},
    {"Gazette Article", kGazetteLines},
    {"Internet Rules", kInternetLines},
}};

std::string contentsLine(const ContentsRow& row, const FieldLookup& textOf) {
    return (row.text.empty() ? std::string(row.caption) : textOf(row.text)).append(row.phrase);
}

std::vector<std::string> noticeLines(const Notice& notice, const FieldLookup& textOf) {
    std::vector<std::string> lines;
    for (const NoticeLine& line : notice.lines) {
        std::string& text = lines.emplace_back();
        for (const NoticePart& part : line) {
            text += part.words;
            if (!part.field.empty()) text += textOf(part.field);
        }
    }
    return lines;
}

std::string authorBlockText(const AuthorBlock& block) {
    Lines lines;
    lines.add("");
    lines.add("");
    lines.add(kAuthorSection);
    lines.addStars();
    addFile(lines, block);
    lines.add("*");
    for (const auto& line : block.notice) lines.add("* ", line);
    lines.add("* ");
    lines.add("* Information in this file includes:");
    for (const auto& line : block.contents) lines.add("*    ", line);
    lines.addStars();
    addContact(lines, block);
    lines.addStars();
    for (const auto line : kStatements) lines.add(line);
    lines.addStars();
    return lines.take();
}

std::string authorBlockStyles(const std::string& text) {
    StyledText styled(text);
    CheckerState state;
    CheckDocument(styled, state);
    return styled.takeStyles();
}

}  // namespace klt
