#include "wizards/AuthorBlock.h"

#include <gmock/gmock.h>

#include "checker/DocumentPass.h"
#include "language/StyledText.h"
#include "text/LineEnds.h"
#include "tools/MergeFiles.h"

using namespace klt;

namespace {

std::string between(std::string_view notice, std::string_view contents, std::string_view addresses) {
    const std::string stars = std::string(74, '*') + '\n';
    std::string text = "\n\n[Author]\n" + stars +
                       "* ZENDA(R) Character Assistant\n"
                       "* Filename: harbor.klt\n"
                       "* Created: March 7, 2001\n"
                       "* Modified: April 1, 2002\n"
                       "* Requires TVM v2.2\u00df or later!\n"
                       "*\n";
    text.append(notice).append("* \n* Information in this file includes:\n").append(contents);
    text.append(stars).append("* Contact: Copper Lantern\n").append(addresses).append(stars);
    text +=
        "* ZENDA is a registered trademark of the publisher of ZENDA, and its name\n"
        "* is used here by permission. All rights are reserved.\n"
        "*\n"
        "* The ZENDA game system is Copyright(C) by the publisher of ZENDA. All\n"
        "* rights reserved. This file holds material that is the original creation\n"
        "* of its author, for use with that game system. The publisher of ZENDA has\n"
        "* neither checked nor endorsed it.\n";
    return withCrLf(text + stars.substr(0, 74));
}

/// The block of the notice at that index, with fields that hold their own names but for the digit.
AuthorBlock blockOf(size_t notice) {
    AuthorBlock block{.file = {"harbor", "March 7, 2001", "April 1, 2002", "2.2\u00df"},
                      .author = "Copper Lantern"};
    block.notice = noticeLines(kNotices.at(notice), [](std::string_view field) {
        return "<" + std::string(field.substr(0, field.find_first_of("12"))) + ">";
    });
    return block;
}

constexpr const char* kNoticeTexts[] = {
    "* This file holds information taken from the ZENDA <BookName> sourcebook. \n"
    "* ZENDA <BookName> is Copyright(C)<CopyrightYears> by the publisher of ZENDA\n"
    "* books and games. All rights reserved.\n",
    "* This file holds information taken from Gazette #<GazetteNumber>\n"
    "* Gazette is Copyright(C) by the publisher of ZENDA. All rights reserved.\n"
    "* Gazette #<GazetteNumber> can be obtained from the following Web Site:\n"
    "* <GazetteURL>\n",
    "* Thanks to the publisher of ZENDA, this file holds information taken from the ZENDA rules <RulesName>\n"
    "* by <RulesWriter>. ZENDA <RulesName> is based on the game \n"
    "* by <OriginalRules>. All rights reserved. See\n"
    "* <RulesURL> for a copy of these rules.\n",
};

TEST(AuthorBlock, HasTheNoticeOfItsSource) {
    for (size_t i = 0; i < kNotices.size(); ++i)
        EXPECT_EQ(authorBlockText(blockOf(i)), between(kNoticeTexts[i], "", "*          \n"));
}

TEST(AuthorBlock, NamesWhatIsThere) {
    AuthorBlock block = blockOf(0);
    for (const ContentsRow& row : kContentsRows)
        block.contents.push_back(contentsLine(row, [](std::string_view field) {
            EXPECT_EQ(field, "OtherName");
            return "Maps";
        }));
    block.addresses = {"", "", "c@example.org"};
    const auto text = between(kNoticeTexts[0],
                              "*    Ads, Disads, Quirks, Including Bonuses and Penalties.\n"
                              "*    Skills, Including Bonuses, Classes, Needs and Prereqs.\n"
                              "*    Spells, Including Bonuses, Coleges, Needs and Prereqs.\n"
                              "*    Powers, Including Bonuses and Categories.\n"
                              "*    Racial Packages, Including Racial Ads, Disads & Etc.\n"
                              "*    Other Packages, Including Ads, Disads, Skills & Etc.\n"
                              "*    Maps.\n",
                              "*          \n*          c@example.org\n");
    EXPECT_EQ(authorBlockText(block), text);
    block.file[0] = "harbor.KLT";
    EXPECT_EQ(authorBlockText(block), text) << "no ending twice";
}

TEST(AuthorBlock, RequiresNothingAndStaysComment) {
    EXPECT_NE(authorBlockText({}).find("\r\n* Filename: .klt\r\n* Created: \r\n* Modified: \r\n"
                                       "* Requires TVM v or later!\r\n*\r\n* \r\n* Information"),
              std::string::npos);
    AuthorBlock block = blockOf(1);
    const auto usual = authorBlockText(block);
    block.author = "Copper\r\nLantern";
    block.file = {"har\nbor", "a\rb", "c", "d"};
    block.contents = {"x\n[ADS]\ny"};
    const auto text = authorBlockText(block);
    EXPECT_NE(text.find("* Filename: har bor.klt\r\n* Created: a b\r\n"), std::string::npos);
    EXPECT_NE(text.find("*    x [ADS] y\r\n"), std::string::npos);
    EXPECT_NE(text.find("* Contact: Copper Lantern\r\n"), std::string::npos);

    StyledText styled("Version=2\r\n[ADS]\r\nOdd, 2" + text);
    CheckerState state;
    ErrorRuns errors;
    CheckDocument(styled, state, nullptr, &errors);
    EXPECT_TRUE(errors.empty());
    const auto styles = authorBlockStyles(text);
    EXPECT_EQ(styled.styles().substr(styled.text().find("\r\n\r\n[")), styles);
    EXPECT_EQ(styles[text.find("[Author]")], static_cast<char>(StyleCategory::Sections));
    EXPECT_EQ(styles[text.find("Information")], static_cast<char>(StyleCategory::Comments));

    const std::string with = "[ADS]\r\nOdd, 2" + usual;
    const auto comments = usual.substr(usual.find("\r\n***"));
    EXPECT_THAT(MergeTexts({with, with, "[ADS]\r\nEven, 2\r\n"}),
                testing::EndsWith("\r\n[AUTHOR]" + comments + "\r\n[ADS]\r\nOdd, 2\r\n\r\n\r\nEven, 2\r\n"));
}

}  // namespace
