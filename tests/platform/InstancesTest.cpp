#include "platform/Instances.h"

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

using namespace klt;
using namespace std::chrono_literals;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kClass = kMainWindowClass;

static std::vector<std::string> titlesFound(const Instances& instances, std::string_view title = {}) {
    std::vector<std::string> titles;
    for (const auto& window : instances.FindMatchingWindows(title, kClass)) titles.push_back(window.title);
    return titles;
}

// What happens at the next call of flock, once.
static std::function<void()> beforeLocking;

class InstancesTest : public testing::Test {
protected:
    ScratchFolder scratch_;
    const std::string folder_ = scratch_ / "klt-editor";
};

extern "C" int flock(int file, int operation) {
    if (const auto work = std::exchange(beforeLocking, nullptr)) work();
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

TEST_F(InstancesTest, TheFirstIsFirstForLife) {
    auto first = std::make_optional<Instances>(folder_);
    EXPECT_FALSE(first->earlierInstanceExists());
    EXPECT_FALSE(first->earlierInstanceExists());
    Instances second(folder_);
    EXPECT_TRUE(second.earlierInstanceExists());
    EXPECT_EQ(readBytes(folder_ + "/first.lock"), std::to_string(getpid()) + "\n");
    first.reset();
    EXPECT_FALSE(second.earlierInstanceExists());
}

TEST_F(InstancesTest, AKilledFirstLeavesNothingInTheWay) {
    ChildProcess dead([&](const ChildProcess::Report& report) {
        Instances first(folder_);
        first.earlierInstanceExists();
        auto window = first.registerWindow();
        window->publish("KLT Editor Beta 1.60");
        report("there");
        ChildProcess::sleepForever();
    });
    ASSERT_EQ(dead.nextReport(), "there");
    Instances instances(folder_);
    EXPECT_TRUE(instances.earlierInstanceExists());
    EXPECT_THAT(titlesFound(instances, "KLT Editor"), ElementsAre("KLT Editor Beta 1.60"));
    dead.kill();
    EXPECT_FALSE(instances.earlierInstanceExists());
    EXPECT_THAT(titlesFound(instances, "KLT Editor"), IsEmpty());
    EXPECT_THAT(namesIn(folder_), ElementsAre("first.lock"));
}

TEST_F(InstancesTest, WindowsAreFoundByTitleAndClassOldestFirst) {
    Instances instances(folder_), searcher(folder_);
    std::vector<WindowRegistration> windows;
    for (const auto& [title, windowClass] : {std::pair("KLT Editor Beta 1.60 - [c]", "ThunderRT6MDIForm"),
                                             {"My klt EDITOR", "thunderrt6mdiform"},
                                             {"KLT Editor", "ThunderRT6Form"},
                                             {"KLT-Editor", "ThunderRT6MDIForm"}}) {
        windows.push_back(*instances.registerWindow());
        ASSERT_TRUE(windows.back().publish(title, windowClass));
    }
    windows.push_back(*instances.registerWindow());  // not published yet
    EXPECT_THAT(titlesFound(searcher, "KLT Editor"),
                ElementsAre("KLT Editor Beta 1.60 - [c]", "My klt EDITOR"));
    EXPECT_EQ(searcher.FindMatchingWindows("", kClass).front().socketPath, windows.front().socketPath());
    EXPECT_THAT(titlesFound(instances), IsEmpty()) << "its own do not count";
    EXPECT_TRUE(searcher.earlierInstanceExists()) << "a window counts without the lock";

    ASSERT_TRUE(windows.front().publish("KLT Editor"));
    EXPECT_THAT(titlesFound(searcher), ElementsAre("KLT Editor", "My klt EDITOR", "KLT-Editor"));
    windows.clear();
    EXPECT_FALSE(searcher.earlierInstanceExists());
    EXPECT_THAT(namesIn(folder_), ElementsAre("first.lock"));
}

TEST_F(InstancesTest, DamagedAndForeignFilesAreNoWindows) {
    Instances instances(folder_);
    const auto start = folder_ + "/" + std::string(23, '0');
    writeBytes(start + "0.window", "no owner");
    writeBytes(start + "0.socket", "");
    writeBytes(folder_ + "/mine.window", "somebody's file");
    ASSERT_EQ(mkfifo((start + "1.window").c_str(), 0600), 0);
    fs::create_symlink("/etc/passwd", start + "2.window");
    EXPECT_FALSE(instances.earlierInstanceExists());
    EXPECT_THAT(titlesFound(instances), IsEmpty());
    EXPECT_TRUE(fs::exists(folder_ + "/mine.window"));
    for (const auto* end : {"0.window", "0.socket"}) EXPECT_FALSE(fs::exists(start + end));
}

TEST_F(InstancesTest, AnEntryThatIsClearedUpBeforeItsLockIsMadeAnew) {
    Instances instances(folder_), searcher(folder_);
    beforeLocking = [&] { searcher.FindMatchingWindows("", kClass); };
    auto window = instances.registerWindow();
    ASSERT_TRUE(window && window->publish("KLT Editor"));
    EXPECT_THAT(titlesFound(searcher), ElementsAre("KLT Editor"));
}

TEST_F(InstancesTest, RunsAloneWhereTheFolderIsNotItsOwn) {
    const auto foreign = isRoot() ? scratch_ / "foreign" : std::string("/root");
    for (const auto* folder : {"own", "open", "foreign"})
        ASSERT_EQ(mkdir((scratch_ / folder).c_str(), 0700), 0);
    ASSERT_EQ(chmod((scratch_ / "open").c_str(), 0750), 0);
    fs::create_symlink("own", scratch_ / "link");
    writeBytes(scratch_ / "file", "");
    giveToUser(foreign);
    const auto check = [](const std::string& folder, bool isAlone) {
        SCOPED_TRACE(folder);
        Instances instances(folder), other(folder);
        EXPECT_EQ(instances.alone(), isAlone);
        EXPECT_FALSE(instances.earlierInstanceExists());
        EXPECT_EQ(other.earlierInstanceExists(), !isAlone);
        auto window = instances.registerWindow();
        EXPECT_EQ(window && window->publish("KLT Editor"), !isAlone);
        EXPECT_EQ(titlesFound(other).size(), isAlone ? 0U : 1U);
    };
    for (const auto* folder : {"own", "new"}) check(scratch_ / folder, false);
    for (const auto* folder : {"no/new", "link", "open", "file"}) check(scratch_ / folder, true);
    for (const auto& folder :
         {std::string(), std::string("relative"), foreign, scratch_ / std::string(100, 'x')})
        check(folder, true);
}

TEST_F(InstancesTest, WaitsForTheWindowOfTheEarlierInstance) {
    Instances later(folder_);
    auto first = std::make_optional<Instances>(folder_);
    ASSERT_FALSE(first->earlierInstanceExists());
    size_t searches = 0;
    // Waits, and does `work` behind so many searches.
    const auto wait = [&](size_t wanted, const std::function<void()>& work) {
        searches = 0;
        if (wanted == 0) work();
        return waitForPreviousInstance(later, [&](auto time) {
            EXPECT_EQ(time, 250ms);
            if (++searches == wanted) work();
        });
    };
    for (const size_t before : {0U, 1U, 39U, 40U}) {
        std::optional<WindowRegistration> window;
        const auto found = wait(before, [&] {
            window.emplace(*first->registerWindow());
            window->publish("KLT Editor Beta 1.60");
        });
        EXPECT_EQ(found ? found->socketPath : "", before < 40 ? window->socketPath() : "") << before;
        EXPECT_EQ(searches, std::min<size_t>(before + 1, 40));
    }
    EXPECT_FALSE(wait(3, [&] { first.reset(); })) << "the earlier instance ends";
    EXPECT_EQ(searches, 3U);
    EXPECT_FALSE(wait(99, {})) << "nobody to wait for";
    EXPECT_EQ(searches, 0U);
}
