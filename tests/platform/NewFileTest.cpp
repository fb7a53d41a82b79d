// What other processes and the system do in the middle of a save.

#include "platform/NewFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/syscall.h>

#include <cstring>

#include "platform/Descriptor.h"
#include "platform/FileWriter.h"
#include "platform/KeptCopies.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
namespace fs = std::filesystem;

// What happens at the next call of flock, once.
static std::function<void()> beforeLocking;
// The folder that can't be flushed, and the error.
static std::pair<std::string, int> unflushed;

// How many calls that write this process still makes before it dies; any number if negative.
static int callsToLive = -1;

static void liveOn() {
    if (callsToLive-- == 0) _exit(1);
}

static bool isSame(int file, const std::string& path) {
    std::error_code error;
    return fs::equivalent("/proc/self/fd/" + std::to_string(file), path, error);
}

class NewFileTest : public testing::Test {
protected:
    NewFileTest() {
        fs::create_directory(docs_);
        for (const auto& path : {alone_, linked_}) writeBytes(path, "old");
        fs::create_hard_link(linked_, docs_ + "/linked2");
    }
    ~NewFileTest() override { unflushed = {}; }
    void saveBoth() {
        for (const auto& path : {alone_, linked_}) {
            EXPECT_EQ(writeFile(path, "new"), std::nullopt);
            EXPECT_EQ(readBytes(path), "new");
            EXPECT_TRUE(leftoverCopies(path).empty());
        }
    }

    ScratchHome home_;
    std::string docs_ = home_ / "docs";
    // The one is replaced, the other written in place.
    std::string alone_ = docs_ + "/alone", linked_ = docs_ + "/linked";
};

extern "C" int flock(int file, int operation) {
    if (const auto work = std::exchange(beforeLocking, nullptr)) work();
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

extern "C" ssize_t pwrite(int file, const void* bytes, size_t size, off_t offset) {
    liveOn();
    return syscall(SYS_pwrite64, file, bytes, std::min(size, size_t{60'000}), offset);
}

extern "C" int ftruncate(int file, off_t size) {
    liveOn();
    return static_cast<int>(syscall(SYS_ftruncate, file, size));
}

extern "C" int fsync(int file) {
    liveOn();
    if (!isSame(file, unflushed.first)) return static_cast<int>(syscall(SYS_fsync, file));
    errno = unflushed.second;
    return -1;
}

TEST_F(NewFileTest, WhatAKillLeftGoesWithTheNextSaveInTheFolderAndNothingElse) {
    for (const auto* name : {".klt-0123456789abcde", ".klt-0123456789abcdeg", ".klt-0123456789ABCDEF",
                             ".klt-0123456789abcdef0", "klt-0123456789abcdef", ".klt-0123456789abcdef.klt"})
        writeBytes(docs_ + "/" + name, "mine");
    fs::create_directory(docs_ + "/.klt-0000000000000000");
    fs::create_symlink("alone", docs_ + "/.klt-0000000000000001");
    ASSERT_EQ(mkfifo((docs_ + "/.klt-0000000000000002").c_str(), 0600), 0);
    const auto before = namesIn(docs_);
    const auto left = docs_ + "/.klt-0123456789abcdef";
    for (const auto& saved : {alone_, linked_}) {
        writeBytes(left, "half");
        EXPECT_EQ(chmod(left.c_str(), 0200), 0);
        EXPECT_EQ(writeFile(saved, "new"), std::nullopt);
        EXPECT_EQ(namesIn(docs_), before);
    }
}

TEST_F(NewFileTest, WhatAnotherProcessIsWritingStays) {
    ChildProcess writer([&](const ChildProcess::Report& report) {
        const NewFile file(docs_, 0600);
        report("made");
        ChildProcess::sleepForever();
    });
    ASSERT_EQ(writer.nextReport(), "made");
    saveBoth();
    EXPECT_EQ(namesIn(docs_).size(), 4U);
    writer.kill();
    EXPECT_EQ(writeFile(alone_, "newer"), std::nullopt);
    EXPECT_THAT(namesIn(docs_), ElementsAre("alone", "linked", "linked2"));
}

// Between its making and its locking a file looks like one that was left.
TEST_F(NewFileTest, OneThatIsTakenAwayBeforeItsLockIsMadeAnew) {
    beforeLocking = [this] { removeLeftFiles(docs_); };
    EXPECT_EQ(writeFile(alone_, "new"), std::nullopt);
    EXPECT_EQ(readBytes(alone_), "new");

    // The other one has the lock, and has not come to the removing yet.
    Descriptor other;
    beforeLocking = [&] {
        other = Descriptor(open((docs_ + "/" + namesIn(docs_).front()).c_str(), O_WRONLY | O_CLOEXEC));
        EXPECT_EQ(syscall(SYS_flock, other.number(), LOCK_EX), 0);
    };
    EXPECT_EQ(writeFile(alone_, "newer"), std::nullopt);
    EXPECT_EQ(readBytes(alone_), "newer");
    EXPECT_FALSE(isSame(other.number(), alone_));
}

TEST_F(NewFileTest, KilledAtAnyMomentItLeavesTheOldOrTheNewFileOrACopy) {
    const std::string old(100'000, '1'), fresh(200'000, '2');
    for (const auto& path : {alone_, linked_}) {
        int calls = 0;
        for (std::string told; told != "well" && calls < 100; ++calls) {
            writeBytes(path, old);
            told = inChild([&] {
                callsToLive = calls;
                return writeFile(path, fresh).value_or("well");
            });
            const auto copies = leftoverCopies(path);
            const auto bytes = readBytes(copies.empty() ? path : copies.at(0));
            EXPECT_TRUE(bytes == old || bytes == fresh) << path << " is torn at call " << calls;
            EXPECT_LE(copies.size(), 1U);
            for (const auto& copy : copies) EXPECT_EQ(dismissKeptFile(copy), std::nullopt);
        }
        EXPECT_EQ(readBytes(path), fresh);
        EXPECT_GT(calls, 5);
    }
    EXPECT_THAT(namesIn(docs_), ElementsAre("alone", "linked", "linked2"));
}

TEST_F(NewFileTest, WithoutAFlushedStateFolderFilesAreWrittenAllTheSame) {
    unflushed = {home_ / "state/klt-editor", EIO};
    saveBoth();
    const KeptCopy copy(linked_, "old");
    EXPECT_EQ(readBytes(copy.path()), "old") << "it is kept as well as can be";
}

// The old file has gone by then, and nothing is left to be written in place.
TEST_F(NewFileTest, AFolderThatCantBeFlushedFailsTheSaveOfTheNewFile) {
    for (const int error : {EIO, EACCES, EBUSY}) {
        unflushed = {docs_, error};
        for (const auto old : {OldFile::Replaced, OldFile::KeptBeside}) {
            writeBytes(alone_, "old");
            EXPECT_EQ(writeFile(alone_, "new", old), strerror(error));
            EXPECT_EQ(readBytes(alone_), "new");
        }
    }
    EXPECT_THAT(namesIn(docs_), ElementsAre("alone", "alone~", "alone~2", "alone~3", "linked", "linked2"));
    EXPECT_FALSE(fs::exists(home_ / "state")) << "a copy was made";
}
