// What other processes and the system do in the middle of a save.

#include "platform/NewFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <utility>

#include "platform/Descriptor.h"
#include "platform/FileWriter.h"
#include "platform/KeptCopies.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

// What happens at the next call of flock, once.
std::function<void()> beforeLocking;
// The folder that can't be flushed, and the error.
std::pair<std::string, int> unflushed;

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

class NewFileTest : public testing::Test {
protected:
    NewFileTest() {
        fs::create_directory(docs_);
        writeBytes(alone_, "old");
        writeBytes(linked_, "old");
        fs::create_hard_link(linked_, docs_ + "/linked2");
    }
    ~NewFileTest() override {
        beforeLocking = nullptr;
        unflushed = {};
    }

    ScratchHome home_;
    std::string docs_ = home_ / "docs";
    // The one is replaced, the other written in place.
    std::string alone_ = docs_ + "/alone", linked_ = docs_ + "/linked";
};

}  // namespace

extern "C" int flock(int file, int operation) {
    if (const auto work = std::exchange(beforeLocking, nullptr)) work();
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

extern "C" int fsync(int file) {
    struct stat info {
    }, folder{};
    const bool isUnflushed = fstat(file, &info) == 0 && stat(unflushed.first.c_str(), &folder) == 0 &&
                             info.st_ino == folder.st_ino;
    if (!isUnflushed) return static_cast<int>(syscall(SYS_fsync, file));
    errno = unflushed.second;
    return -1;
}

TEST_F(NewFileTest, WhatAKillLeftGoesWithTheNextSaveInTheFolder) {
    const std::string left = docs_ + "/.klt-0123456789abcdef";
    for (const auto& saved : {alone_, linked_}) {
        writeBytes(left, "half");
        EXPECT_EQ(chmod(left.c_str(), 0200), 0);
        EXPECT_EQ(writeFile(saved, "new"), std::nullopt);
        EXPECT_THAT(namesIn(docs_), ElementsAre("alone", "linked", "linked2"));
    }
}

TEST_F(NewFileTest, NothingElseGoes) {
    for (const auto* name : {".klt-0123456789abcde", ".klt-0123456789abcdeg", ".klt-0123456789ABCDEF",
                             ".klt-0123456789abcdef0", "klt-0123456789abcdef", ".klt-0123456789abcdef.klt"})
        writeBytes(docs_ + "/" + name, "mine");
    fs::create_directory(docs_ + "/.klt-0000000000000000");
    fs::create_symlink("alone", docs_ + "/.klt-0000000000000001");
    ASSERT_EQ(mkfifo((docs_ + "/.klt-0000000000000002").c_str(), 0600), 0);
    const auto before = namesIn(docs_);
    for (const auto& saved : {alone_, linked_}) EXPECT_EQ(writeFile(saved, "new"), std::nullopt);
    EXPECT_EQ(namesIn(docs_), before);
}

TEST_F(NewFileTest, WhatAnotherProcessIsWritingStays) {
    ChildProcess writer([&](const ChildProcess::Report& report) {
        const NewFile file(docs_, 0600);
        report("made");
        ChildProcess::sleepForever();
    });
    ASSERT_EQ(writer.nextReport(), "made");
    for (const auto& saved : {alone_, linked_}) {
        EXPECT_EQ(writeFile(saved, "new"), std::nullopt);
        EXPECT_EQ(namesIn(docs_).size(), 4U);
    }
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
        for (const auto& name : namesIn(docs_)) {
            if (!name.starts_with(".klt-")) continue;
            other = Descriptor(open((docs_ + "/" + name).c_str(), O_WRONLY | O_CLOEXEC));
            EXPECT_EQ(syscall(SYS_flock, other.number(), LOCK_EX), 0);
        }
    };
    EXPECT_EQ(writeFile(alone_, "newer"), std::nullopt);
    EXPECT_EQ(readBytes(alone_), "newer");
    struct stat locked {
    }, saved{};
    ASSERT_EQ(fstat(other.number(), &locked) | stat(alone_.c_str(), &saved), 0);
    EXPECT_NE(saved.st_ino, locked.st_ino);
}

TEST_F(NewFileTest, ManySaveAtOnce) {
    constexpr int kProcesses = 4, kSaves = 100;
    std::vector<ChildProcess> writers;
    for (int number = 0; number < kProcesses; ++number) {
        writers.emplace_back([&, number](const ChildProcess::Report& report) {
            Failure failure;
            for (int i = 0; i < kSaves && !failure; ++i)
                failure = writeFile(docs_ + "/" + std::to_string(number), std::to_string(i));
            report(failure.value_or("well"));
        });
    }
    for (const auto& writer : writers) EXPECT_EQ(writer.nextReport(), "well");
    EXPECT_THAT(namesIn(docs_), ElementsAre("0", "1", "2", "3", "alone", "linked", "linked2"));
}

TEST_F(NewFileTest, WithoutAFlushedStateFolderFilesAreWrittenAllTheSame) {
    unflushed = {home_ / "state/klt-editor", EIO};
    for (const auto& saved : {alone_, linked_}) {
        EXPECT_EQ(writeFile(saved, "new"), std::nullopt);
        EXPECT_EQ(readBytes(saved), "new");
        EXPECT_THAT(leftoverCopies(saved), IsEmpty());
    }
    const KeptCopy copy(linked_, "old");
    EXPECT_EQ(readBytes(copy.path()), "old") << "it is kept as well as can be";
}

// The old file has gone by then, and nothing is left to be written in place.
TEST_F(NewFileTest, AFolderThatCantBeFlushedFailsTheSaveOfTheNewFile) {
    for (const int error : {EIO, EACCES, EBUSY}) {
        for (const auto old : {OldFile::Replaced, OldFile::KeptBeside}) {
            unflushed = {};
            ASSERT_EQ(writeFile(alone_, "old"), std::nullopt);
            unflushed = {docs_, error};
            EXPECT_EQ(writeFile(alone_, "new", old), strerror(error));
            EXPECT_EQ(readBytes(alone_), "new");
        }
    }
    EXPECT_THAT(namesIn(docs_), ElementsAre("alone", "alone~", "alone~2", "alone~3", "linked", "linked2"));
    EXPECT_FALSE(fs::exists(home_ / "state")) << "a copy was made";
}
