// Texts that are in no file: where they are kept, and who offers them.

#include <gmock/gmock.h>

#include <latch>
#include <thread>

#include "platform/FileReader.h"
#include "platform/Paths.h"
#include "platform/RecoveryFolder.h"
#include "support/ChildProcess.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

class RecoveryFolderTest : public testing::Test {
protected:
    ScratchHome home_;
    const std::string folder_ = home_ / "state/klt-editor/recovery/";

    /// What a new editor offers, by names of files.
    static std::vector<std::string> offered() {
        RecoveryFolder folder;
        std::vector<std::string> names;
        for (const auto& text : folder.takeLeft()) names.push_back(FileName(text.path));
        std::ranges::sort(names);
        return names;
    }
    /// The texts that are there, whoever keeps them.
    std::vector<std::string> texts() const {
        auto names = namesIn(folder_);
        std::erase_if(names, [](const auto& name) { return name.starts_with('.') || name == "dismissed"; });
        return names;
    }
    /// An editor that keeps a text, and lives.
    static ChildProcess keeper(const std::string& name) {
        ChildProcess child([&](const ChildProcess::Report& report) {
            RecoveryFolder folder;
            report(folder.keep("", {.name = name}, "of " + name).error.value_or("kept"));
            ChildProcess::sleepForever();
        });
        EXPECT_EQ(child.nextReport(), "kept");
        return child;
    }
};

TEST_F(RecoveryFolderTest, TextsAreKeptUnderNamesOfTheirOwnWithWhatIsKnownOfThem) {
    FileVersion seen;
    seen.identity = {1, ~ino_t{0}, 3, {4, 999'999'999}, {-6, 7}};
    seen.size = 8;
    seen.hash = ~size_t{0};
    std::vector<KeptAbout> abouts;
    std::vector<std::string> names;
    {
        RecoveryFolder folder;
        for (const auto& [document, name] :
             {std::pair<std::string, std::string>("/docs/harbor.klt", "harbor.klt"),
              {"/else/harbor.klt", "harbor-2.klt"},
              {"KLT4", "KLT4"},
              {"C:\\docs\\.hidden", "document.hidden"},
              {"/two\nlines/\xFF/1 2", "1 2"},
              {"", "document"},
              {std::string(300, 'n') + ".klt", std::string(200, 'n') + ".klt"}}) {
            const KeptAbout about{document, document.starts_with('/'), Encoding::Utf16BE, 7, seen, true};
            const auto [path, error] = folder.keep("", about, "ä of " + name);
            EXPECT_EQ(error, std::nullopt);
            EXPECT_EQ(path, folder_ + name);
            EXPECT_EQ(modeOf(path), 0600U);
            EXPECT_EQ(readTextFile(path).text, "ä of " + name);
            abouts.push_back(about);
            names.push_back(name);
        }
        EXPECT_THAT(offered(), IsEmpty()) << "their editor lives";
    }
    RecoveryFolder later;
    std::vector<KeptAbout> offered;
    for (const auto& text : later.takeLeft()) offered.push_back(text.about);
    EXPECT_THAT(offered, testing::UnorderedElementsAreArray(abouts));
    EXPECT_THAT(texts(), testing::UnorderedElementsAreArray(names));
}

TEST_F(RecoveryFolderTest, AnEditorOffersTheTextsOfTheDeadOnceAndNobodyElses) {
    auto first = keeper("first.klt");
    auto second = keeper("second.klt");
    EXPECT_THAT(offered(), IsEmpty());
    first.kill();
    {
        RecoveryFolder taker;
        ASSERT_EQ(taker.takeLeft().size(), 1U);
        EXPECT_EQ(taker.takeLeft().size(), 1U) << "they stay its own";
        EXPECT_THAT(offered(), IsEmpty()) << "another editor has taken them";
    }
    second.kill();
    EXPECT_THAT(offered(), ElementsAre("first.klt", "second.klt"));
    // A text that nothing is known of is offered; what tells of no text goes, and so do the locks of the
    // dead.
    fs::remove(folder_ + "first.klt");
    writeBytes(folder_ + ".about-second.klt", "klt-kept 1\n1 2 3\n");
    writeBytes(folder_ + "other.klt", "x");
    EXPECT_THAT(offered(), ElementsAre("other.klt", "second.klt"));
    EXPECT_THAT(namesIn(folder_), ElementsAre(".about-second.klt", "other.klt", "second.klt"));
}

TEST_F(RecoveryFolderTest, ALaterVersionTakesThePlaceOfTheEarlierOneOrLeavesIt) {
    RecoveryFolder folder;
    const auto path = folder.keep("", {.name = "a.klt"}, "one").path;
    EXPECT_EQ(folder.keep(path, {.name = "a.klt"}, "two").path, path);
    EXPECT_EQ(readBytes(path), "two");
    EXPECT_EQ(inChild([&] {
                  limitFileSize(100);
                  RecoveryFolder own;
                  std::ignore = own.keep("", {.name = "b.klt"}, std::string(1000, 'x'));
                  return own.keep(path, {.name = "a.klt"}, std::string(1000, 'x')).error.value_or("kept");
              }),
              "File too large");
    EXPECT_EQ(readBytes(path), "two");
    EXPECT_THAT(texts(), ElementsAre("a.klt"));
    folder.remove(path);
    EXPECT_THAT(texts(), IsEmpty());
    const ScopedVariable nowhere("XDG_STATE_HOME", "/dev/null");
    EXPECT_EQ(folder.keep("", {}, "x").error, "Not a directory");
    EXPECT_THAT(offered(), IsEmpty());
}

TEST_F(RecoveryFolderTest, ManyAtOnceGetAPlaceEach) {
    constexpr int kThreads = 8, kEach = 20;
    RecoveryFolder one, other;
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            for (int k = 0; k < kEach; ++k)
                std::ignore = (i % 2 ? one : other).keep("", {.name = "a.klt"}, "x");
        });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(texts().size(), size_t{kThreads} * kEach);
}

TEST_F(RecoveryFolderTest, DismissedTextsStayOnTheDisk) {
    RecoveryFolder folder;
    for (const auto* name : {"a.klt", "a.klt~2", "a.klt~3"}) {
        EXPECT_EQ(folder.dismiss(folder.keep("", {.name = "a.klt"}, name).path), std::nullopt);
        EXPECT_THAT(texts(), IsEmpty());
    }
    for (const auto* name : {"a.klt", "a.klt~2", "a.klt~3"})
        EXPECT_EQ(readBytes(folder_ + "dismissed/" + name), name);
    EXPECT_NE(folder.dismiss(folder_ + "a.klt"), std::nullopt);
}

}  // namespace
