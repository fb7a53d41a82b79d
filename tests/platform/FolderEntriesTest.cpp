#include "platform/FolderEntries.h"

#include <gmock/gmock.h>

#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
namespace fs = std::filesystem;

namespace {

std::vector<FolderEntries> reports(const std::string& folder) {
    std::vector<FolderEntries> all;
    listFolder(folder, [&](const FolderEntries& entries) { all.push_back(entries); });
    return all;
}

}  // namespace

TEST(FolderEntries, AreToldBeforeLinksAreAsked) {
    const ScratchFolder folder;
    for (const auto* made : {"b", ".a", "C"}) fs::create_directory(folder / made);
    for (const auto* made : {"y.klt", "X.KLT"}) writeBytes(folder / made, "");
    EXPECT_EQ(reports(folder.path()).size(), 1U);
    fs::create_symlink("b", folder / "A");
    fs::create_symlink("y.klt", folder / "z.klt");
    fs::create_symlink("nowhere", folder / "w");
    const auto told = reports(folder.path());
    ASSERT_EQ(told.size(), 2U);
    EXPECT_THAT(told[0].folders, ElementsAre("b", "C", ".a"));
    EXPECT_THAT(told[0].files, ElementsAre("X.KLT", "y.klt"));
    EXPECT_FALSE(told[0].isWhole);
    EXPECT_THAT(told[1].folders, ElementsAre("A", "b", "C", ".a"));
    EXPECT_THAT(told[1].files, ElementsAre("w", "X.KLT", "y.klt", "z.klt"));
    EXPECT_TRUE(told[1].isWhole);
    EXPECT_FALSE(told[1].error);

    const auto none = reports(folder / "none");
    ASSERT_EQ(none.size(), 1U);
    EXPECT_TRUE(none[0].isWhole);
    EXPECT_EQ(none[0].error, "No such file or directory");
}

TEST(FolderEntries, AreInTheOrderOfNames) {
    // From the first to the last; a sign beyond ASCII that folds to a shorter one is no shorter name.
    const std::vector<std::string> names = {"a",      "A1", "ab", "B", "b",  "K",
                                            "\u212A", "ka", "kb", "ä", ".a", ".B"};
    for (size_t left = 0; left < names.size(); ++left)
        for (size_t right = 0; right < names.size(); ++right)
            EXPECT_EQ(precedes(names[left], names[right]), left < right)
                << names[left] << " " << names[right];
}
