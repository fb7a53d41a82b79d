// What is kept for the user in the state folder: copies of files written in place, and texts that found no
// place.

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/FileReader.h"
#include "platform/KeptCopies.h"
#include "platform/Recovery.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

mode_t modeOf(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
    return info.st_mode & 07777;
}

// Another process that keeps a copy and is killed over it.
void leaveCopy(const std::string& original, std::string_view bytes) {
    ChildProcess writer([&](const ChildProcess::Report& report) {
        const KeptCopy copy(original, bytes);
        report(copy.error().value_or("kept"));
        ChildProcess::sleepForever();
    });
    ASSERT_EQ(writer.nextReport(), "kept");
    EXPECT_THAT(leftoverCopies(original), IsEmpty()) << "it is in use, not left over";
}

}  // namespace

TEST(KeptCopies, ALeftoverIsToldOfUnderEveryNameOfTheFile) {
    const ScratchHome home;
    fs::create_directory(home / "docs");
    fs::create_directory_symlink("docs", home / "link");
    fs::create_symlink("docs/a.klt", home / "a link");
    writeBytes(home / "docs/a.klt", "torn");
    writeBytes(home / "docs/b.klt", "");
    leaveCopy(home / "docs/a.klt", "old bytes");
    for (const auto* name : {"docs/a.klt", "link/a.klt", "a link", "docs/../docs/a.klt"}) {
        const auto copies = leftoverCopies(home / name);
        ASSERT_EQ(copies.size(), 1U) << name;
        EXPECT_EQ(readBytes(copies[0]), "old bytes");
        EXPECT_EQ(modeOf(copies[0]), 0600U);
    }
    EXPECT_THAT(leftoverCopies(home / "docs/b.klt"), IsEmpty());
}

TEST(KeptCopies, DiscardedOrDismissedItIsToldOfNoMore) {
    const ScratchHome home;
    const auto original = home / "a.klt";
    KeptCopy(original, "in use no more").discard();
    EXPECT_THAT(leftoverCopies(original), IsEmpty());
    for (const auto* bytes : {"one", "two"}) {
        leaveCopy(original, bytes);
        const auto copies = leftoverCopies(original);
        ASSERT_EQ(copies.size(), 1U);
        EXPECT_EQ(dismissKeptFile(copies[0]), std::nullopt);
        EXPECT_THAT(leftoverCopies(original), IsEmpty());
        EXPECT_EQ(readBytes(home / "state/klt-editor/dismissed/" + fs::path(copies[0]).filename().string()),
                  bytes);
    }
    EXPECT_EQ(dismissKeptFile(home / "none"), "No such file or directory");
}

TEST(Recovery, TextsAreKeptUnderNamesOfTheirOwn) {
    const ScratchHome home;
    const auto folder = home / "state/klt-editor/recovery/";
    const struct {
        std::string document, name;
    } rows[] = {
        {"/docs/harbor.klt", "harbor.klt"},
        {"/else/harbor.klt", "harbor-2.klt"},
        {"KLT4.klt", "KLT4.klt"},
        {"KLT4", "KLT4"},
        {"C:\\docs\\.hidden", "document.hidden"},
        {"", "document"},
        {std::string(300, 'n') + ".klt", std::string(200, 'n') + ".klt"},
    };
    std::vector<std::string> kept;
    for (const auto& row : rows) {
        const auto recovered = keepForRecovery(row.document, "text of " + row.document, Encoding::Any);
        EXPECT_EQ(recovered.error, std::nullopt);
        EXPECT_EQ(recovered.path, folder + row.name);
        EXPECT_EQ(readBytes(recovered.path), "text of " + row.document);
        EXPECT_EQ(modeOf(recovered.path), 0600U);
        kept.push_back(recovered.path);
    }
    EXPECT_THAT(recoveryFiles(), testing::UnorderedElementsAreArray(kept));
}

TEST(Recovery, TheTextComesBackInItsEncoding) {
    const ScratchHome home;
    for (const auto encoding : {Encoding::Windows1252, Encoding::Utf8, Encoding::Utf16BE}) {
        const auto read = readTextFile(keepForRecovery("a", "ä\r\n", encoding).path);
        EXPECT_EQ(read.text, "ä\r\n");
        EXPECT_EQ(read.encoding, encoding);
    }
}

TEST(Recovery, DismissedTextsStayOnTheDisk) {
    const ScratchHome home;
    const auto dismissed = home / "state/klt-editor/recovery/dismissed/";
    for (const auto* text : {"one", "two", "three"}) {
        const auto path = keepForRecovery("a.klt", text, Encoding::Any).path;
        EXPECT_EQ(dismissKeptFile(path), std::nullopt);
        EXPECT_THAT(recoveryFiles(), IsEmpty());
    }
    EXPECT_EQ(readBytes(dismissed + "a.klt"), "one");
    EXPECT_EQ(readBytes(dismissed + "a.klt~2"), "two");
    EXPECT_EQ(readBytes(dismissed + "a.klt~3"), "three");
}

TEST(Recovery, WhatCantBeKeptGivesAnErrorAndNoFile) {
    const ScratchHome home;
    EXPECT_EQ(
        inChild([] {
            limitFileSize(100);
            return keepForRecovery("a.klt", std::string(1000, 'x'), Encoding::Any).error.value_or("kept");
        }),
        "File too large");
    EXPECT_THAT(recoveryFiles(), IsEmpty());
    const ScopedVariable nowhere("XDG_STATE_HOME", "/dev/null");
    EXPECT_EQ(keepForRecovery("a.klt", "x", Encoding::Any).error, "Not a directory");
    EXPECT_THAT(recoveryFiles(), IsEmpty());
}
