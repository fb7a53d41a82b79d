// The real program, through a shell: what only a process of its own can show.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdlib>

#include "support/Scratch.h"

namespace klt {
namespace {

struct Shell {
    int status;
    std::string out;
    std::string err;
};

class Program : public testing::Test {
protected:
    Program() {
        writeBytes(home_ / "clean.klt", "[ADS]\r\nRaft, 5\r\n");
        writeBytes(home_ / "faulty.klt", "[XYZ\r\n");
        std::string many;
        for (int i = 0; i < 100'000; ++i) many += "<a\r\n";
        writeBytes(home_ / "many.klt", many);
    }

    // Runs a line in the scratch folder, where $klt is the program.
    Shell shell(const std::string& line) {
        const auto whole = "cd '" + home_.folder().path() + "' && klt='" KLT_BIN "/klt' && { " + line +
                           "\n} >out 2>err </dev/null";
        const int status = std::system(whole.c_str());
        EXPECT_TRUE(WIFEXITED(status)) << line;
        return {WEXITSTATUS(status), readBytes(home_ / "out"), readBytes(home_ / "err")};
    }

    ScratchHome home_;
};

TEST_F(Program, StatusAndStreams) {
    struct Row {
        const char* line;
        int status;
        const char* out;
        const char* err;
    };
    constexpr const char* kFault =
        "faulty.klt:1:1: error: no section has this name, or the header is not alone on its line\n";
    const std::array rows = {
        Row{"\"$klt\" check clean.klt", 0, "", ""},
        Row{"\"$klt\" check faulty.klt", 1, kFault, ""},
        Row{"\"$klt\" check none.klt faulty.klt", 2, kFault, "klt: none.klt: No such file or directory\n"},
        Row{"cat clean.klt | \"$klt\" check -", 0, "", ""},
        Row{"(cat clean.klt; sleep 0; echo '<a') | \"$klt\" check --color always - | cut -c 5-15", 0,
            "<stdin>:3:1\n", ""},
        Row{"cat many.klt many.klt many.klt | \"$klt\" check - | wc -l", 0, "300000\n", ""},
        Row{"\"$klt\" check many.klt | head -n 1", 0,
            "many.klt:1:1: error: the subsection header does not end in >\n", ""},
        Row{"{ \"$klt\" check many.klt; echo $? >&2; } | true", 0, "", "2\n"},
        Row{"\"$klt\" check many.klt >/dev/full", 2, "", "klt: standard output: No space left on device\n"},
        Row{"\"$klt\" check faulty.klt >&-", 2, "", "klt: standard output: Bad file descriptor\n"},
        Row{"\"$klt\" check - <&-", 2, "", "klt: <stdin>: Bad file descriptor\n"},
        Row{"\"$klt\" check none.klt 2>&-", 2, "", ""},
        Row{"ulimit -f 8; \"$klt\" check many.klt >big", 2, "", "klt: standard output: File too large\n"},
        Row{"echo '[ads]' >a.klt; \"$klt\" format -i a.klt none >&- 2>&-; cat a.klt", 0, "[ADS]\r\n", ""},
    };
    for (const auto& row : rows) {
        const auto ran = shell(row.line);
        EXPECT_EQ(ran.status, row.status) << row.line;
        EXPECT_EQ(ran.out, row.out) << row.line;
        EXPECT_EQ(ran.err, row.err) << row.line;
    }
}

TEST_F(Program, ColoursOnATerminalOnly) {
    // The program script(1) gives its command a terminal.
    struct Row {
        const char* variables;
        const char* options;
        bool coloured;
    };
    for (const auto& row :
         {Row{"NO_COLOR=", "", true}, Row{"NO_COLOR=1", "", false}, Row{"NO_COLOR=1", "--color always", true},
          Row{"NO_COLOR=", "--color never", false}}) {
        const auto ran = shell(std::string("env ") + row.variables + " script -qec \"'$klt' check " +
                               row.options + " faulty.klt\" /dev/null");
        EXPECT_EQ(ran.status, 1) << row.variables << " " << row.options << ran.err;
        EXPECT_EQ(ran.out.find('\x1b') != std::string::npos, row.coloured)
            << row.variables << " " << row.options << "\n"
            << ran.out;
    }
}

TEST_F(Program, HelpAndVersion) {
    EXPECT_NE(shell("\"$klt\" --help").out.find("Usage: klt "), std::string::npos);
    EXPECT_TRUE(shell("\"$klt\" --version").out.starts_with("klt "));
    const auto bare = shell("\"$klt\"");
    EXPECT_EQ(bare.status, 2);
    EXPECT_TRUE(bare.err.starts_with("klt: ")) << bare.err;
}

}  // namespace
}  // namespace klt
