#include "cli/FormatCommand.h"

#include <sys/stat.h>

#include "support/RunKlt.h"

namespace klt {
namespace {

using namespace std::string_literals;

ino_t inode(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
    return info.st_ino;
}

TEST(FormatCommand, PrintsChecksAndWritesOnlyWhatChanges) {
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"nothing to do", "[ADS]\r\nRaft, 5\r\n", "[ADS]\r\nRaft, 5\r\n"},
        {"empty", "", ""},
        {"case", "[ads]\r\nRaft, 5, GIVES(+1 to ST)\r\n", "[ADS]\r\nRaft, 5, gives(+1 To ST)\r\n"},
        {"line ends", "[ADS]\nRaft, 5\r", "[ADS]\r\nRaft, 5\r\n"},
        {"errors stay as they are", "[ads]\r\nraft, x, BONUS(1", "[ADS]\r\nraft, x, BONUS(1"},
        {"Windows-1252", "[ads]\r\n\xC9tude, 5\r\n", "[ADS]\r\n\xC9tude, 5\r\n"},
        {"UTF-8", "[ads]\r\n\u00c9tude\u20ac, 5\r\n", "[ADS]\r\n\u00c9tude\u20ac, 5\r\n"},
        {"UTF-8 with mark", "\xEF\xBB\xBF[ads]", "\xEF\xBB\xBF[ADS]"},
        {"UTF-16", "\xFF\xFE[\0a\0d\0s\0]\0"s, "\xFF\xFE[\0A\0D\0S\0]\0"s},
        {"NUL", "[ads]\n\0"s, "[ADS]\r\n\0"s},
    };
    const ScratchHome home;
    const auto file = home / "a.klt";
    for (const auto& [name, before, after] : rows) {
        SCOPED_TRACE(name);
        const bool changes = before != after;
        const auto complaint = changes ? "klt: " + file + ": would be changed\n" : "";
        writeBytes(file, before);
        EXPECT_EQ(runKlt({"format", file}), (Ran{0, after, ""}));
        EXPECT_EQ(runKlt({"format", "-"}, before), (Ran{0, after, ""}));
        EXPECT_EQ(runKlt({"format", "--check", file}), (Ran{changes ? 1 : 0, "", complaint}));
        EXPECT_EQ(readBytes(file), before);
        const auto old = inode(file);
        EXPECT_EQ(runKlt({"format", "--in-place", file}), (Ran{0, "", ""}));
        EXPECT_EQ(readBytes(file), after);
        // The safe routine puts a new file in the old one's place.
        EXPECT_EQ(inode(file) != old, changes);
    }
}

// Line ends that are mended make what only looked like UTF-16 into it, so that it is written otherwise.
TEST(FormatCommand, AnEncodingThatChangesIsTold) {
    const ScratchHome home;
    const auto file = home / "a.klt";
    const auto before = "\xFF\xFE[\n]"s, after = "\u00ff\u00fe[\r\n]"s;
    const auto told = ": the encoding changes from Windows-1252 to UTF-8\n"s;
    writeBytes(file, before);
    EXPECT_EQ(runKlt({"format", "-"}, before), (Ran{0, after, "klt: <stdin>" + told}));
    EXPECT_EQ(runKlt({"format", "--check", file}), (Ran{1, "", "klt: " + file + ": would be changed\n"}));
    EXPECT_EQ(runKlt({"format", "-i", file}), (Ran{0, "", "klt: " + file + told}));
    EXPECT_EQ(readBytes(file), after);
    EXPECT_EQ(runKlt({"format", "-i", file}), (Ran{0, "", ""}));
}

TEST(FormatCommand, WhatCanNotBeDoneDoesNotStopTheOthers) {
    const ScratchHome home;
    const auto file = home / "a.klt", none = home / "none.klt";
    const auto complaint = "klt: " + none + ": No such file or directory\n";
    writeBytes(file, "[ads]");
    EXPECT_EQ(runKlt({"format", none, file}), (Ran{2, "[ADS]", complaint}));
    EXPECT_EQ(runKlt({"format", "--check", none, file}),
              (Ran{2, "", complaint + "klt: " + file + ": would be changed\n"}));
    EXPECT_EQ(runKlt({"format", "-i", "-", none, file}),
              (Ran{2, "", "klt: <stdin>: It can't be written in place\n" + complaint}));
    EXPECT_EQ(readBytes(file), "[ADS]");
}

}  // namespace
}  // namespace klt
