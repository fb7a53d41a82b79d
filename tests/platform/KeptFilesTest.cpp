// What is kept for the user in the state folder: copies of files written in place, and texts that found no
// place.

#include <gmock/gmock.h>

#include "platform/FileReader.h"
#include "platform/KeptCopies.h"
#include "platform/Paths.h"
#include "platform/Recovery.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
using testing::IsEmpty;
namespace fs = std::filesystem;

TEST(KeptCopies, ALeftoverIsToldOfUnderEveryNameOfTheFileUntilItIsDismissed) {
    const ScratchHome home;
    const auto original = home / "docs/a.klt";
    fs::create_directory(home / "docs");
    fs::create_directory_symlink("docs", home / "link");
    fs::create_symlink("docs/a.klt", home / "a link");
    for (const auto* name : {"docs/a.klt", "docs/b.klt", "a.klt"}) writeBytes(home / name, "");
    KeptCopy(original, "in use no more").discard();
    ChildProcess writer([&](const ChildProcess::Report& report) {
        const KeptCopy copy(original, "old bytes");
        report(copy.error().value_or("kept"));
        ChildProcess::sleepForever();
    });
    ASSERT_EQ(writer.nextReport(), "kept");
    EXPECT_THAT(leftoverCopies(original), IsEmpty()) << "it is in use, not left over";
    writer.kill();
    for (const auto* name : {"docs/a.klt", "link/a.klt", "a link", "docs/../docs/a.klt"})
        EXPECT_EQ(leftoverCopies(home / name).size(), 1U) << name;
    for (const auto* name : {"docs/b.klt", "a.klt"}) EXPECT_THAT(leftoverCopies(home / name), IsEmpty());
    const auto copy = leftoverCopies(original).at(0);
    EXPECT_EQ(readBytes(copy), "old bytes");
    EXPECT_EQ(modeOf(copy), 0600U);
    EXPECT_EQ(dismissKeptFile(copy), std::nullopt);
    EXPECT_THAT(leftoverCopies(original), IsEmpty());
    EXPECT_EQ(readBytes(home / "state/klt-editor/dismissed/" + FileName(copy)), "old bytes");
    EXPECT_EQ(dismissKeptFile(copy), "No such file or directory");
}

TEST(Recovery, TextsAreKeptUnderNamesOfTheirOwn) {
    const ScratchHome home;
    const auto folder = home / "state/klt-editor/recovery/";
    std::vector<std::string> kept;
    for (const auto& [document, name] :
         {std::pair<std::string, std::string>("/docs/harbor.klt", "harbor.klt"),
          {"/else/harbor.klt", "harbor-2.klt"},
          {"KLT4.klt", "KLT4.klt"},
          {"KLT4", "KLT4"},
          {"C:\\docs\\.hidden", "document.hidden"},
          {"", "document"},
          {std::string(300, 'n') + ".klt", std::string(200, 'n') + ".klt"}}) {
        const auto [path, error] = keepForRecovery(document, "ä of " + document, Encoding::Utf16BE);
        EXPECT_EQ(error, std::nullopt);
        EXPECT_EQ(path, folder + name);
        EXPECT_EQ(modeOf(path), 0600U);
        const auto read = readTextFile(path);
        EXPECT_EQ(read.text, "ä of " + document);
        EXPECT_EQ(read.encoding, Encoding::Utf16BE);
        kept.push_back(path);
    }
    EXPECT_THAT(recoveryFiles(), testing::UnorderedElementsAreArray(kept));
}

TEST(Recovery, DismissedTextsStayOnTheDisk) {
    const ScratchHome home;
    for (const auto* name : {"a.klt", "a.klt~2", "a.klt~3"}) {
        EXPECT_EQ(dismissKeptFile(keepForRecovery("a.klt", name, Encoding::Any).path), std::nullopt);
        EXPECT_THAT(recoveryFiles(), IsEmpty());
    }
    const auto dismissed = home / "state/klt-editor/recovery/dismissed/";
    for (const auto* name : {"a.klt", "a.klt~2", "a.klt~3"}) EXPECT_EQ(readBytes(dismissed + name), name);
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
