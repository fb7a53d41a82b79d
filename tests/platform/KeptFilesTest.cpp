// What is kept for the user in the state folder of files that are written in place.

#include <gmock/gmock.h>

#include "platform/KeptCopies.h"
#include "platform/Paths.h"
#include "support/ChildProcess.h"
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
