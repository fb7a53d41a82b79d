#include "platform/KeepBeside.h"

#include <gmock/gmock.h>
#include <sys/xattr.h>

#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
namespace fs = std::filesystem;

namespace {

TEST(KeepBeside, CopiesUnderTheNextFreeName) {
    const ScratchFolder folder;
    const auto path = folder / "a.klt";
    fs::create_symlink("nowhere", path + "~2");
    for (const char* end : {"~", "~3", "~4"}) {
        writeBytes(path, end);
        EXPECT_EQ(chmod(path.c_str(), 0640), 0);
        const auto kept = keepBeside(path);
        EXPECT_EQ(kept.error, std::nullopt);
        EXPECT_EQ(kept.path, path + end);
        EXPECT_EQ(readBytes(path + end), end);
        EXPECT_EQ(modeOf(path + end), 0640U);
    }
    writeBytes(path, "written in place");
    EXPECT_EQ(readBytes(path + "~4"), "~4") << "it is no link to the file";
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("a.klt", "a.klt~", "a.klt~2", "a.klt~3", "a.klt~4"));
}

TEST(KeepBeside, ANameThatIsTooLongIsCutAmongItsLetters) {
    const ScratchFolder folder;
    const auto name = std::string(249, 'n') + "\u00e4\u00e4\u00e4", cut = std::string(249, 'n');
    writeBytes(folder / name, "text");
    EXPECT_EQ(keepBeside(folder / name).path, folder / (cut + "\u00e4~"));
    std::string moved;
    EXPECT_EQ(moveBeside(folder / name, moved), 0);
    EXPECT_EQ(moved, folder / (cut + "\u00e4~2"));
}

TEST(KeepBeside, OfALinkItIsTheTarget) {
    const ScratchFolder folder;
    fs::create_directory(folder / "docs");
    writeBytes(folder / "docs/a.klt", "text");
    fs::create_symlink("docs/a.klt", folder / "link");
    EXPECT_EQ(keepBeside(folder / "link").path, folder / "docs/a.klt~");
    EXPECT_EQ(readBytes(folder / "docs/a.klt~"), "text");
}

TEST(KeepBeside, AttributesAreKeptAndRightsOfOthersAreNot) {
    const ScratchFolder folder;
    const auto path = folder / "a.klt";
    writeBytes(path, "text");
    const bool hasAttributes = setxattr(path.c_str(), "user.klt", "x", 1, 0) == 0;
    ASSERT_EQ(chmod(path.c_str(), 04755), 0);
    EXPECT_EQ(keepBeside(path).error, std::nullopt);
    EXPECT_EQ(modeOf(path + "~"), 0755U);
    EXPECT_EQ(getxattr((path + "~").c_str(), "user.klt", nullptr, 0) == 1, hasAttributes);
}

TEST(KeepBeside, WhatCantBeKeptIsToldAndLeavesNothing) {
    const ScratchFolder folder;
    giveToUser(folder.path());
    const auto path = folder / "a.klt";
    writeBytes(path, std::string(50'000, 'x'));
    giveToUser(path);
    fs::create_directory(folder / "docs");
    const auto error = [](const std::string& of) { return keepBeside(of).error.value_or("none"); };
    EXPECT_EQ(error(folder / "none"), "No such file or directory");
    EXPECT_EQ(error(folder / "docs"), "Is a directory");
    EXPECT_EQ(inChild([&] {
                  limitFileSize(10'000);
                  return error(path);
              }),
              "File too large");
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(asUser([&] { return error(path); }), "Permission denied");
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("a.klt", "docs"));
}

}  // namespace
