#include "platform/FileNews.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "platform/DocumentFile.h"
#include "support/Scratch.h"

using namespace klt;
namespace fs = std::filesystem;

namespace {

constexpr FileIdentity kSome{.inode = 7, .size = 5, .modified = {100, 1}, .changed = {100, 2}};

void setModified(const std::string& path, time_t seconds) {
    const timespec times[] = {{seconds, 0}, {seconds, 0}};
    EXPECT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

TEST(FileIdentity, ItIsInodeSizeAndTimes) {
    const std::tuple<const char*, void (*)(FileIdentity&), bool, bool> rows[] = {
        {"itself", [](FileIdentity&) {}, true, true},
        {"mounted anew", [](FileIdentity& it) { it.device = 9; }, true, false},
        {"another file", [](FileIdentity& it) { it.inode = 8; }, false, false},
        {"longer", [](FileIdentity& it) { it.size = 6; }, false, true},
        {"older", [](FileIdentity& it) { it.modified.seconds = 99; }, false, true},
        {"a moment later", [](FileIdentity& it) { it.modified.nanoseconds = 2; }, false, true},
        {"touched", [](FileIdentity& it) { it.changed.nanoseconds = 3; }, false, true},
    };
    for (const auto& [name, change, isSameVersion, isSameFile] : rows) {
        auto other = kSome;
        change(other);
        EXPECT_EQ(other == kSome, isSameVersion) << name;
        EXPECT_EQ(other.isSameFile(kSome), isSameFile) << name;
    }
    EXPECT_FALSE(FileIdentity().isSameFile({})) << "there are no files";
}

TEST(FileNews, TellsEachThingOnce) {
    const std::optional<FileIdentity> nothing, gone = FileIdentity(), some = kSome;
    auto later = kSome;
    later.changed.seconds = 101;
    using enum FileState;
    const std::tuple<FileState, FileIdentity, std::optional<FileIdentity>, FileNews> rows[] = {
        {AsSeen, kSome, nothing, FileNews::Nothing}, {AsSeen, kSome, gone, FileNews::Over},
        {AsSeen, later, some, FileNews::Over},       {Changed, kSome, nothing, FileNews::Changed},
        {Changed, kSome, some, FileNews::Nothing},   {Changed, later, some, FileNews::Changed},
        {Changed, kSome, gone, FileNews::Changed},   {Gone, {}, nothing, FileNews::Gone},
        {Gone, {}, gone, FileNews::Nothing},         {Gone, {}, some, FileNews::Gone},
        {Unknown, {}, nothing, FileNews::Nothing},   {Unknown, {}, gone, FileNews::Nothing},
        {Unknown, {}, some, FileNews::Nothing},
    };
    for (size_t i = 0; i < std::size(rows); ++i) {
        const auto& [state, identity, told, expected] = rows[i];
        EXPECT_EQ(newsOf({state, identity}, told), expected) << "row " << i;
    }
}

TEST(LookAtFile, SeesWhatOthersDo) {
    const std::tuple<const char*, std::function<void(const std::string&)>, FileState> rows[] = {
        {"nothing", [](const auto&) {}, FileState::AsSeen},
        {"touched", [](const auto& path) { setModified(path, 1); }, FileState::AsSeen},
        {"other permissions", [](const auto& path) { chmod(path.c_str(), 0600); }, FileState::AsSeen},
        {"a copy", [](const auto& path) { fs::copy(path, path + "2"), fs::rename(path + "2", path); },
         FileState::AsSeen},
        {"longer", [](const auto& path) { writeBytes(path, "texts"); }, FileState::Changed},
        {"of the same size", [](const auto& path) { writeBytes(path, "Text"), setModified(path, 1); },
         FileState::Changed},
        {"gone", [](const auto& path) { fs::remove(path); }, FileState::Gone},
        {"renamed", [](const auto& path) { fs::rename(path, path + "2"); }, FileState::Gone},
        {"a folder", [](const auto& path) { fs::remove(path), fs::create_directory(path); }, FileState::Gone},
        {"its folder is a file",
         [](const std::string& path) {
             fs::remove_all(fs::path(path).parent_path());
             writeBytes(fs::path(path).parent_path(), "");
         },
         FileState::Gone},
        {"a circle", [](const auto& path) { fs::remove(path), fs::create_symlink("a.klt", path); },
         FileState::Unknown},
    };
    for (const auto& [name, change, expected] : rows) {
        const ScratchFolder folder;
        fs::create_directory(folder / "docs");
        const auto path = folder / "docs/a.klt";
        writeBytes(path, "text");
        const auto known = readText(path).known;
        ASSERT_TRUE(known.seen);
        change(path);
        const auto now = lookAtFile(path, known);
        EXPECT_EQ(now.state, expected) << name;
        EXPECT_EQ(now.identity == FileIdentity(),
                  expected == FileState::Gone || expected == FileState::Unknown)
            << name;
    }
}

TEST(LookAtFile, ReadsNoContentWhoseIdentityIsKnown) {
    const ScratchFolder folder;
    const auto path = folder / "a.klt";
    writeBytes(path, "text");
    const auto version = readText(path).known.seen.value();
    auto other = version;
    other.hash = 1;
    EXPECT_EQ(lookAtFile(path, {other, {}}), (FileNow{FileState::AsSeen, version.identity}));
    auto older = version;
    older.identity.modified.seconds = 1;
    EXPECT_EQ(lookAtFile(path, {older, version.identity}), (FileNow{FileState::Changed, version.identity}));
    EXPECT_EQ(lookAtFile(path, {older, {}}), (FileNow{FileState::AsSeen, version.identity}));
    EXPECT_EQ(lookAtFile(path, {}), (FileNow{FileState::Changed, version.identity})) << "never seen";
}

}  // namespace
