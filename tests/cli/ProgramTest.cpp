// The real program, through a shell: what only a process of its own can show.

#include <sys/wait.h>

#include "support/RunKlt.h"

namespace klt {
namespace {

class Program : public testing::Test {
protected:
    Program() {
        writeBytes(home_ / "clean.klt", "[ADS]\r\nRaft, 5\r\n");
        writeBytes(home_ / "faulty.klt", "[XYZ\r\n");
        std::string many;
        for (int i = 0; i < 100'000; ++i) many += "<a\r\n";
        writeBytes(home_ / "many.klt", many);
    }

    // Runs a line in the scratch folder.
    Ran shell(const std::string& line) {
        const auto whole = "cd '" + home_.folder().path() + "' && klt() { '" KLT_BIN "/klt' \"$@\"; } && { " +
                           line + "\n} >out 2>err </dev/null";
        const int status = std::system(whole.c_str());
        EXPECT_TRUE(WIFEXITED(status)) << line;
        return {WEXITSTATUS(status), readBytes(home_ / "out"), readBytes(home_ / "err")};
    }

    ScratchHome home_;
};

TEST_F(Program, StatusAndStreams) {
    constexpr const char* kFault =
        "faulty.klt:1:1: error: no section has this name, or the header is not alone on its line\n";
    constexpr const char* kNotClosed = "many.klt:1:1: error: the subsection header does not end in >\n";
    constexpr const char* kFull = "klt: standard output: No space left on device\n";
    const std::pair<const char*, Ran> rows[] = {
        {"klt check none.klt faulty.klt", {2, kFault, "klt: none.klt: No such file or directory\n"}},
        {"cat clean.klt | klt check -", {0, "", ""}},
        {"(cat clean.klt; sleep 0; echo '<a') | klt check --color always - | cut -c 5-15",
         {0, "<stdin>:3:1\n", ""}},
        {"cat many.klt many.klt many.klt | klt check - | wc -l", {0, "300000\n", ""}},
        {"klt check many.klt | head -n 1", {0, kNotClosed, ""}},
        {"{ klt check many.klt; echo $? >&2; } | true", {0, "", "2\n"}},
        {"klt check many.klt >/dev/full", {2, "", kFull}},
        {"klt check faulty.klt >&-", {2, "", "klt: standard output: Bad file descriptor\n"}},
        {"klt check - <&-", {2, "", "klt: <stdin>: Bad file descriptor\n"}},
        {"klt check none.klt 2>&-", {2, "", ""}},
        {"ulimit -f 8; klt check many.klt >big", {2, "", "klt: standard output: File too large\n"}},
        {"echo '[ads]' >a.klt; klt format -i a.klt none >&- 2>&-; cat a.klt", {0, "[ADS]\r\n", ""}},
        {"klt --help | grep -o '^Usage: klt '", {0, "Usage: klt \n", ""}},
        {"klt --version | cut -c -4", {0, "klt \n", ""}},
        {"klt 2>bare || { head -n 1 bare | cut -c -5; exit 2; }", {2, "klt: \n", ""}},
    };
    for (const auto& [line, ran] : rows) EXPECT_EQ(shell(line), ran) << line;
}

TEST_F(Program, ColoursOnATerminalOnly) {
    // The program script(1) gives its command a terminal.
    const std::tuple<std::string, std::string, bool> rows[] = {
        {"NO_COLOR=", "", true},
        {"NO_COLOR=1", "", false},
        {"NO_COLOR=1", "--color always", true},
        {"NO_COLOR=", "--color=never", false},
    };
    for (const auto& [variable, option, isColoured] : rows) {
        const auto ran = shell("env " + variable + " script -qec \"'" KLT_BIN "/klt' " + option +
                               " check faulty.klt\" /dev/null");
        EXPECT_EQ(ran.status, 1) << variable << option << ran;
        EXPECT_EQ(ran.out.find('\x1b') != std::string::npos, isColoured) << variable << option << ran;
    }
}

}  // namespace
}  // namespace klt
