#include "platform/FileReader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <thread>

#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
namespace fs = std::filesystem;

TEST(FileReader, OnlyPlainFilesAreRead) {
    const ScratchFolder folder;
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0666), 0);
    fs::create_symlink("nowhere", folder / "dangling");
    writeBytes(folder / "file", "x");
    const std::pair<std::string, std::string> rows[] = {
        {folder.path(), "Is a directory"},
        {folder / "fifo", "Not a plain file"},
        {"/dev/zero", "Not a plain file"},
        {folder / "vanished", "No such file or directory"},
        {folder / "dangling", "No such file or directory"},
        {folder / "file/below", "Not a directory"},
        {"", "No such file or directory"},
    };
    for (const auto& [path, error] : rows) {
        EXPECT_EQ(readFile(path).error, error) << path;
        const auto text = readTextFile(path);
        EXPECT_EQ(text.error, error) << path;
        EXPECT_EQ(text.text, "") << path;
    }
}

TEST(FileReader, AFileThatTheUserMayNotReadGivesAnError) {
    const ScratchFolder folder;
    giveToUser(folder.path());
    writeBytes(folder / "closed", "x");
    giveToUser(folder / "closed");
    ASSERT_EQ(chmod((folder / "closed").c_str(), 0200), 0);
    EXPECT_EQ(asUser([&] { return readFile(folder / "closed").error.value_or("read"); }),
              "Permission denied");
}

TEST(FileReader, ReadsWhatTheSystemGivesNoSizeFor) {
    const auto file = readFile("/proc/self/status");
    EXPECT_EQ(file.error, std::nullopt);
    EXPECT_TRUE(file.bytes.starts_with("Name:"));
}

TEST(FileReader, AFileTooLargeIsRefusedAtOnce) {
    const ScratchFolder folder;
    writeBytes(folder / "sparse", "x");
    fs::resize_file(folder / "sparse", std::uintmax_t{1} << 40);
    EXPECT_EQ(readFile(folder / "sparse").error, "File too large");
}

TEST(FileReader, WhatCouldNotBeReadAgainIsRefused) {
    const struct {
        const char* what;
        std::string bytes;
        size_t size;  // of the text, or of the file that it is written to
    } rows[] = {
        {"ASCII", "a\r\nb", 4},
        {"lone LF", "a\nb\n", 6},
        {"lone CR beyond ASCII", "\xC3\xA4\r", 4},
        {"Windows-1252", "\xE4\xE4", 4},
        {"the same with LF", "\x80\n", 5},
        {"UTF-8 with mark", "\xEF\xBB\xBF\n", 5},
        {"UTF-16", std::string("\xFF\xFE\n\0\n\0", 6), 10},
        {"UTF-16 that is longer in UTF-8", "\xFE\xFF\x20\xAC\x20\xAC\x20\xAC", 9},
    };
    const ScratchFolder folder;
    for (const auto& row : rows) {
        writeBytes(folder / "file", row.bytes);
        EXPECT_EQ(readTextFile(folder / "file", row.size).error, std::nullopt) << row.what;
        const auto refused = readTextFile(folder / "file", row.size - 1);
        EXPECT_EQ(refused.error, "File too large") << row.what;
        EXPECT_EQ(refused.text, "");
    }
}

TEST(FileReader, ManyLinesAndALongLine) {
    constexpr size_t kBlock = size_t{1} << 20, kLines = 200, kLongLine = 20;
    const ScratchFolder folder;
    std::string block;
    while (block.size() + 32 <= kBlock) block += "Skill Climb, 5, Type(Physical)\r\n";
    {
        std::ofstream file(folder / "many", std::ios::binary);
        for (size_t i = 0; i < kLines; ++i) file << block;
        file << std::string(kLongLine * kBlock, 'x');
    }
    const auto read = readTextFile(folder / "many");
    EXPECT_EQ(read.error, std::nullopt);
    ASSERT_EQ(read.text.size(), kLines * block.size() + kLongLine * kBlock);
    const std::string_view text = read.text;
    for (size_t i = 0; i < kLines; ++i)
        ASSERT_TRUE(text.substr(i * block.size(), block.size()) == block) << "block " << i;
    EXPECT_EQ(text.find_first_not_of('x', kLines * block.size()), text.npos);
}

// Another process cuts and stretches the file all the time: what is read is one of its states, or an error.
TEST(FileReader, AFileThatGrowsAndShrinksMeanwhile) {
    constexpr size_t kShort = 10'000, kLong = 2'000'000;
    const ScratchFolder folder;
    const auto path = folder / "restless";
    writeBytes(path, std::string(kShort, 'x'));
    std::atomic<bool> isOver = false;
    std::thread other([&] {
        for (bool isLong = false; !isOver; isLong = !isLong)
            if (truncate(path.c_str(), isLong ? kLong : kShort) != 0) return;
    });
    for (int i = 0; i < 300; ++i) {
        const auto file = readFile(path);
        if (file.error) {
            EXPECT_EQ(*file.error, "The file keeps changing");
            continue;
        }
        EXPECT_TRUE(file.bytes.size() == kShort || file.bytes.size() == kLong) << file.bytes.size();
    }
    isOver = true;
    other.join();
    EXPECT_EQ(readFile(path).error, std::nullopt);
}
