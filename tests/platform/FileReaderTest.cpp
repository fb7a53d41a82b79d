#include "platform/FileReader.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <functional>

#include "support/Scratch.h"

using namespace klt;
namespace fs = std::filesystem;

// What another process does at each call of pread.
static std::function<void()> beforeReading;

extern "C" ssize_t pread(int file, void* buffer, size_t size, off_t offset) {
    if (beforeReading) beforeReading();
    return syscall(SYS_pread64, file, buffer, size, offset);
}

TEST(FileReader, OnlyPlainFilesOfAFairSizeAreRead) {
    const ScratchFolder folder;
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0666), 0);
    fs::create_symlink("nowhere", folder / "dangling");
    for (const auto* name : {"file", "sparse"}) writeBytes(folder / name, "x");
    fs::resize_file(folder / "sparse", std::uintmax_t{1} << 40);
    const std::pair<std::string, std::string> rows[] = {
        {folder.path(), "Is a directory"},
        {folder / "fifo", "Not a plain file"},
        {"/dev/zero", "Not a plain file"},
        {folder / "vanished", "No such file or directory"},
        {folder / "dangling", "No such file or directory"},
        {folder / "sparse", "File too large"},
        {folder / "file/below", "Not a directory"},
        {"", "No such file or directory"},
    };
    for (const auto& [path, error] : rows) {
        EXPECT_EQ(readFile(path).error, error) << path;
        EXPECT_EQ(readTextFile(path).error, error) << path;
    }
}

TEST(FileReader, ReadsWhatTheSystemGivesNoSizeFor) {
    EXPECT_TRUE(readFile("/proc/self/status").bytes.starts_with("Name:"));
}

TEST(FileReader, WhatCouldNotBeReadAgainIsRefused) {
    // With the size of the text, or of the file that it is written to.
    const std::tuple<const char*, std::string, size_t> rows[] = {
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
    for (const auto& [what, bytes, size] : rows) {
        writeBytes(folder / "file", bytes);
        EXPECT_EQ(readTextFile(folder / "file", size).error, std::nullopt) << what;
        EXPECT_EQ(readTextFile(folder / "file", size - 1).error, "File too large") << what;
    }
}

TEST(FileReader, AFileThatChangesMeanwhileIsReadAgain) {
    const ScratchFolder folder;
    const auto path = folder / "restless";
    std::string bytes(1'000'000, '\0');
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i / 256 + i);
    // One change at each call of the system; one whole reading takes five.
    for (const int changes : {0, 1, 5, 100}) {
        writeBytes(path, bytes);
        beforeReading = [&, left = changes]() mutable {
            if (left-- > 0) fs::resize_file(path, fs::file_size(path) - 1000);
        };
        const auto file = readFile(path);
        beforeReading = nullptr;
        EXPECT_EQ(file.error.value_or("none"), changes < 100 ? "none" : "The file keeps changing");
        EXPECT_TRUE(file.bytes == (file.error ? "" : readBytes(path))) << changes;
    }
}
