#include "lines/LinePlace.h"

#include <gmock/gmock.h>

#include "language/StyleCategory.h"
#include "lines/Categories.h"
#include "support/MemoryTextArea.h"

using namespace klt;

namespace {

using Strings = std::vector<std::string>;

TEST(FillCategories, TakesTheLinesThatAHeadingStarts) {
    const struct {
        const char* name;
        std::string text;
        Strings categories;
    } rows[] = {
        {"in their order", "x\r\n[ADS]\r\n<B>\r\nI, 5\r\n<A>\r\n", {"B", "A"}},
        {"the section's only", "<Z>\r\n[Ads]\r\n<A>\r\n[Disads]\r\n<B>", {"A"}},
        {"an indented [ is none of a section", "[Ads]\r\n  [x\r\n<A>", {"A"}},
        {"set in by one blank", "[Ads]\r\n <A>\r\n  <B>\r\n\t<C>\r\n", {"A"}},
        {"not inside an item", "[Ads]\r\nI, 5, needs(ST<\r\n<A>\r\nJ, 1, needs(<B>)", {"A"}},
        {"behind the > costs letters", "[Ads]\r\n<A>xy\r\n<B> \r\n", {"A>x", "B"}},
        {"empty ones", "[Ads]\r\n<>\r\n<A>\r\n<>\r\n<", {"", "A", "", ""}},
        {"no section", "<A>\r\n<B>", {}},
        {"no heading", "[Ads]\r\nI, 5\r\n[Disads]\r\n<B>", {}},
        {"anywhere in the text", "* see [ads]\r\n<A>\r\n[Ads]\r\n<B>\r\n", {"A"}},
        {"beyond ASCII", "[Ads]\r\n<Gewürz\u00df>", {"Gewürz\u00df"}},
    };
    for (const auto& row : rows) EXPECT_EQ(FillCategories(row.text, "[Ads]"), row.categories) << row.name;
}

struct Placed {
    const char* name;
    std::string text;
    std::string subsection;
    Strings list;
    int index;
    /// "^" where the caret is.
    std::string result;
};

TEST(GoToSubSection, LeavesTheCaretOnAnEmptyLine) {
    const Placed rows[] = {
        {"newest first", "[Ads]\r\n<A>\r\nOld, 5\r\n", "<A>", {"A"}, 0, "[Ads]\r\n<A>\r\n^\r\nOld, 5\r\n"},
        {"in any case", "[ADS]\r\n<a> \r\nOld, 5", "<A>", {"A"}, 0, "[ADS]\r\n<a> \r\n^\r\nOld, 5"},
        {"no section", "x\r\n", "<A>", {"A"}, 0, "x\r\n[Ads]\r\n\r\n\r\n<A>\r\n^\r\n"},
        {"glued to no comment", "* x", "<A>", {"A"}, 0, "* x\r\n[Ads]\r\n\r\n\r\n<A>\r\n^\r\n"},
        {"no text", "", "<A>", {"A"}, 0, "[Ads]\r\n\r\n\r\n<A>\r\n^\r\n"},
        {"between two",
         "[Ads]\r\n<A>\r\nI, 1\r\n<C>\r\nJ, 2\r\n",
         "<B>",
         {"A", "B", "C"},
         1,
         "[Ads]\r\n<A>\r\nI, 1\r\n<B>\r\n^\r\n\r\n<C>\r\nJ, 2\r\n"},
        {"in front of one that is set in",
         "[Ads]\r\nI, 1\r\n <C>\r\n",
         "<B>",
         {"B", "C"},
         0,
         "[Ads]\r\nI, 1\r\n<B>\r\n^\r\n\r\n <C>\r\n"},
        {"last in the section",
         "[Ads]\r\n<A>\r\nI, 1\r\n\r\n[Disads]\r\n",
         "<B>",
         {"A", "B"},
         1,
         "[Ads]\r\n<A>\r\nI, 1\r\n\r\n<B>\r\n^\r\n\r\n[Disads]\r\n"},
        {"last in the text", "[Ads]\r\nI, 1\r\n", "<B>", {"B"}, 0, "[Ads]\r\nI, 1\r\n<B>\r\n^\r\n\r\n"},
        {"no line end there", "[Ads]\r\nI, 1", "<B>", {"B"}, 0, "[Ads]\r\nI, 1\r\n<B>\r\n^\r\n"},
        {"the next one is missing: in front of the section's end",
         "[Ads]\r\nI, 1\r\n[Disads]",
         "<A>",
         {"A", "X"},
         0,
         "[Ads]\r\nI, 1\r\n<A>\r\n^\r\n\r\n[Disads]"},
        {"any [ ends the section",
         "[Ads]\r\nItem[x], 1\r\n<A>\r\n",
         "<A>",
         {"A"},
         0,
         "[Ads]\r\nIt\r\n<A>\r\n^\r\nem[x], 1\r\n<A>\r\n"},
        {"found in an item too",
         "[Ads]\r\nI, 1, needs(<A>)\r\n<A>\r\n",
         "<A>",
         {"A"},
         0,
         "[Ads]\r\nI, 1, needs(<A>)\r\n^\r\n<A>\r\n"},
    };
    for (const auto& row : rows) {
        MemoryTextArea document(row.text);
        GoToSubSection(document, "[Ads]", row.subsection, {row.list, row.index});
        auto text = std::string(document.Text());
        EXPECT_EQ(document.SelLength(), 0) << row.name;
        EXPECT_EQ(text.insert(static_cast<size_t>(document.SelStart()), "^"), row.result) << row.name;
    }
}

TEST(GoToSubSection, LaysTheStylesOfWhatItWrites) {
    MemoryTextArea document("x\r\n");
    const Strings list{"A"};
    GoToSubSection(document, "[Ads]", "<A>", {list, 0});
    document.SetSelText("I, 5");
    const auto styleOf = [&document](std::string_view text) {
        return static_cast<StyleCategory>(
            document.StyleAt(static_cast<Position>(document.Text().find(text))));
    };
    EXPECT_EQ(styleOf("[Ads]"), StyleCategory::Sections);
    EXPECT_EQ(styleOf("<A>"), StyleCategory::SubSections);
    EXPECT_EQ(styleOf("I, 5"), StyleCategory::NormalText);
}

TEST(ScrollToSection, BringsItsLineToTheTop) {
    MemoryTextArea document("a\r\nb\r\n[ads]\r\nc\r\nd");
    ScrollToSection(document, "[Powers]");
    EXPECT_EQ(document.FirstVisibleLine(), 0);
    ScrollToSection(document, "[Ads]");
    EXPECT_EQ(document.FirstVisibleLine(), 2);
}

}  // namespace
