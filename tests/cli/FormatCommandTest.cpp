#include "cli/FormatCommand.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/RunKlt.h"
#include "support/Scratch.h"

namespace klt {
namespace {

struct Row {
    const char* name;
    std::string before;
    std::string after;
};

const std::vector<Row>& rows() {
    static const std::vector<Row> all = {
        {"nothing to do", "[ADS]\r\nRaft, 5\r\n", "[ADS]\r\nRaft, 5\r\n"},
        {"empty", "", ""},
        {"case", "[ads]\r\nRaft, 5, GIVES(+1 to ST)\r\n", "[ADS]\r\nRaft, 5, gives(+1 To ST)\r\n"},
        {"line ends", "[ADS]\nRaft, 5\r", "[ADS]\r\nRaft, 5\r\n"},
        {"errors stay as they are", "[ads]\r\nraft, x, BONUS(1", "[ADS]\r\nraft, x, BONUS(1"},
        {"Windows-1252", "[ads]\r\n\xC9tude, 5\r\n", "[ADS]\r\n\xC9tude, 5\r\n"},
        {"UTF-8", "[ads]\r\n\u00c9tude\u20ac, 5\r\n", "[ADS]\r\n\u00c9tude\u20ac, 5\r\n"},
        {"UTF-8 with mark", "\xEF\xBB\xBF[ads]", "\xEF\xBB\xBF[ADS]"},
        {"UTF-16", std::string("\xFF\xFE[\0a\0d\0s\0]\0", 12), std::string("\xFF\xFE[\0A\0D\0S\0]\0", 12)},
        {"NUL", std::string("[ads]\n\0", 7), std::string("[ADS]\r\n\0", 8)},
    };
    return all;
}

class FormatCommand : public testing::Test {
protected:
    ino_t inode(const std::string& path) {
        struct stat info {};
        EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
        return info.st_ino;
    }
    ScratchHome home_;
    const std::string file_ = home_ / "a.klt";
};

TEST_F(FormatCommand, ToStandardOutput) {
    for (const auto& row : rows()) {
        writeBytes(file_, row.before);
        EXPECT_EQ(runKlt({"format", file_}), (Ran{0, row.after, ""})) << row.name;
        EXPECT_EQ(runKlt({"format", "-"}, row.before), (Ran{0, row.after, ""})) << row.name;
        EXPECT_EQ(readBytes(file_), row.before) << row.name;
    }
}

TEST_F(FormatCommand, InPlaceOnlyWhereItChanges) {
    for (const auto& row : rows()) {
        writeBytes(file_, row.before);
        const auto before = inode(file_);
        EXPECT_EQ(runKlt({"format", "--in-place", file_}), (Ran{0, "", ""})) << row.name;
        EXPECT_EQ(readBytes(file_), row.after) << row.name;
        // The safe routine puts a new file in the old one's place.
        EXPECT_EQ(inode(file_) == before, row.before == row.after) << row.name;
    }
}

TEST_F(FormatCommand, CheckWritesNothing) {
    for (const auto& row : rows()) {
        writeBytes(file_, row.before);
        const bool changes = row.before != row.after;
        const std::string complaint = changes ? "klt: " + file_ + ": would be changed\n" : "";
        EXPECT_EQ(runKlt({"format", "--check", file_}), (Ran{changes ? 1 : 0, "", complaint})) << row.name;
        EXPECT_EQ(readBytes(file_), row.before) << row.name;
    }
}

TEST_F(FormatCommand, WhatCanNotBeDoneDoesNotStopTheOthers) {
    writeBytes(file_, "[ads]");
    const auto none = home_ / "none.klt";
    const auto complaint = "klt: " + none + ": No such file or directory\n";
    EXPECT_EQ(runKlt({"format", none, file_}), (Ran{2, "[ADS]", complaint}));
    EXPECT_EQ(runKlt({"format", "--check", none, file_}),
              (Ran{2, "", complaint + "klt: " + file_ + ": would be changed\n"}));
    EXPECT_EQ(runKlt({"format", "-i", "-", none, file_}),
              (Ran{2, "", "klt: <stdin>: It can't be written in place\n" + complaint}));
    EXPECT_EQ(readBytes(file_), "[ADS]");
}

}  // namespace
}  // namespace klt
