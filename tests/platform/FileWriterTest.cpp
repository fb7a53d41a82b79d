#include "platform/FileWriter.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/xattr.h>

#include <algorithm>
#include <filesystem>

#include "platform/FileReader.h"
#include "platform/KeptCopies.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

struct stat stateOf(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(lstat(path.c_str(), &info), 0) << path;
    return info;
}

mode_t modeOf(const std::string& path) {
    return stateOf(path).st_mode & 07777;
}

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

// The content also of a file that the user may not read.
std::string opened(const std::string& path) {
    EXPECT_EQ(chmod(path.c_str(), S_IRUSR | S_IWUSR), 0) << path;
    return readBytes(path);
}

// A small file system in place of `folder`, for this process alone.
bool mountSmallDisk(const std::string& folder) {
    const auto user = std::to_string(geteuid()), group = std::to_string(getegid());
    if (unshare(CLONE_NEWNS | (isRoot() ? 0 : CLONE_NEWUSER)) != 0) return false;
    if (user != "0") {
        writeBytes("/proc/self/setgroups", "deny");
        writeBytes("/proc/self/uid_map", user + " " + user + " 1");
        writeBytes("/proc/self/gid_map", group + " " + group + " 1");
    }
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=1m,mode=777") == 0;
}

// A folder "docs" beside the user's own folders, all of them the ordinary user's.
class FileWriter : public testing::Test {
protected:
    FileWriter() {
        fs::create_directories(docs_);
        fs::create_directories(home_ / "state");
        for (const auto* folder : {"", "docs", "state"}) giveToUser(home_ / folder);
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

    ScratchHome home_;
    std::string docs_ = home_ / "docs";
};

}  // namespace

TEST_F(FileWriter, WritesANewFileWithTheUsualMode) {
    const auto before = umask(027);
    EXPECT_EQ(save(doc("new.klt"), "a\r\nb"), "");
    umask(before);
    EXPECT_EQ(readBytes(doc("new.klt")), "a\r\nb");
    EXPECT_EQ(modeOf(doc("new.klt")), 0640U);
    EXPECT_THAT(namesIn(docs_), ElementsAre("new.klt"));
}

TEST_F(FileWriter, ReplacesWithAnotherFileOfTheSameMode) {
    for (const mode_t mode : {0600U, 0644U, 0641U, 0777U, 0200U, 04755U}) {
        const auto path = makeDoc("odd.klt", "old", mode);
        const auto before = stateOf(path);
        EXPECT_EQ(saveAsUser(path, "new"), "") << mode;
        EXPECT_EQ(modeOf(path), mode);
        EXPECT_EQ(opened(path), "new") << mode;
        EXPECT_NE(stateOf(path).st_ino, before.st_ino) << "in place, not replaced";
        EXPECT_THAT(namesIn(docs_), ElementsAre("odd.klt"));
    }
}

TEST_F(FileWriter, TheLongestNameCanBeSaved) {
    const auto path = makeDoc(std::string(251, 'n') + ".klt", "old");
    EXPECT_EQ(saveAsUser(path, ""), "");
    EXPECT_EQ(readBytes(path), "");
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
    fs::create_directory(home_ / "else");
    giveToUser(home_ / "else");
    writeBytes(home_ / "else/target", "old");
    giveToUser(home_ / "else/target");
    fs::create_symlink("../else/target", doc("link"));
    fs::create_symlink("link", doc("chain"));
    EXPECT_EQ(saveAsUser(doc("chain"), "new"), "");
    EXPECT_EQ(readBytes(home_ / "else/target"), "new");
    EXPECT_TRUE(fs::is_symlink(doc("link")) && fs::is_symlink(doc("chain")));
    EXPECT_THAT(namesIn(home_ / "else"), ElementsAre("target"));
    EXPECT_THAT(namesIn(docs_), ElementsAre("chain", "link"));
}

TEST_F(FileWriter, ADanglingLinkGetsItsTarget) {
    fs::create_symlink("made", doc("link"));
    EXPECT_EQ(saveAsUser(doc("link"), "new"), "");
    EXPECT_EQ(readBytes(doc("made")), "new");
    EXPECT_TRUE(fs::is_symlink(doc("link")));

    fs::create_symlink("none/made", doc("far"));
    EXPECT_EQ(saveAsUser(doc("far"), "new"), "No such file or directory");
    fs::create_symlink("circle", doc("circle"));
    EXPECT_EQ(saveAsUser(doc("circle"), "new"), "Too many levels of symbolic links");
}

TEST_F(FileWriter, AHardLinkedFileIsWrittenInPlace) {
    for (const auto* bytes : {"longer than the old", "new", ""}) {
        const auto path = makeDoc("one", "old text", 0640);
        fs::create_hard_link(path, doc("two"));
        const auto before = stateOf(path);
        EXPECT_EQ(saveAsUser(path, bytes), "");
        EXPECT_EQ(readBytes(doc("two")), bytes);
        EXPECT_EQ(stateOf(path).st_ino, before.st_ino);
        EXPECT_EQ(modeOf(path), 0640U);
        EXPECT_THAT(leftoverCopies(path), IsEmpty());
        fs::remove(doc("two"));
    }
}

TEST_F(FileWriter, WithoutACopyNothingIsWrittenInPlace) {
    const auto path = makeDoc("one", "old");
    fs::create_hard_link(path, doc("two"));
    fs::permissions(home_ / "state", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THAT(saveAsUser(path, "new"), testing::EndsWith(": No such file or directory"));
    EXPECT_EQ(readBytes(path), "old");
}

TEST_F(FileWriter, AnotherOwnersFileIsWrittenInPlace) {
    if (!isRoot()) GTEST_SKIP() << "only root can make another user's file";
    const auto path = makeDoc("theirs", "old", 0666);
    ASSERT_EQ(chown(path.c_str(), 12345, 12345), 0);
    for (const auto* bytes : {"by the user", "by root"}) {
        const auto before = stateOf(path);
        const bool byRoot = std::string_view(bytes) == "by root";
        EXPECT_EQ(byRoot ? save(path, bytes) : saveAsUser(path, bytes), "");
        EXPECT_EQ(readBytes(path), bytes);
        EXPECT_EQ(stateOf(path).st_ino, before.st_ino);
        EXPECT_EQ(stateOf(path).st_uid, 12345U);
    }
}

TEST_F(FileWriter, AFolderThatTakesNoNewFile) {
    const auto path = makeDoc("old.klt", "old");
    fs::permissions(docs_, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(saveAsUser(doc("new.klt"), "new"), "Permission denied");
    EXPECT_EQ(saveAsUser(path, "new"), "");
    EXPECT_EQ(readBytes(path), "new");
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
    sockaddr_un address{AF_UNIX, {}};
    doc("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    const std::pair<std::string, std::string> rows[] = {
        {doc("folder"), "Is a directory"},
        {doc("fifo"), "Not a plain file"},
        {doc("socket"), "Not a plain file"},
        {"/dev/null", "Not a plain file"},
        {doc("none/x"), "No such file or directory"},
        {doc("new/"), "No such file or directory"},
        {"", "No such file or directory"},
    };
    for (const auto& [path, error] : rows) {
        for (const auto old : {OldFile::Replaced, OldFile::KeptBeside})
            EXPECT_EQ(save(path, "new", old), error) << path;
    }
    close(socket);
    EXPECT_THAT(namesIn(docs_), ElementsAre("fifo", "folder", "socket"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FileWriter, KeepsTheOldFileBeside) {
    // The user may write it, but not read it: a copy could not be made.
    const auto path = makeDoc("torn.klt", "first", 0200);
    fs::create_symlink("torn.klt", doc("link"));
    EXPECT_EQ(saveAsUser(doc("link"), "second", OldFile::KeptBeside), "");
    EXPECT_EQ(saveAsUser(path, "third", OldFile::KeptBeside), "");
    EXPECT_EQ(saveAsUser(path, "fourth", OldFile::KeptBeside), "");
    EXPECT_THAT(namesIn(docs_), ElementsAre("link", "torn.klt", "torn.klt~", "torn.klt~2", "torn.klt~3"));
    EXPECT_EQ(modeOf(path), 0200U);
    EXPECT_EQ(modeOf(path + "~"), 0200U);
    EXPECT_EQ(opened(path), "fourth");
    EXPECT_EQ(opened(path + "~"), "first");
    EXPECT_EQ(opened(path + "~2"), "second");
    EXPECT_EQ(opened(path + "~3"), "third");
    EXPECT_EQ(saveAsUser(doc("new.klt"), "x", OldFile::KeptBeside), "") << "there is no old file";
    EXPECT_FALSE(fs::exists(doc("new.klt~")));
}

TEST_F(FileWriter, KeepsAnotherOwnersUnreadableFileBeside) {
    if (!isRoot()) GTEST_SKIP() << "only root can make another user's file";
    const auto path = makeDoc("theirs", "old", 0622);
    ASSERT_EQ(chown(path.c_str(), 12345, 12345), 0);
    EXPECT_EQ(saveAsUser(path, "new", OldFile::KeptBeside), "");
    EXPECT_EQ(readBytes(path), "new");
    EXPECT_EQ(readBytes(path + "~"), "old");
    EXPECT_EQ(stateOf(path + "~").st_uid, 12345U);
}

TEST_F(FileWriter, AFileSizeLimitLeavesTheOldFile) {
    const auto alone = makeDoc("alone", "old");
    const auto linked = makeDoc("linked", "old");
    const auto large = makeDoc("large", std::string(90'000, 'o'));
    for (const auto& path : {linked, large}) fs::create_hard_link(path, path + ".2");
    const auto error = inChild([&] {
        limitFileSize(10'000);
        const std::string bytes(80'000, 'n');
        return save(alone, bytes) + "|" + save(linked, bytes) + "|" + save(large, bytes);
    });
    EXPECT_THAT(error, testing::MatchesRegex("File too large\\|File too large\\|No copy.*File too large"));
    EXPECT_EQ(readBytes(alone), "old");
    EXPECT_EQ(readBytes(linked), "old");
    EXPECT_EQ(readBytes(large), std::string(90'000, 'o'));
    EXPECT_THAT(leftoverCopies(linked), IsEmpty());
    EXPECT_EQ(namesIn(docs_).size(), 5U);
}

TEST_F(FileWriter, AFullDiskLeavesTheOldFile) {
    const auto error = inChild([&]() -> std::string {
        if (!mountSmallDisk(docs_)) return std::string("skip: ") + strerror(errno);
        const std::string old(100'000, 'o'), bytes(2'000'000, 'n');
        for (const auto* name : {"alone", "linked"}) writeBytes(doc(name), old);
        fs::create_hard_link(doc("linked"), doc("linked2"));
        auto told = save(doc("alone"), bytes) + "|" + save(doc("linked"), bytes);
        for (const auto* name : {"alone", "linked", "linked2"})
            told += readBytes(doc(name)) == old ? "|old" : "|damaged";
        return told + "|" + std::to_string(namesIn(docs_).size() + leftoverCopies(doc("linked")).size());
    });
    if (error.starts_with("skip: ")) GTEST_SKIP() << "no small disk can be mounted here: " << error;
    EXPECT_EQ(error, "No space left on device|No space left on device|old|old|old|3");
}

TEST_F(FileWriter, TextComesBackAsItWas) {
    const struct {
        std::string bytes;
        Encoding encoding;
    } rows[] = {
        {"", Encoding::Any},
        {"Version=2\r\n", Encoding::Any},
        {"\xE4\r\n\x80\x81", Encoding::Windows1252},
        {"ä\r\n", Encoding::Utf8},
        {"\xEF\xBB\xBF"
         "a\r\n",
         Encoding::Utf8Bom},
        {std::string("\xFF\xFE"
                     "a\0\r\0\n\0",
                     8),
         Encoding::Utf16LE},
        {std::string("\xFE\xFF\0a\0\r\0\n", 8), Encoding::Utf16BE},
        {std::string("a\0b", 3), Encoding::Any},
    };
    for (const auto& row : rows) {
        const auto path = makeDoc("text.klt", row.bytes);
        const auto read = readTextFile(path);
        EXPECT_EQ(read.error, std::nullopt);
        EXPECT_EQ(read.encoding, row.encoding);
        const auto written = writeTextFile(path, read.text, read.encoding);
        EXPECT_EQ(written.error, std::nullopt);
        EXPECT_EQ(written.encoding, row.encoding);
        EXPECT_EQ(readBytes(path), row.bytes);
    }
    const auto turned = writeTextFile(doc("text.klt"), "ä\u0101", Encoding::Windows1252);
    EXPECT_EQ(turned.encoding, Encoding::Utf8);
    EXPECT_EQ(writeTextFile(docs_, "", Encoding::Any).error, "Is a directory");
    const auto path = makeDoc("text.klt", "old");
    EXPECT_EQ(writeFile(path, "12345", OldFile::Replaced, 4), "File too large");
    EXPECT_EQ(readBytes(path), "old");
    EXPECT_EQ(writeFile(path, "1234", OldFile::Replaced, 4), std::nullopt);
}
