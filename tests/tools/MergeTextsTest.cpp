#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "support/MergeFault.h"
#include "text/LineEnds.h"
#include "tools/MergeFiles.h"

namespace klt {
namespace {

TEST(MergeTexts, Rows) {
    const std::tuple<const char*, std::vector<const char*>, const char*> rows[] = {
        {"nothing", {""}, ""},
        {"order of the language, one header each, in any case",
         {"[MODS]\nm\n[ads]\na", "[Ads]\nb\n[AUTHOR]\nme\n", "[ADS]\n[BONUS]"},
         "[AUTHOR]\nme\n[ADS]\na\nb\n[BONUS]\n[MODS]\nm\n"},
        {"version lines, and the comment that belongs to them",
         {"Version=2\n* The version information above MUST be the first line of the data file\n* x\n[ADS]\n"
          "version=2\na",
          "* y\nVersion=2\n"},
         "* x\n* y\n[ADS]\na\n"},
        {"subsections",
         {"[ADS]\n0\n<Sea>\na\n<Land>\nb", "[ADS]\n<SEA>\nc\n[ADS]\n1"},
         "[ADS]\n0\n1\n<Sea>\na\nc\n<Land>\nb\n"},
        {"subsections beyond ASCII",
         {"[ADS]\n<\u00c9t\u00e9>\na", "[ADS]\n<\u00e9T\u00c9>\nb"},
         "[ADS]\n<\u00c9t\u00e9>\na\nb\n"},
        {"equal items",
         {"[ADS]\na\na // c\n<S>\na\na", "[ADS]\nA\na // c\na\n<S>\nb\na\n[DISADS]\na"},
         "[ADS]\na\na // c\nA\n<S>\na\nb\n[DISADS]\na\n"},
        {"before the first section", {"p\n<S>\nq\n[ADS]", "p\n* r\n\n[ADS]"}, "p\n* r\n\n<S>\nq\n[ADS]\n"},
        {"a mark at the end",
         {"[ADS]\na,", "[ADS]\nb |\n\nc", "[ADS]\na,\n", "[ADS]\nd _\n\te,\n\n"},
         "[ADS]\na,\n\nb |\n\nc\nd _\n\te,\n\n"},
        {"a mark takes in what looks like a header",
         {"[ADS]\na,\n[MODS]", "[ADS]\nb"},
         "[ADS]\na,\n[MODS]\nb\n"},
        {"packages",
         {"[PACKAGES]\n<C>\n{P=x}\nADD=1\nADD=1\n{Q _\n}\nADD=2\n{R _",
          "[PACKAGES]\n<c>\n{P=x}\nADD=1\nADD=1\n{Q _\n}\n* n\nADD=2\n{P=x}\nADD=1\n{R _\n"},
         "[PACKAGES]\n<C>\n{P=x}\nADD=1\nADD=1\n{Q _\n}\nADD=2\n{R _\n\n{Q _\n}\n* n\nADD=2\n{P=x}\nADD=1\n"},
        {"lines of no package come into none",
         {"[PACKAGES]\nADD=0\n{P}\nADD=1", "[PACKAGES]\n[X]\nADD=0\nADD=2"},
         "[PACKAGES]\nADD=0\n[X]\nADD=2\n{P}\nADD=1\n"},
        {"authors",
         {"[Author]\n* me\n<x>\n\n[ADS]", "[AUTHOR]\n* me\n<x>\n\n", "[AUTHOR]\n* me\nyou,"},
         "[AUTHOR]\n* me\n<x>\n\n* me\nyou,\n\n[ADS]\n"},
        {"headers that are none",
         {"[ADS]\na\n[FOO]\nb\n<x\nc", "[ADS]\n<x\n[FOO]\n[FOO]"},
         "[ADS]\na\n[FOO]\nb\n<x\nc\n<x\n[FOO]\n[FOO]\n"},
        {"several sections in one header",
         {"[ADS] [DISADS]\na\n[ADS]\nb", "[PACKAGES]\nc\n[ads] [disads]\na\nd"},
         "[ADS]\nb\n[PACKAGES]\nc\n[ADS] [DISADS]\na\nd\n"},
        {"comments above an item that is left out",
         {"[ADS]\n* 1\na\n* 2\nb\n", "[ADS]\n* 1\na\n\n* 3\nb\n* 4\n", "[ADS]\n* 1\nc\n* end"},
         "[ADS]\n* 1\na\n* 2\nb\n\n* 3\n* 4\n* 1\nc\n* end\n"},
        {"comments above a header that is joined",
         {"[ADS]\n* 1\n<S>\na\n* t\n[MODS]", "[ADS]\n* 2\n<S>\nb\n", "[ADS]\n* 1\n<s>\nc"},
         "[ADS]\n* 1\n<S>\na\n* t\n* 2\nb\nc\n[MODS]\n"},
    };
    for (const auto& [name, texts, wanted] : rows) {
        std::vector<std::string> inputs;
        std::transform(texts.begin(), texts.end(), std::back_inserter(inputs), withCrLf);
        const auto merged = MergeTexts(inputs);
        EXPECT_EQ(merged, std::string(kNewDocumentText) + "\r\n" + withCrLf(wanted)) << name;
        EXPECT_EQ(mergeFault(inputs, merged), "") << name;
    }
}

TEST(MergeTexts, TellsOfUnknownHeadings) {
    const std::tuple<const char*, std::vector<const char*>, UnknownHeadings> rows[] = {
        {"none",
         {"[ads]\n<a>\n[ADS] [DISADS]\n[S\n[AUTHOR]\n<x\n[PACKAGES]\n{P _\n}", "[ADS]\na,\n[FOO]"},
         {}},
        {"by text and line",
         {"p\n[FOO]", "", "* c\n\n[ADS]\na,\nb\n [Foo] \n[FOO]\nc\n<x y"},
         {{0, 2, "[FOO]"}, {2, 6, "[Foo]"}, {2, 7, "[FOO]"}, {2, 9, "<x y"}}},
        {"in a block",
         {"[AUTHOR]\nme\n[SKILS]\n[PACKAGES]\n{P}\n[X]\nADD=1\n<y"},
         {{0, 3, "[SKILS]"}, {0, 6, "[X]"}, {0, 8, "<y"}}},
    };
    for (const auto& [name, texts, wanted] : rows) {
        std::vector<std::string> inputs;
        std::transform(texts.begin(), texts.end(), std::back_inserter(inputs), withCrLf);
        UnknownHeadings unknown;
        MergeTexts(inputs, &unknown);
        EXPECT_EQ(unknown, wanted) << name;
    }
}

constexpr std::string_view kLines =
    "Version=2\n* The version information above MUST be the first line of the data file\n"
    "\n  \n\t\n* one\n * two\n,\n_\n"
    "[ADS]\n[ads] \n[SKILLS]\n[PACKAGES]\n[PACKAGES]\n[Author]\n[BONUS]\n[FOO]\n[ADS] [DISADS]\n[S\n"
    "<Sea>\n <SEA> \n<\u00c9>\n<\u00e9>\n<cut\n"
    "Raft, 5\nraft, 5\nRaft, 5 // good\nRaft, 5,\nNet, P/A // x,\na |\n+1 DI:Bad Sight\n"
    "Oar, 5, gives(+1 to ST, _\n\tgives(+@INT(2)\n"
    "{Fisher}\n{Fisher _\n {no}\n{Fisher=Net,\n"
    "ADD=SK:Oar .AT. 2\nadd=AD:Raft\nEMESSAGE=a .WITH. b\n";

TEST(MergeTexts, NoLineIsLostOrMadeUp) {
    std::vector<std::string> lines;
    std::istringstream all{std::string(kLines)};
    for (std::string line; std::getline(all, line);) lines.push_back(line);
    std::minstd_rand random(7);
    const auto below = [&](size_t count) { return random() % count; };
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::string> inputs(1 + below(4));
        for (auto& input : inputs) {
            for (auto count = below(30); count > 0; --count) {
                if (!input.empty()) input += "\r\n";
                input += lines[below(lines.size())];
            }
        }
        const auto merged = MergeTexts(inputs);
        ASSERT_EQ(mergeFault(inputs, merged), "") << testing::PrintToString(inputs) << "\n" << merged;
        ASSERT_EQ(MergeTexts({merged}), merged);
    }
}

}  // namespace
}  // namespace klt
