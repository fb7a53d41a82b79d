#include "platform/FileWriter.h"

#include <gmock/gmock.h>
#include <sys/xattr.h>

#include "platform/KeptCopies.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"
#include "support/UnixSocket.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

static struct stat stateOf(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(lstat(path.c_str(), &info), 0) << path;
    return info;
}

// The content also of a file that the user may not read.
static std::string opened(const std::string& path) {
    EXPECT_EQ(chmod(path.c_str(), S_IRUSR | S_IWUSR), 0) << path;
    return readBytes(path);
}

// A folder "docs" beside the user's own folders, all of them the ordinary user's.
class FileWriter : public testing::Test {
protected:
    FileWriter() {
        for (const auto* folder : {"", "docs", "state"}) {
            fs::create_directories(home_ / folder);
            giveToUser(home_ / folder);
        }
    }

    std::string doc(const std::string& name) const { return docs_ + "/" + name; }
    std::string makeDoc(const std::string& name, std::string_view bytes, mode_t mode = 0644) const {
        writeBytes(doc(name), bytes);
        giveToUser(doc(name));
        EXPECT_EQ(chmod(doc(name).c_str(), mode), 0);
        return doc(name);
    }
    // The words of the error, or "" where it went well.
    static std::string save(const std::string& path, std::string_view bytes,
                            OldFile old = OldFile::Replaced) {
        return writeFile(path, bytes, old).value_or("");
    }
    std::string saveAsUser(const std::string& path, std::string_view bytes,
                           OldFile old = OldFile::Replaced) const {
        return asUser([&] { return save(path, bytes, old); });
    }
    void expectSaved(const std::string& path, std::string_view bytes, OldFile old = OldFile::Replaced) const {
        EXPECT_EQ(saveAsUser(path, bytes, old), "") << path;
        EXPECT_EQ(readBytes(path), bytes) << path;
    }

    ScratchHome home_;
    std::string docs_ = home_ / "docs";
};

TEST_F(FileWriter, WritesANewFileWithTheUsualMode) {
    const auto before = umask(027);
    EXPECT_EQ(save(doc("new.klt"), "a\r\nb"), "");
    umask(before);
    EXPECT_EQ(readBytes(doc("new.klt")), "a\r\nb");
    EXPECT_EQ(modeOf(doc("new.klt")), 0640U);
    EXPECT_THAT(namesIn(docs_), ElementsAre("new.klt"));
}

TEST_F(FileWriter, ReplacesWithAnotherFileOfTheSameMode) {
    const auto longest = std::string(251, 'n') + ".klt";
    for (const mode_t mode : {0600U, 0644U, 0641U, 0777U, 0200U, 04755U}) {
        const auto path = makeDoc(longest, "old", mode);
        const auto before = stateOf(path);
        EXPECT_EQ(saveAsUser(path, "new"), "") << mode;
        EXPECT_EQ(modeOf(path), mode);
        EXPECT_EQ(opened(path), "new") << mode;
        EXPECT_NE(stateOf(path).st_ino, before.st_ino) << "in place, not replaced";
        EXPECT_THAT(namesIn(docs_), ElementsAre(longest));
    }
}

TEST_F(FileWriter, KeepsAttributes) {
    const auto path = makeDoc("tagged.klt", "old");
    if (setxattr(path.c_str(), "user.klt", "x\0y", 3, 0) != 0)
        GTEST_SKIP() << "this file system has no attributes: " << strerror(errno);
    EXPECT_EQ(saveAsUser(path, "new"), "");
    char value[8];
    ASSERT_EQ(getxattr(path.c_str(), "user.klt", value, sizeof value), 3);
    EXPECT_EQ(std::string(value, 3), std::string("x\0y", 3));
}

TEST_F(FileWriter, OfASymbolicLinkTheTargetIsReplaced) {
    fs::create_directories(doc("else/links"));
    giveToUser(doc("else"));
    const auto target = makeDoc("else/target", "old");
    fs::create_symlink("../target", doc("else/links/link"));
    fs::create_symlink("else/links/link", doc("chain"));
    expectSaved(doc("chain"), "new");
    EXPECT_EQ(readBytes(target), "new");
    EXPECT_TRUE(fs::is_symlink(doc("else/links/link")) && fs::is_symlink(doc("chain")));
    EXPECT_THAT(namesIn(doc("else")), ElementsAre("links", "target"));
    EXPECT_THAT(namesIn(docs_), ElementsAre("chain", "else"));
}

TEST_F(FileWriter, ADanglingLinkGetsItsTarget) {
    fs::create_symlink("made", doc("link"));
    expectSaved(doc("link"), "new");
    EXPECT_EQ(readBytes(doc("made")), "new");
    fs::create_symlink("none/made", doc("far"));
    EXPECT_EQ(saveAsUser(doc("far"), "new"), "No such file or directory");
    fs::create_symlink("circle", doc("circle"));
    EXPECT_EQ(saveAsUser(doc("circle"), "new"), "Too many levels of symbolic links");
}

TEST_F(FileWriter, AHardLinkedFileIsWrittenInPlace) {
    const auto path = makeDoc("one", "old text", 0640);
    fs::create_hard_link(path, doc("two"));
    for (const auto* bytes : {"longer than the old", "", "new"}) {
        expectSaved(path, bytes);
        EXPECT_TRUE(fs::equivalent(path, doc("two")));
        EXPECT_EQ(modeOf(path), 0640U);
        EXPECT_THAT(leftoverCopies(path), IsEmpty());
    }
    fs::permissions(home_ / "state/klt-editor", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THAT(saveAsUser(path, "newer"), testing::EndsWith(": Permission denied")) << "no copy can be kept";
    EXPECT_EQ(readBytes(path), "new");
}

TEST_F(FileWriter, AnotherOwnersFileIsWrittenInPlaceOrKeptBeside) {
    if (!isRoot()) GTEST_SKIP() << "only root can make another user's file";
    const auto path = makeDoc("theirs", "old", 0666);
    ASSERT_EQ(chown(path.c_str(), 12345, 12345), 0);
    const auto before = stateOf(path);
    expectSaved(path, "by the user");
    EXPECT_EQ(save(path, "by root"), "");
    EXPECT_EQ(readBytes(path), "by root");
    EXPECT_EQ(stateOf(path).st_ino, before.st_ino);
    EXPECT_EQ(stateOf(path).st_uid, 12345U);
    ASSERT_EQ(chmod(path.c_str(), 0622), 0);
    expectSaved(path, "new", OldFile::KeptBeside);
    EXPECT_EQ(readBytes(path + "~"), "by root");
    EXPECT_EQ(stateOf(path + "~").st_uid, 12345U);
}

TEST_F(FileWriter, AFolderThatTakesNoNewFile) {
    const auto path = makeDoc("old.klt", "old");
    fs::permissions(docs_, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(saveAsUser(doc("new.klt"), "new"), "Permission denied");
    expectSaved(path, "new");
    EXPECT_EQ(saveAsUser(path, "newer", OldFile::KeptBeside), "Permission denied");
    EXPECT_EQ(readBytes(path), "new");
    EXPECT_THAT(namesIn(docs_), ElementsAre("old.klt"));
}

TEST_F(FileWriter, AFileThatTheUserMayNotWriteIsRefused) {
    const auto path = makeDoc("readonly.klt", "old", 0444);
    for (const auto old : {OldFile::Replaced, OldFile::KeptBeside})
        EXPECT_EQ(saveAsUser(path, "new", old), "Permission denied");
    EXPECT_EQ(readBytes(path), "old");
    EXPECT_THAT(namesIn(docs_), ElementsAre("readonly.klt"));
}

TEST_F(FileWriter, OnlyPlainFilesAreWritten) {
    fs::create_directory(doc("folder"));
    ASSERT_EQ(mkfifo(doc("fifo").c_str(), 0666), 0);
    const auto socket = listenAtPath(doc("socket"));
    const std::pair<std::string, std::string> rows[] = {
        {doc("folder"), "Is a directory"},
        {doc("fifo"), "Not a plain file"},
        {doc("socket"), "Not a plain file"},
        {"/dev/null", "Not a plain file"},
        {doc("none/x"), "No such file or directory"},
        {doc("new/"), "No such file or directory"},
        {"", "No such file or directory"},
    };
    for (const auto& [path, error] : rows)
        for (const auto old : {OldFile::Replaced, OldFile::KeptBeside})
            EXPECT_EQ(save(path, "new", old), error) << path;
    EXPECT_THAT(namesIn(docs_), ElementsAre("fifo", "folder", "socket"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FileWriter, KeepsTheOldFileBeside) {
    // The user may write it, but not read it: a copy could not be made.
    const auto path = makeDoc("torn.klt", "first", 0200);
    fs::create_symlink("torn.klt", doc("link"));
    for (const auto* bytes : {"second", "third", "fourth"})
        EXPECT_EQ(saveAsUser(doc("link"), bytes, OldFile::KeptBeside), "");
    EXPECT_THAT(namesIn(docs_), ElementsAre("link", "torn.klt", "torn.klt~", "torn.klt~2", "torn.klt~3"));
    for (const auto& [end, bytes] :
         {std::pair("", "fourth"), {"~", "first"}, {"~2", "second"}, {"~3", "third"}}) {
        EXPECT_EQ(modeOf(path + end), 0200U);
        EXPECT_EQ(opened(path + end), bytes);
    }
    EXPECT_EQ(saveAsUser(doc("new.klt"), "x", OldFile::KeptBeside), "") << "there is no old file";
    EXPECT_FALSE(fs::exists(doc("new.klt~")));
}

TEST_F(FileWriter, OnlyAVersionThatWasSeenIsReplaced) {
    const auto path = doc("a.klt");
    PointOfNoReturn point;
    const auto write = [&](const std::string& text, const FileIdentity& seen) {
        auto written = writeOverSeen(path, text, Encoding::Any, seen, point);
        EXPECT_EQ(written.error, std::nullopt) << text;
        EXPECT_EQ(readBytes(path), text);
        EXPECT_EQ(written.version, versionOf(identityOf(stateOf(path)), text)) << text;
        return written;
    };
    const auto first = write("1", {});
    EXPECT_EQ(first.kept, "");
    const auto second = write("2", first.version.identity);
    EXPECT_EQ(second.kept, "");
    EXPECT_EQ(write("3", first.version.identity).kept, path + "~");
    EXPECT_EQ(readBytes(path + "~"), "2");
    const auto fourth = write("4", {});
    EXPECT_EQ(fourth.kept, path + "~2");
    EXPECT_EQ(readBytes(path + "~2"), "3");
    fs::remove(path);
    const auto fifth = write("5", fourth.version.identity);
    EXPECT_EQ(fifth.kept, "");
    fs::create_hard_link(path, doc("tied"));
    EXPECT_EQ(write("6", identityOf(stateOf(path))).kept, "");
    EXPECT_EQ(write("7", {}).kept, path + "~3");
    EXPECT_EQ(readBytes(path + "~3"), "6");
    EXPECT_TRUE(fs::equivalent(path, doc("tied"))) << "written in place";
    EXPECT_THAT(namesIn(docs_), ElementsAre("a.klt", "a.klt~", "a.klt~2", "a.klt~3", "tied"));
    EXPECT_EQ(writeOverSeen(doc("none/a"), "x", Encoding::Any, {}, point).error, "No such file or directory");
    EXPECT_FALSE(point.callOff()) << "too late";
}

TEST_F(FileWriter, AWriteThatIsCalledOffChangesNothing) {
    writeBytes(doc("alone"), "old");
    fs::create_hard_link(makeDoc("one", "old"), doc("two"));
    PointOfNoReturn point;
    EXPECT_TRUE(point.callOff());
    for (const auto* name : {"alone", "one", "new"})
        for (const auto& seen : {FileIdentity(), identityOf(stateOf(doc("one")))})
            EXPECT_EQ(writeOverSeen(doc(name), "new", Encoding::Any, seen, point).error,
                      "Operation canceled");
    EXPECT_EQ(readBytes(doc("alone")), "old");
    EXPECT_EQ(readBytes(doc("one")), "old");
    EXPECT_THAT(namesIn(docs_), ElementsAre("alone", "one", "two"));
}

TEST_F(FileWriter, AFileSizeLimitLeavesTheOldFile) {
    const std::string old(90'000, 'o'), bytes(80'000, 'n');
    const auto alone = makeDoc("alone", "old"), linked = makeDoc("linked", "old"),
               large = makeDoc("large", old);
    for (const auto& path : {linked, large}) fs::create_hard_link(path, path + ".2");
    const auto error = inChild([&] {
        limitFileSize(10'000);
        return save(alone, bytes) + "|" + save(linked, bytes) + "|" + save(large, bytes);
    });
    EXPECT_THAT(error, testing::MatchesRegex("File too large\\|File too large\\|No copy.*File too large"));
    EXPECT_EQ(readBytes(alone) + readBytes(linked) + readBytes(large), "oldold" + old);
    EXPECT_THAT(leftoverCopies(linked), IsEmpty());
    EXPECT_EQ(namesIn(docs_).size(), 5U);
}

TEST_F(FileWriter, ATextIsWrittenInItsEncodingOrInUtf8) {
    EXPECT_EQ(writeTextFile(doc("a.klt"), "ä", Encoding::Utf16BE).encoding, Encoding::Utf16BE);
    EXPECT_EQ(readBytes(doc("a.klt")), std::string("\xFE\xFF\0\xE4", 4));
    EXPECT_EQ(writeTextFile(doc("a.klt"), "ä\u0101", Encoding::Windows1252).encoding, Encoding::Utf8);
    EXPECT_EQ(readBytes(doc("a.klt")), "ä\u0101");
    EXPECT_EQ(writeTextFile(docs_, "", Encoding::Any).error, "Is a directory");
}

TEST_F(FileWriter, WhatIsTooLargeIsNotWritten) {
    const auto path = makeDoc("text.klt", "old");
    EXPECT_EQ(writeFile(path, "12345", OldFile::Replaced, 4), "File too large");
    EXPECT_EQ(readBytes(path), "old");
    EXPECT_EQ(writeFile(path, "1234", OldFile::Replaced, 4), std::nullopt);
}
