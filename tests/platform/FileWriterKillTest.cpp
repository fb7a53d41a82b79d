#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <iterator>
#include <random>
#include <thread>

#include "platform/FileWriter.h"
#include "platform/KeptCopies.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"

using namespace klt;
namespace fs = std::filesystem;

namespace {

constexpr int kKills = 200;

using Microseconds = std::chrono::microseconds;

// Two contents of different length, so that a mixture and a cut are seen.
const std::string kOne(100'000, '1');
const std::string kTwo(200'000, '2');

bool isWhole(const std::string& path) {
    const auto bytes = readBytes(path);
    return bytes == kOne || bytes == kTwo;
}

std::ptrdiff_t filesIn(const std::string& folder) {
    return std::distance(fs::directory_iterator(folder), {});
}

// How long the two take to be saved here: the kills must reach all of it.
Microseconds timeOfTwoSaves(const std::string& path) {
    const auto start = std::chrono::steady_clock::now();
    for (const auto& bytes : {kOne, kTwo}) EXPECT_EQ(writeFile(path, bytes), std::nullopt);
    return std::chrono::duration_cast<Microseconds>(std::chrono::steady_clock::now() - start);
}

// A process that saves the two by turns, killed after a random time.
void saveAndKill(const std::string& path, Microseconds longestLife, std::mt19937& random) {
    ChildProcess writer([&](const ChildProcess::Report& report) {
        report("ready");
        for (;;)
            for (const auto& bytes : {kOne, kTwo})
                if (writeFile(path, bytes)) ChildProcess::sleepForever();
    });
    ASSERT_EQ(writer.nextReport(), "ready");
    std::this_thread::sleep_for(
        Microseconds(std::uniform_int_distribution<Microseconds::rep>(0, longestLife.count())(random)));
    writer.kill();
}

}  // namespace

TEST(FileWriterKill, AReplacedFileIsOldOrNew) {
    const ScratchHome home;
    const auto docs = home / "docs", path = docs + "/file.klt";
    fs::create_directory(docs);
    writeBytes(path, kOne);
    const auto longestLife = timeOfTwoSaves(path);
    std::mt19937 random(1);
    int leftSeen = 0;
    for (int i = 0; i < kKills; ++i) {
        saveAndKill(path, longestLife, random);
        ASSERT_TRUE(isWhole(path)) << "torn by kill " << i;
        leftSeen += filesIn(docs) > 1;
    }
    EXPECT_TRUE(leftoverCopies(path).empty());
    EXPECT_GT(leftSeen, 0) << "no kill came in the middle of a write";
    EXPECT_EQ(writeFile(path, kOne), std::nullopt);
    EXPECT_EQ(filesIn(docs), 1) << "what the kills left stays";
}

TEST(FileWriterKill, AFileWrittenInPlaceHasAWholeCopy) {
    const ScratchHome home;
    const auto path = home / "file.klt";
    writeBytes(path, kOne);
    fs::create_hard_link(path, home / "other name");
    const auto longestLife = timeOfTwoSaves(path);
    std::mt19937 random(2);
    int copiesSeen = 0;
    for (int i = 0; i < kKills; ++i) {
        saveAndKill(path, longestLife, random);
        const auto copies = leftoverCopies(path);
        for (const auto& copy : copies) EXPECT_TRUE(isWhole(copy)) << "copy torn by kill " << i;
        EXPECT_LE(copies.size(), 1U);
        ASSERT_TRUE(isWhole(path) || !copies.empty()) << "torn by kill " << i << ", and no copy";
        copiesSeen += !copies.empty();
        if (!isWhole(path)) writeBytes(path, readBytes(copies.front()));
        for (const auto& copy : copies) EXPECT_EQ(dismissKeptFile(copy), std::nullopt);
        EXPECT_TRUE(leftoverCopies(path).empty());
    }
    EXPECT_GT(copiesSeen, 0) << "no kill came in the middle of a write";
}
