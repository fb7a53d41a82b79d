#include "cli/CheckCommand.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "support/RunKlt.h"
#include "support/Scratch.h"

namespace klt {
namespace {

constexpr const char* kClean = "[ADS]\r\nKeen Ear, 5, gives(+1 To ST)\r\n";
constexpr const char* kFaulty =
    "[ADS]\r\nKeen Ear, 5, bonus(+1 To ST)\r\n\u00c9tude, 5, gives(+1 To Other)\r\n";

class CheckCommand : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(chdir(home_.folder().path().c_str()), 0);
        writeBytes("clean.klt", kClean);
        writeBytes("faulty.klt", kFaulty);
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
        "faulty.klt:2:1: error: no such tag\n"
        "faulty.klt:3:23: error: this keyword is for needs only\n";
    struct Row {
        std::vector<std::string> arguments;
        std::string input;
        Ran ran;
    };
    const std::vector<Row> rows = {
        {{"clean.klt"}, "", {0, "", ""}},
        {{"empty.klt"}, "", {0, "", ""}},
        {{"faulty.klt"}, "", {1, faults, ""}},
        {{"clean.klt", "faulty.klt", "clean.klt"}, "", {1, faults, ""}},
        {{"latin.klt"}, "", {1, "latin.klt:2:23: error: this keyword is for needs only\n", ""}},
        {{home_ / "ONE.KLT"},
         "",
         {1, home_ / "one.klt:1:1: error: the subsection header does not end in >\n", ""}},
        {{"--quiet", "faulty.klt"}, "", {1, "", ""}},
        {{"--quiet", "--format", "sarif", "faulty.klt"}, "", {1, "", ""}},
        {{"none.klt"}, "", {2, "", "klt: none.klt: No such file or directory\n"}},
        {{"none.klt", "faulty.klt"}, "", {2, faults, "klt: none.klt: No such file or directory\n"}},
        {{".", "clean.klt"}, "", {2, "", "klt: .: Is a directory\n"}},
        {{"-"}, kClean, {0, "", ""}},
        {{"-"},
         "[XYZ\n",
         {1, "<stdin>:1:1: error: no section has this name, or the header is not alone on its line\n", ""}},
        {{"-", "-"}, kClean, {2, "", "klt: <stdin>: It can be read only once\n"}},
        {{"--color", "always", "-"},
         "<a",
         {1, "\x1b[1m<stdin>:1:1:\x1b[0m \x1b[1;31merror:\x1b[0m the subsection header does not end in >\n",
          ""}},
    };
    for (const auto& row : rows) {
        auto arguments = row.arguments;
        arguments.insert(arguments.begin(), "check");
        EXPECT_EQ(runKlt(arguments, row.input), row.ran) << testing::PrintToString(row.arguments);
    }
}

TEST_F(CheckCommand, EachFileBeginsWithoutASection) {
    EXPECT_EQ(runKlt({"check", "section.klt", "item.klt"}), (Ran{0, "", ""}));
    EXPECT_EQ(runKlt({"check", "-"}, readBytes("section.klt") + "\n" + readBytes("item.klt")),
              (Ran{1, "<stdin>:3:6: error: not a cost\n", ""}));
}

TEST_F(CheckCommand, Runs) {
    struct Row {
        std::vector<std::string> arguments;
        std::string input;
        int status;
        std::string out;
    };
    const char* kRounding =
        "11 17 Package Items and Item Tags\n17 19 Keywords\n19 20 Package Items and Item Tags\n";
    const char* kGives = "0 1 Math Characters\n3 5 Keywords\nTEXT +1 To ST\n";
    const std::vector<Row> rows = {
        {{"-"}, "", 0, ""},
        {{"-"},
         "\n* \u00e9\n[ADS]\nRaft, 5, page(H1)\n",
         0,
         "2 6 Comments\n8 13 Sections\n24 29 Package Items and Item Tags\n31 32 Package Items and Item "
         "Tags\n"},
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
        {{"--field", "needs(", "ST=2"},
         "",
         0,
         "0 2 Keywords\n2 3 Math Characters\n3 4 Keywords\nTEXT ST=2\n"},
        {{"--field", "needs(", "--pass-has-run", "ST=2"}, "", 0, "2 3 Math Characters\nTEXT ST=2\n"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"check", "--format", "runs"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        EXPECT_EQ(runKlt(arguments, row.input), (Ran{row.status, row.out, ""}))
            << testing::PrintToString(row.arguments);
    }
}

TEST_F(CheckCommand, OutputThatCanNotBeWritten) {
    std::signal(SIGPIPE, SIG_IGN);
    const StreamFile in, err;
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(runProgram({"check", "faulty.klt"}, {in.number(), full, err.number()}), 2);
    EXPECT_EQ(err.bytes(), "klt: standard output: No space left on device\n");
    close(full);

    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const StreamFile quiet;
    EXPECT_EQ(runProgram({"check", "faulty.klt"}, {in.number(), ends[1], quiet.number()}), 2);
    EXPECT_EQ(quiet.bytes(), "");
    close(ends[1]);
}

}  // namespace
}  // namespace klt
