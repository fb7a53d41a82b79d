#include "wizards/LinePlace.h"

#include <gmock/gmock.h>

#include "language/StyleCategory.h"
#include "support/MemoryTextArea.h"
#include "text/TextOperations.h"
#include "wizards/Categories.h"

using namespace klt;

namespace {

using Strings = std::vector<std::string>;

TEST(FillCategories, TakesTheLinesThatAHeadingStarts) {
    const std::tuple<const char*, std::string, Strings> rows[] = {
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
    for (const auto& [name, text, categories] : rows)
        EXPECT_EQ(FillCategories(text, "[Ads]"), categories) << name;
}

std::string withLineEnds(std::string_view text) {
    return FastReplace(text, "/", "\r\n");
}

TEST(GoToSubSection, LeavesTheCaretOnAnEmptyLine) {
    // The text, the subsection, those of the section and its place among them, and then the text with "^" at
    // the caret; a "/" is a line end.
    const std::tuple<const char*, const char*, const char*, Strings, int, const char*> rows[] = {
        {"newest first", "[S]/<A>/Old, 5/", "<A>", {"A"}, 0, "[S]/<A>/^/Old, 5/"},
        {"in any case", "[s]/<a> /Old, 5", "<A>", {"A"}, 0, "[s]/<a> /^/Old, 5"},
        {"no section", "x/", "<A>", {"A"}, 0, "x/[S]///<A>/^/"},
        {"glued to no comment", "* x", "<A>", {"A"}, 0, "* x/[S]///<A>/^/"},
        {"no text", "", "<A>", {"A"}, 0, "[S]///<A>/^/"},
        {"between two", "[S]/<A>/I, 1/<C>/J, 2/", "<B>", {"A", "B", "C"}, 1, "[S]/<A>/I, 1/<B>/^//<C>/J, 2/"},
        {"in front of one that is set in", "[S]/I, 1/ <C>/", "<B>", {"B", "C"}, 0, "[S]/I, 1/<B>/^// <C>/"},
        {"last in the section", "[S]/<A>/I, 1//[T]/", "<B>", {"A", "B"}, 1, "[S]/<A>/I, 1//<B>/^//[T]/"},
        {"last in the text", "[S]/I, 1/", "<B>", {"B"}, 0, "[S]/I, 1/<B>/^//"},
        {"no line end there", "[S]/I, 1", "<B>", {"B"}, 0, "[S]/I, 1/<B>/^/"},
        {"the next one is missing", "[S]/I, 1/[T]", "<A>", {"A", "X"}, 0, "[S]/I, 1/<A>/^//[T]"},
        {"missing in the last section too", "[S]/I, 1/", "<A>", {"A", "X"}, 0, "[S]/I, 1/<A>/^//"},
        {"any [ ends the section", "[S]/Item[x], 1/<A>/", "<A>", {"A"}, 0, "[S]/It/<A>/^/em[x], 1/<A>/"},
        {"found in an item too", "[S]/I, 1, needs(<A>)/<A>/", "<A>", {"A"}, 0, "[S]/I, 1, needs(<A>)/^/<A>/"},
        {"in a section that has none", "[s] x/I, 1/", "", {}, -1, "[s] x/^/I, 1/"},
        {"one that is not there", "x/", "", {}, -1, "x/[S]///^"},
    };
    for (const auto& [name, before, subsection, list, index, after] : rows) {
        MemoryTextArea document(withLineEnds(before));
        if (*subsection == '\0') {
            GoToSection(document, "[S]");
        } else {
            GoToSubSection(document, "[S]", subsection, {list, index});
        }
        EXPECT_EQ(document.SelLength(), 0) << name;
        auto text = std::string(document.Text());
        EXPECT_EQ(text.insert(static_cast<size_t>(document.SelStart()), "^"), withLineEnds(after)) << name;
    }
}

TEST(GoToSubSection, LaysTheStylesOfWhatItWrites) {
    MemoryTextArea document("x\r\n");
    const Strings list{"A"};
    GoToSubSection(document, "[Ads]", "<A>", {list, 0});
    document.SetSelText("I, 5");
    for (const auto& [text, style] : {std::pair("[Ads]", StyleCategory::Sections),
                                      {"<A>", StyleCategory::SubSections},
                                      {"I, 5", StyleCategory::NormalText}})
        EXPECT_EQ(document.StyleAt(document.Find(text, 0)), static_cast<StyleByte>(style)) << text;
}

TEST(ScrollToSection, BringsItsLineToTheTop) {
    MemoryTextArea document("a\r\nb\r\n[ads]\r\nc\r\nd");
    for (const auto& [section, line] : {std::pair("[Powers]", 0), {"[Ads]", 2}}) {
        ScrollToSection(document, section);
        EXPECT_EQ(document.FirstVisibleLine(), line);
    }
}

}  // namespace
