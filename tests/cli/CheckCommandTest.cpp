#include "cli/CheckCommand.h"

#include <unistd.h>

#include "support/RunKlt.h"

namespace klt {
namespace {

using Words = std::vector<std::string>;

constexpr const char* kClean = "[ADS]\r\nKeen Ear, 5, gives(+1 To ST)\r\n";

class CheckCommand : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(chdir(home_.folder().path().c_str()), 0);
        writeBytes("clean.klt", kClean);
        writeBytes("faulty.klt",
                   "[ADS]\r\nKeen Ear, 5, bonus(+1 To ST)\r\n\u00c9tude, 5, gives(+1 To Other)\r\n");
        writeBytes("latin.klt", "[ADS]\n\xC9tude, 5, gives(+1 To Other)\n");
        writeBytes("section.klt", "[ADS]\r\nRaft, 5");
        writeBytes("item.klt", "Raft, x");
        writeBytes("one.klt", "<a");
        writeBytes("empty.klt", "");
    }
    ScratchHome home_;
};

TEST_F(CheckCommand, InputsOutputsAndStatus) {
    const std::string faults =
        "faulty.klt:2:1: error: no such tag: bonus(\n"
        "faulty.klt:3:23: error: this keyword is for needs only: Other\n";
    const std::string notClosed = " the subsection header does not end in >\n";
    const std::tuple<Words, std::string, Ran> rows[] = {
        {{"clean.klt"}, "", {0, "", ""}},
        {{"empty.klt"}, "", {0, "", ""}},
        {{"faulty.klt"}, "", {1, faults, ""}},
        {{"clean.klt", "faulty.klt", "clean.klt"}, "", {1, faults, ""}},
        {{"latin.klt"}, "", {1, "latin.klt:2:23: error: this keyword is for needs only: Other\n", ""}},
        {{home_ / "ONE.KLT"}, "", {1, home_ / "one.klt:1:1: error:" + notClosed, ""}},
        {{"--quiet", "faulty.klt"}, "", {1, "", ""}},
        {{"faulty.klt", "--format=sarif", "-q"}, "", {1, "", ""}},
        {{"none.klt"}, "", {2, "", "klt: none.klt: No such file or directory\n"}},
        {{"none.klt", "faulty.klt"}, "", {2, faults, "klt: none.klt: No such file or directory\n"}},
        {{".", "clean.klt"}, "", {2, "", "klt: .: Is a directory\n"}},
        {{"-"}, kClean, {0, "", ""}},
        {{"-", "-"}, kClean, {2, "", "klt: <stdin>: It can be read only once\n"}},
        {{"--color", "always", "-"},
         "<a",
         {1, "\x1b[1m<stdin>:1:1:\x1b[0m \x1b[1;31merror:\x1b[0m" + notClosed, ""}},
        // Each file begins without a section.
        {{"section.klt", "item.klt"}, "", {0, "", ""}},
        {{"-"}, "[ADS]\r\nRaft, 5\nRaft, x", {1, "<stdin>:3:6: error: not a cost: x\n", ""}},
    };
    for (const auto& [words, input, ran] : rows) {
        auto arguments = words;
        arguments.insert(arguments.begin(), "check");
        EXPECT_EQ(runKlt(arguments, input), ran) << testing::PrintToString(words);
    }
}

TEST_F(CheckCommand, FullShowsTheLines) {
    const ScopedVariable width("COLUMNS", "30");
    const std::tuple<Words, std::string, std::string> rows[] = {
        {{"clean.klt"}, "", ""},
        {{"latin.klt"},
         "",
         "latin.klt:2:23: error: this keyword is for needs only: Other\n"
         "\u00c9tude, 5, gives(+1 To Other)\n"
         "                      ^~~~~\n"},
        // The file's own case, which a check puts right. The caret is below the word that is named.
        {{"-"},
         "[ads]\nKeen Ear, 5, GIVES(+1 TO ST), Nots(x)\n",
         "<stdin>:2:1: error: no such tag: Nots(\n"
         "..., GIVES(+1 TO ST), Nots(x)\n"
         "   ~~~~~~~~~~~~~~~~~~~^~~~~~~\n"},
        // A run over several lines.
        {{"-"},
         "[ADS]\nKeen Ear, 5,\n nots(x)\n",
         "<stdin>:2:1: error: no such tag: nots(\nKeen Ear, 5,\n^~~~~~~~~~~~\n"},
        {{"--color", "always", "-"},
         "a\n<b",
         "\x1b[1m<stdin>:2:1:\x1b[0m \x1b[1;31merror:\x1b[0m the subsection header does not end in >\n"
         "<b\n\x1b[1;31m^~\x1b[0m\n"},
        {{"--field", "cost(", "1x"}, "", "field:1:1: error: not a cost: 1x\n1x\n^~\n"},
    };
    for (const auto& [words, input, out] : rows) {
        Words arguments = {"check", "--format", "full"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        EXPECT_EQ(runKlt(arguments, input), (Ran{out.empty() ? 0 : 1, out, ""}))
            << testing::PrintToString(words);
    }
}

TEST_F(CheckCommand, Runs) {
    const char* kRounding =
        "11 17 Package Items and Item Tags\n17 19 Keywords\n19 20 Package Items and Item Tags\n";
    const char* kGives = "0 1 Math Characters\n3 5 Keywords\nTEXT +1 To ST\n";
    const std::tuple<Words, std::string, int, std::string> rows[] = {
        {{"-"}, "", 0, ""},
        {{"-"},
         "\n* \u00e9\n[ADS]\nRaft, 5, page(H1)\n",
         0,
         "2 6 Comments\n8 13 Sections\n24 29 Package Items and Item Tags\n"
         "31 32 Package Items and Item Tags\n"},
        // Neighbours of one style are one run, also where they came from two lines of a header.
        {{"-"}, "[PACKAGES]\n{A _\nB}\n", 0, "0 10 Sections\n12 20 Package Headers\n"},
        {{"--preview", "[MODS]", "-"}, "Wide, +5%, round(up)", 0, kRounding},
        {{"--preview", "MODS", "-"}, "Wide, +5%, round(up)", 0, kRounding},
        {{"--preview", "[ADS]", "-"}, "[ADS]\r\nRaft, x", 1, "12 14 Syntax Error\n"},
        {{"--field", "gives(", "--pass-has-run", "+1 to ST"}, "", 0, kGives},
        {{"--field", "gives", "--pass-has-run", "+1 to ST"}, "", 0, kGives},
        {{"--field", "needs(", "a\nb ("}, "", 1, "0 6 Syntax Error\nTEXT a\r\nb (\n"},
        {{"--field", "name(", "a"}, "", 0, "TEXT a\n"},
        {{"--field", "cost(", ""}, "", 0, "TEXT \n"},
        {{"--field", "cost(", "--", "-x"}, "", 1, "0 2 Syntax Error\nTEXT -x\n"},
        {{"--field", "round(", "--section", "[STATS]", "NO"}, "", 0, "0 2 Keywords\nTEXT NO\n"},
        {{"--field", "round(", "--section", "[MODS]", "NO"}, "", 1, "0 2 Syntax Error\nTEXT NO\n"},
        // Before the first pass a word that nobody knows is coloured, too.
        {{"--field", "needs(", "X=2"}, "", 0, "0 1 Keywords\n1 2 Math Characters\n2 3 Keywords\nTEXT X=2\n"},
        {{"--field", "needs(", "--pass-has-run", "X=2"}, "", 0, "1 2 Math Characters\nTEXT X=2\n"},
    };
    for (const auto& [words, input, status, out] : rows) {
        Words arguments = {"check", "--format", "runs"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        EXPECT_EQ(runKlt(arguments, input), (Ran{status, out, ""})) << testing::PrintToString(words);
    }
}

}  // namespace
}  // namespace klt
