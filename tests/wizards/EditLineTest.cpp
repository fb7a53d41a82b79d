#include "wizards/EditLine.h"

#include <gtest/gtest.h>

#include "language/StyleCategory.h"
#include "support/MemoryTextArea.h"
#include "wizards/EditedBlock.h"
#include "wizards/LineTarget.h"

using namespace klt;

namespace {

using Kind = EditLineResult::Kind;

/// Takes the "^" out of the text and puts the caret there.
std::unique_ptr<MemoryTextArea> marked(std::string text) {
    const auto caret = text.find('^');
    text.erase(caret, 1);
    auto area = std::make_unique<MemoryTextArea>(text);
    area->SetSelStart(static_cast<Position>(caret));
    return area;
}

TEST(EditLine, FindsTheSection) {
    const std::string head =
        "Version=2\r\n* The version information above MUST be the first line of the data file\r\n";
    const struct {
        const char* name;
        std::string text;
        Kind kind;
        Section section;
        std::string selected;
    } rows[] = {
        {"in any case", "[aDs]\r\nI^tem, 5", Kind::Item, Section::Ads, "aDs"},
        {"a header belongs to the section above", "[ADS]\r\nI, 5\r\n[SKI^LLS]", Kind::Item, Section::Ads,
         "ADS"},
        {"other brackets are stepped over", "[BONUS]\r\n[x]\r\n* a [b\r\nI^", Kind::Item, Section::Bonus,
         "BONUS"},
        {"brackets in the item count not", "[MODS]\r\nI [ADS]^", Kind::Item, Section::Mods, "MODS"},
        {"the author", "[Ads]\r\n[author]\r\n*^", Kind::Author, Section::Author, "author"},
        {"the head", head + "I^", Kind::Head, Section::Other, head.substr(0, 82)},
        {"no brackets", "a\r\nb^c", Kind::Head, Section::Other, "a\r\nbc"},
        {"only others", "[x]\r\nb^", Kind::Head, Section::Other, "[x]\r\nb"},
    };
    for (const auto& row : rows) {
        const auto document = marked(row.text);
        const auto found = EditLine(*document);
        EXPECT_EQ(found.kind, row.kind) << row.name;
        EXPECT_EQ(found.section, row.section) << row.name;
        EXPECT_EQ(document->SelText(), row.selected) << row.name;
        EXPECT_EQ(found.EditLineStart, static_cast<Position>(row.text.rfind('\n', row.text.find('^')) + 1))
            << row.name;
    }
}

TEST(EditLine, FindsTheSubsection) {
    const struct {
        const char *name, *text, *subsection;
        bool isWholeHeading = false;
    } rows[] = {
        {"between its brackets", "[A]\r\n<x>\r\n<B c> d\r\nI^", "B c"},
        {"set in by a blank", "[A]\r\n <B>\r\nI^", "B"},
        {"not a comparison", "[A]\r\n<B>\r\nI, 5,\r\n\tneeds(ST<3, \r\n\t <4>)\r\nJ^", "B"},
        {"none", "[A]\r\nI^", ""},
        {"the whole heading", "[A]\r\n<SK:B>=14>\r\nI^", "SK:B>=14", true},
    };
    for (const auto& row : rows) {
        const auto document = marked(row.text);
        EXPECT_EQ(subsectionAbove(*document, document->SelStart(), row.isWholeHeading), row.subsection)
            << row.name;
    }
}

TEST(LoadSingleLine, TakesTheItemAndItsComment) {
    const struct {
        const char *name, *text, *line, *selected;
        const char* comment = "";
    } rows[] = {
        {"its line end stays", "a\r\nI^, 5\r\nb", "I, 5", "I, 5"},
        {"joined", "I^, 5,\r\n\tnotes(a _\r\n\tb |\r\n\tc)\r\nx", "I, 5, notes(a b | c)",
         "I, 5,\r\n\tnotes(a _\r\n\tb |\r\n\tc)"},
        {"from the caret's line on", "I, 5,\r\n\tnotes^(a)", " notes(a)", "\tnotes(a)"},
        {"open at the end of the text", "I^, 5,", "I, 5, ", "I, 5,"},
        {"a comment", "I^, 5, page(1) \t // a  b _", "I, 5, page(1)", "I, 5, page(1) \t // a  b _",
         " \t // a  b _"},
        {"no comment inside parentheses", "I^, 5, notes(http://x)", "I, 5, notes(http://x)",
         "I, 5, notes(http://x)"},
        {"but one behind them", "I^, 5, notes(a//b) // c", "I, 5, notes(a//b)", "I, 5, notes(a//b) // c",
         " // c"},
    };
    for (const auto& row : rows) {
        const auto document = marked(row.text);
        const auto item = LoadSingleLine(*document, document->SelStart());
        EXPECT_EQ(item.line, row.line) << row.name;
        EXPECT_EQ(item.comment, row.comment) << row.name;
        EXPECT_EQ(item.oldText, row.selected) << row.name;
        EXPECT_EQ(document->SelText(), row.selected) << row.name;
    }
}

TEST(EditLine, TakesBlocksAndPackages) {
    const struct {
        const char *name, *text, *selected;
        /// Of a package; nothing else has one.
        std::optional<const char*> line = {};
        const char* comment = "";
    } rows[] = {
        {"up to the next heading", "[BONUS]\r\n<a>\r\n+1 x\r\n+^2 y\r\n\r\n<b>", "+1 x\r\n+2 y\r\n"},
        {"up to the next section", "[GROUPS]\r\n<a>\r\nx^\r\n\t [B]", "x"},
        {"under a section's header", "[GROUPS]\r\nx^\r\n[B]\r\ny", "x"},
        {"the heading is the block's", "[GROUPS]\r\n<a>\r\nx\r\n <^b>\r\ny", "y"},
        {"marks amid a line are none", "[GROUPS]\r\n<a>\r\nx {b}\r\n {c}\r\nd <e>^[f]",
         "x {b}\r\n {c}\r\nd <e>[f]"},
        {"an empty one", "[GROUPS]\r\n<a^>\r\n<b>", ""},
        {"one without lines", "[GROUPS]\r\n<a^>", ""},
        {"a section's header belongs to the section above", "[GROUPS]\r\n<a>\r\nx\r\n[BON^US]\r\n+1 y", "x"},
        {"and the package above", "[PACKAGES]\r\n{P}\r\nX\r\n[A^DS]\r\ny", "{P}\r\nX", "P"},
        {"a brace in a comment", "[PACKAGES]\r\n{P=^d} // see {c}", "{P=d} // see {c}", "P=d", " // see {c}"},
        {"a package", "[PACKAGES]\r\n<a>\r\n{P=d}\r\nX^\r\nneeds(ST>=12)\r\n{Q}",
         "{P=d}\r\nX\r\nneeds(ST>=12)", "P=d"},
        {"at its header", "[PACKAGES]\r\n{P}\r\nX\r\n{Q^} // q\r\nY", "{Q} // q\r\nY", "Q", " // q"},
        {"at a continued header", "[PACKAGES]\r\n{P=a _\r\n\tb^}\r\nX", "{P=a _\r\n\tb}\r\nX", "P=a b"},
        {"a header alone", "[PACKAGES]\r\n{P^\r\n<a>", "{P", "P"},
        {"a subsection's heading belongs to the package above", "[PACKAGES]\r\n{P}\r\nX\r\n<a^>", "{P}\r\nX",
         "P"},
        {"none in this section", "[x]\r\n{P}\r\n[PACKAGES]\r\n<a>\r\nX^", ""},
    };
    for (const auto& row : rows) {
        const auto document = marked(row.text);
        const auto place = document->SelStart();
        const bool isPackage = std::string_view(row.text).find("[PACKAGES]") != std::string_view::npos;
        const auto item = isPackage ? LoadPackage(*document, place) : LoadBlock(*document, place);
        ASSERT_EQ(item.has_value(), !isPackage || row.line.has_value()) << row.name;
        if (!item) continue;
        EXPECT_EQ(item->oldText, row.selected) << row.name;
        EXPECT_EQ(document->SelText(), row.selected) << row.name;
        EXPECT_EQ(item->line, row.line.value_or("")) << row.name;
        EXPECT_EQ(item->comment, row.comment) << row.name;
        EXPECT_TRUE(item->oldText.ends_with(item->block)) << row.name;
    }
}

TEST(ReplacedLine, GivesLinesTheirOwnWhereNoneStood) {
    const struct {
        const char *text, *written;
    } rows[] = {
        {"<a^>\r\n<b>", "<a>\r\nx\r\n<b>"}, {"<a^>", "<a>\r\nx"}, {"<a^>\r\n\r\n<b>", "<a>\r\nx\r\n<b>"}};
    for (const auto& row : rows) {
        const auto document = marked(row.text);
        const auto item = LoadBlock(*document, document->SelStart());
        EXPECT_TRUE(ReplacedLine([&] { return document.get(); }, item).write({"x"}));
        EXPECT_EQ(document->Text(), row.written);
    }
}

TEST(ReplacedLine, WritesOnlyWhereTheItemStillStands) {
    MemoryTextArea document("[ADS]\r\nI, 5\r\nJ, 6");
    TextArea* area = &document;
    const auto item = LoadSingleLine(document, 7);
    ReplacedLine target([&area] { return area; }, item);

    document.SetSelStart(document.Length());
    document.ColourRun(0, 7, static_cast<StyleByte>(StyleCategory::Sections));
    EXPECT_TRUE(target.write({"Longer, 7"}));
    EXPECT_EQ(document.StyleAt(7), static_cast<StyleByte>(StyleCategory::NormalText));
    EXPECT_EQ(document.Text(), "[ADS]\r\nLonger, 7\r\nJ, 6");
    document.Undo();
    EXPECT_EQ(document.Text(), "[ADS]\r\nI, 5\r\nJ, 6");
}

TEST(ReplacedLine, GoesWithTheTextAroundIt) {
    MemoryTextArea document("[ADS]\r\nI, 5\r\nJ, 6");
    TextArea* area = &document;
    const auto item = LoadSingleLine(document, 7);
    ReplacedLine target([&area] { return area; }, item);
    document.Select(8, 1);
    document.SetSelText("x");
    EXPECT_FALSE(target.write({"K, 7"})) << "it has changed";
    document.Undo();
    document.SetSelStart(0);
    document.SetSelText("[X]\r\nI, 5\r\n");
    EXPECT_TRUE(target.write({"K, 7"})) << "it has moved, and another like it has come";
    EXPECT_EQ(document.Text(), "[X]\r\nI, 5\r\n[ADS]\r\nK, 7\r\nJ, 6");
    document.SetText("J, 6\r\nI, 5");
    EXPECT_TRUE(target.write({"K, 7"})) << "it stands there once";
    document.SetText("I, 5\r\nI, 5");
    EXPECT_FALSE(target.write({"K, 7"})) << "it stands there twice";
    area = nullptr;
    EXPECT_FALSE(target.write({"K, 7"})) << "the document is closed";
}

}  // namespace
