// The real program, through a shell: what only a process of its own can show.

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

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
        "faulty.klt:1:1: error: no section has this name, or the header is not alone on its line: [XYZ\n";
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

// What a line writes to a terminal of so many columns; its status goes behind it.
std::string onTerminal(const std::string& line, unsigned short columns) {
    winsize size{24, columns, 0, 0};
    int terminal = -1;
    const auto child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        _exit(127);
    }
    std::string all;
    char part[4096];
    for (ssize_t got = 0; (got = read(terminal, part, sizeof part)) > 0;)
        all.append(part, static_cast<size_t>(got));
    close(terminal);
    int status = -1;
    waitpid(child, &status, 0);
    std::erase(all, '\r');
    return all + std::to_string(WEXITSTATUS(status));
}

TEST_F(Program, ShowsAndColoursOnATerminal) {
    writeBytes(home_ / "wide.klt", "[ADS]\r\nKeen Ear, 5, page(1), nots(x), page(2), page(3)\r\n");
    const std::string head = "wide.klt:2:1: error: no such tag: nots(\n";
    const std::string picture = "...r, 5, page(1), nots(x), page(...\n   ~~~~~~~~~~~~~~~^~~~~~~~~~~~~~\n";
    const std::tuple<const char*, const char*, std::string> rows[] = {
        {"NO_COLOR=1", "", head + picture + "1"},
        {"NO_COLOR=", "--format text",
         "\x1b[1mwide.klt:2:1:\x1b[0m \x1b[1;31merror:\x1b[0m no such tag: nots(\n1"},
        {"NO_COLOR=", "--color=never --format text", head + "1"},
        {"NO_COLOR=1", "--color always -q", "1"},
        {"NO_COLOR=1", "--format text", head + "1"},
        {"NO_COLOR=1", "| cat", head + "0"},
    };
    for (const auto& [variable, behind, wanted] : rows) {
        const auto line = "cd '" + home_.folder().path() + "' && " + variable +
                          " '" KLT_BIN "/klt' check wide.klt " + behind;
        EXPECT_EQ(onTerminal(line, 36), wanted) << line;
    }
    const auto coloured =
        onTerminal("cd '" + home_.folder().path() + "' && NO_COLOR= '" KLT_BIN "/klt' check wide.klt", 36);
    EXPECT_NE(coloured.find("\n   \x1b[1;31m~~~~"), std::string::npos) << coloured;
}

}  // namespace
}  // namespace klt
