#include "platform/Instances.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <fstream>
#include <thread>

#include "platform/Paths.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"

using namespace klt;
using namespace std::chrono_literals;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr auto kClass = kMainWindowClass;

std::vector<std::string> titlesOf(const std::vector<WindowEntry>& windows) {
    std::vector<std::string> titles;
    titles.reserve(windows.size());
    for (const auto& window : windows) titles.push_back(window.title);
    return titles;
}

size_t filesIn(const std::string& folder) {
    return static_cast<size_t>(std::distance(fs::directory_iterator(folder), {}));
}

/// A process that is first and, with a title, has a window; it reports once it is, and then does nothing.
ChildProcess startInstance(const std::string& folder, std::optional<std::string> title) {
    ChildProcess child([&](const ChildProcess::Report& report) {
        Instances instances(folder);
        instances.earlierInstanceExists();
        auto window = instances.registerWindow();
        if (title) window->publish(*title);
        report("there");
        ChildProcess::sleepForever();
    });
    EXPECT_EQ(child.nextReport(), "there");
    return child;
}

class InstancesTest : public testing::Test {
protected:
    ScratchFolder scratch_;
    const std::string folder_ = scratch_ / "klt-editor";
};

}  // namespace

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

TEST_F(InstancesTest, OfTwentyAtOnceExactlyOneIsFirst) {
    std::vector<ChildProcess> children;
    children.reserve(20);
    for (int i = 0; i < 20; ++i)
        children.emplace_back([&](const ChildProcess::Report& report) {
            Instances instances(folder_);
            report(instances.earlierInstanceExists() ? "later" : "first");
            ChildProcess::sleepForever();
        });
    int first = 0;
    for (auto& child : children) first += child.nextReport() == "first" ? 1 : 0;
    EXPECT_EQ(first, 1);
}

TEST_F(InstancesTest, AKilledFirstLeavesNothingInTheWay) {
    auto dead = startInstance(folder_, "KLT Editor Beta 1.60");
    Instances instances(folder_);
    EXPECT_TRUE(instances.earlierInstanceExists());
    EXPECT_THAT(titlesOf(instances.FindMatchingWindows("KLT Editor", kClass)),
                ElementsAre("KLT Editor Beta 1.60"));
    dead.kill();
    EXPECT_FALSE(instances.earlierInstanceExists());
    EXPECT_THAT(instances.FindMatchingWindows("KLT Editor", kClass), IsEmpty());
    EXPECT_EQ(filesIn(folder_), 1U) << "the lock alone";
}

TEST_F(InstancesTest, AWindowCountsWithoutTheLock) {
    Instances first(folder_), windowed(folder_);
    ASSERT_FALSE(first.earlierInstanceExists());
    auto window = windowed.registerWindow();
    ASSERT_TRUE(window && window->publish("KLT Editor"));
    EXPECT_TRUE(first.earlierInstanceExists());
    EXPECT_TRUE(windowed.earlierInstanceExists());
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
    const auto found = searcher.FindMatchingWindows("KLT Editor", kClass);
    EXPECT_THAT(titlesOf(found), ElementsAre("KLT Editor Beta 1.60 - [c]", "My klt EDITOR"));
    EXPECT_EQ(found.front().socketPath, windows.front().socketPath());
    EXPECT_THAT(instances.FindMatchingWindows("KLT Editor", kClass), IsEmpty()) << "its own do not count";

    ASSERT_TRUE(windows.front().publish("KLT Editor"));
    EXPECT_THAT(titlesOf(searcher.FindMatchingWindows("", kClass)),
                ElementsAre("KLT Editor", "My klt EDITOR", "KLT-Editor"));
    windows.clear();
    EXPECT_EQ(filesIn(folder_), 0U);
}

TEST_F(InstancesTest, DamagedAndForeignFilesAreNoWindows) {
    Instances instances(folder_);
    const std::string id(24, '0');
    writeBytes(folder_ + "/" + id + ".window", "no owner");
    writeBytes(folder_ + "/" + id + ".socket", "");
    writeBytes(folder_ + "/mine.window", "somebody's file");
    ASSERT_EQ(mkfifo((folder_ + "/" + std::string(24, '1') + ".window").c_str(), 0600), 0);
    ASSERT_EQ(symlink("/etc/passwd", (folder_ + "/" + std::string(24, '2') + ".window").c_str()), 0);
    EXPECT_FALSE(instances.earlierInstanceExists());
    EXPECT_THAT(instances.FindMatchingWindows("", kClass), IsEmpty());
    EXPECT_TRUE(fs::exists(folder_ + "/mine.window"));
    EXPECT_FALSE(fs::exists(folder_ + "/" + id + ".window"));
    EXPECT_FALSE(fs::exists(folder_ + "/" + id + ".socket"));
}

// One process clears up all the time while others enter: nobody's live entry may go.
TEST_F(InstancesTest, ClearingUpNeverTakesALiveEntry) {
    std::atomic<bool> stop = false;
    std::thread searcher([&] {
        Instances instances(folder_);
        while (!stop) instances.FindMatchingWindows("", kClass);
    });
    Instances instances(folder_), witness(folder_);
    for (int i = 0; i < 300; ++i) {
        auto window = instances.registerWindow();
        ASSERT_TRUE(window && window->publish(std::to_string(i)));
        EXPECT_THAT(titlesOf(witness.FindMatchingWindows("", kClass)), ElementsAre(std::to_string(i)));
    }
    stop = true;
    searcher.join();
}

TEST_F(InstancesTest, RunsAloneWhereTheFolderIsNotItsOwn) {
    const bool isRoot = geteuid() == 0;
    const auto own = scratch_ / "own", link = scratch_ / "link", open = scratch_ / "open",
               file = scratch_ / "file";
    const auto foreign = isRoot ? scratch_ / "foreign" : std::string("/root");
    for (const auto& folder : {own, open, scratch_ / "foreign"}) ASSERT_EQ(mkdir(folder.c_str(), 0700), 0);
    ASSERT_EQ(chmod(open.c_str(), 0750), 0);
    ASSERT_EQ(symlink(own.c_str(), link.c_str()), 0);
    writeBytes(file, "");
    if (isRoot) {
        ASSERT_EQ(chown(foreign.c_str(), 65534, 65534), 0);
    }
    const struct {
        const char* name;
        std::string folder;
        bool alone;
    } rows[] = {
        {"its own", own, false},
        {"made when missing", scratch_ / "new", false},
        {"none", "", true},
        {"relative", "klt-editor", true},
        {"missing parent", scratch_ / "no/new", true},
        {"symbolic link", link, true},
        {"open to others", open, true},
        {"a file", file, true},
        {"another owner", foreign, true},
        {"too long for a socket", scratch_ / std::string(100, 'x'), true},
    };
    for (const auto& row : rows) {
        Instances instances(row.folder), other(row.folder);
        EXPECT_EQ(instances.alone(), row.alone) << row.name;
        EXPECT_FALSE(instances.earlierInstanceExists()) << row.name;
        EXPECT_EQ(other.earlierInstanceExists(), !row.alone) << row.name;
        auto window = instances.registerWindow();
        EXPECT_EQ(window.has_value(), !row.alone) << row.name;
        EXPECT_EQ(window && window->publish("KLT Editor"), !row.alone) << row.name;
        EXPECT_EQ(other.FindMatchingWindows("", kClass).size(), row.alone ? 0U : 1U) << row.name;
    }
}

TEST_F(InstancesTest, WithoutARuntimeFolderAProcessRunsAlone) {
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>("relative")}) {
        const ScopedVariable variable("XDG_RUNTIME_DIR", value);
        EXPECT_TRUE(Instances(runtimeFolder()).alone());
    }
    const ScratchHome home;
    EXPECT_FALSE(Instances(runtimeFolder()).alone());
}

TEST_F(InstancesTest, WaitsForTheWindowOfTheEarlierInstance) {
    Instances later(folder_);
    std::vector<std::chrono::milliseconds> slept;
    auto first = std::make_optional<Instances>(folder_);
    ASSERT_FALSE(first->earlierInstanceExists());

    const auto sleep = [&](auto time) { slept.push_back(time); };
    EXPECT_FALSE(waitForPreviousInstance(later, sleep)) << "no window ever";
    EXPECT_EQ(slept, std::vector<std::chrono::milliseconds>(40, 250ms));

    for (const size_t searchesWithout : {0U, 1U, 39U}) {
        std::optional<WindowRegistration> window;
        const auto enter = [&] {
            window.emplace(*first->registerWindow());
            window->publish("KLT Editor Beta 1.60");
        };
        slept.clear();
        if (searchesWithout == 0) enter();
        const auto found = waitForPreviousInstance(later, [&](auto time) {
            sleep(time);
            if (slept.size() == searchesWithout) enter();
        });
        ASSERT_TRUE(found) << searchesWithout;
        EXPECT_EQ(found->socketPath, window->socketPath());
        EXPECT_EQ(slept, std::vector<std::chrono::milliseconds>(searchesWithout + 1, 250ms));
    }

    slept.clear();
    EXPECT_FALSE(waitForPreviousInstance(later, [&](auto time) {
        sleep(time);
        if (slept.size() == 3) first.reset();
    })) << "the earlier instance ends";
    EXPECT_EQ(slept.size(), 3U);
    EXPECT_FALSE(waitForPreviousInstance(later, sleep)) << "nobody to wait for";
    EXPECT_EQ(slept.size(), 3U);
}
