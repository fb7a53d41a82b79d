// The store under what may befall it: damage, locks, missing rights, kills, and company.

#include <fcntl.h>

#include <algorithm>
#include <map>
#include <random>
#include <thread>

#include "platform/Descriptor.h"
#include "settings/GetSetting.h"
#include "support/ChildProcess.h"
#include "support/OrdinaryUser.h"
#include "support/Scratch.h"

namespace klt {
namespace {

namespace fs = std::filesystem;

std::string get(Store& store, const std::string& key) {
    return GetSetting(store, "KLTEdit", "Options", key, "<none>");
}

bool save(Store& store, const std::string& key, const std::string& text) {
    return SaveSetting(store, "KLTEdit", "Options", key, text);
}

class StoreFaultsTest : public testing::Test {
protected:
    StoreFaultsTest() { fs::create_directory(home_); }

    /// A sound store of several pages.
    void fill() {
        Store store(path_);
        ASSERT_TRUE(store.together([&] {
            for (int key = 0; key < 300; ++key)
                save(store, "Key" + std::to_string(key), std::string(100, 'x'));
            return save(store, "Name", "kept");
        }));
    }
    std::vector<std::string> aside() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(home_))
            if (entry.path().filename().string().starts_with("store.sqlite3.aside-"))
                found.push_back(entry.path());
        return found;
    }

    ScratchFolder folder_;
    std::string home_ = folder_ / "klt-editor";
    std::string path_ = home_ + "/store.sqlite3";
};

void damageMiddle(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    const std::string noise(4096, '\x5A');
    for (off_t page = 1; page < 4; ++page)
        ASSERT_EQ(pwrite(file.number(), noise.data(), noise.size(), page * 4096), 4096);
}

void makeForeign(const std::string& path) {
    writeBytes(path, "");
    Database database;
    ASSERT_EQ(database.open(path), DatabaseStatus::Done);
    ASSERT_EQ(
        database.execute("CREATE TABLE songs (title); CREATE VIEW keys AS SELECT title AS id FROM songs"),
        DatabaseStatus::Done);
}

TEST_F(StoreFaultsTest, MovesADamagedFileAside) {
    struct Row {
        const char* name;
        std::function<void()> make;
    };
    const Row rows[] = {
        {"a text", [&] { writeBytes(path_, std::string(10'000, 't')); }},
        {"zeros", [&] { writeBytes(path_, std::string(8192, '\0')); }},
        {"cut short", [&] { fill(), fs::resize_file(path_, fs::file_size(path_) / 2); }},
        {"noise in the middle", [&] { fill(), damageMiddle(path_); }},
        {"somebody else's database", [&] { makeForeign(path_); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        row.make();
        const auto old = readBytes(path_);
        testing::internal::CaptureStderr();
        Store store(path_);
        EXPECT_EQ(get(store, "Name"), "<none>");
        EXPECT_TRUE(save(store, "Name", "new"));
        EXPECT_EQ(get(store, "Name"), "new");
        const auto said = testing::internal::GetCapturedStderr();
        const auto kept = aside();
        ASSERT_EQ(kept.size(), 1U);
        EXPECT_EQ(readBytes(kept[0]), old);
        EXPECT_EQ(said, "klt-editor: " + path_ + " is damaged, and kept as " + kept[0] +
                            "; all settings have their defaults\n");
        for (const auto& entry : fs::directory_iterator(home_)) fs::remove(entry);
    }
}

TEST_F(StoreFaultsTest, NoticesDamageWhileItRuns) {
    fill();
    Store store(path_);
    EXPECT_EQ(get(store, "Name"), "kept");
    damageMiddle(path_);
    {
        // Without a new change counter nobody looks at the file again.
        const Descriptor file(open(path_.c_str(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(pwrite(file.number(), "\x7F", 1, 24), 1);
    }
    testing::internal::CaptureStderr();
    EXPECT_EQ(get(store, "Key1"), "<none>");
    EXPECT_TRUE(save(store, "Name", "new"));
    EXPECT_EQ(get(store, "Name"), "new");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(aside().size(), 1U);
}

TEST_F(StoreFaultsTest, MovesAsideOnceInCompany) {
    for (int round = 0; round < 10; ++round) {
        writeBytes(path_, "no store " + std::to_string(round));
        std::vector<ChildProcess> children;
        children.reserve(4);
        for (int child = 0; child < 4; ++child)
            children.emplace_back([&, child](const ChildProcess::Report& report) {
                Store store(path_);
                report(save(store, "Key" + std::to_string(child), "saved") ? "saved" : "refused");
            });
        for (const auto& child : children) EXPECT_EQ(child.nextReport(), "saved");
        Store store(path_);
        for (int child = 0; child < 4; ++child) EXPECT_EQ(get(store, "Key" + std::to_string(child)), "saved");
        ASSERT_EQ(aside().size(), 1U);
        for (const auto& entry : fs::directory_iterator(home_)) fs::remove(entry);
    }
}

TEST_F(StoreFaultsTest, TakesAnEmptyFile) {
    // A file of one byte is an empty one to SQLite.
    for (const auto* content : {"", "S"}) {
        writeBytes(path_, content);
        Store store(path_);
        EXPECT_EQ(get(store, "Name"), "<none>");
        EXPECT_TRUE(save(store, "Name", "new"));
        EXPECT_EQ(get(store, "Name"), "new");
        EXPECT_EQ(aside().size(), 0U);
    }
}

TEST_F(StoreFaultsTest, LivesWhereNoStoreCanBe) {
    writeBytes(folder_ / "file", "a file");
    fs::create_directory(folder_ / "folder");
    ASSERT_EQ(mkfifo((folder_ / "fifo").c_str(), 0600), 0);
    fs::create_symlink(folder_ / "nowhere/store", folder_ / "dangling");
    for (const auto* path : {"file/store", "folder", "fifo", "dangling", "file"}) {
        Store store(folder_ / (std::string(path) == "file" ? "file/klt-editor/store" : path));
        EXPECT_EQ(get(store, "Name"), "<none>") << path;
        EXPECT_FALSE(save(store, "Name", "new")) << path;
        EXPECT_FALSE(store.together([] { return true; })) << path;
        EXPECT_FALSE(store.removeKey({HKEY_CURRENT_USER, "Software"})) << path;
        EXPECT_EQ(store.keyNames({HKEY_CURRENT_USER, ""}).size(), 0U) << path;
    }
    EXPECT_EQ(readBytes(folder_ / "file"), "a file");
}

TEST_F(StoreFaultsTest, LeavesAloneWhatItMayNotTouch) {
    struct Row {
        const char* name;
        mode_t folder;
        mode_t file;
        const char* read;
        bool damaged = false;
    };
    const Row rows[] = {
        {"unreadable file", 0700, 0000, "<none>"},
        {"read-only file", 0700, 0400, "kept"},
        {"read-only folder", 0500, 0600, "kept"},
        {"read-only both", 0500, 0400, "kept"},
        {"closed folder", 0000, 0600, "<none>"},
        {"damaged, unreadable", 0700, 0000, "<none>", true},
        {"damaged, in a read-only folder", 0500, 0600, "<none>", true},
    };
    chmod(folder_.path().c_str(), 0755);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        fill();
        if (row.damaged) writeBytes(path_, "no store");
        const auto old = readBytes(path_);
        giveToUser(path_);
        giveToUser(home_);
        chmod(path_.c_str(), row.file);
        chmod(home_.c_str(), row.folder);
        const auto answer = asUser([&] {
            Store store(path_);
            const auto read = get(store, "Name");
            const auto saved = save(store, "Name", "new");
            return read + "," + (saved ? "saved," : "refused,") + get(store, "Name");
        });
        EXPECT_EQ(answer, std::string(row.read) + ",refused," + row.read);
        chmod(home_.c_str(), 0700);
        chmod(path_.c_str(), 0600);
        EXPECT_EQ(readBytes(path_), old);
        EXPECT_EQ(aside().size(), 0U);
        fs::remove(path_);
    }
}

TEST_F(StoreFaultsTest, WaitsForALockForAWhileOnly) {
    fill();
    const ChildProcess holder([&](const ChildProcess::Report& report) {
        Database database;
        database.open(path_);
        const Transaction transaction(database, Transaction::For::Alone);
        report(transaction.begun() ? "locked" : "refused");
        ChildProcess::sleepForever();
    });
    ASSERT_EQ(holder.nextReport(), "locked");
    Store store(path_);
    EXPECT_EQ(get(store, "Name"), "<none>");
    for (int key = 0; key < 20; ++key) EXPECT_EQ(get(store, "Key" + std::to_string(key)), "<none>");
    EXPECT_FALSE(save(store, "Name", "new"));
    EXPECT_EQ(aside().size(), 0U);
    holder.signal(SIGKILL);
    waitpid(holder.pid(), nullptr, 0);
    EXPECT_EQ(get(store, "Name"), "kept");
    EXPECT_TRUE(save(store, "Name", "new"));
}

TEST_F(StoreFaultsTest, LosesNothingBetweenTwoWriters) {
    constexpr int kWrites = 30;
    const auto write = [&](const ChildProcess::Report& report, const std::string& own) {
        Store store(path_);
        // A write is refused, and lost nowhere, where the other process is busy for too long.
        const auto insist = [&](const auto& change) {
            for (int tries = 0; tries < 50; ++tries)
                if (change()) return;
            report("refused");
        };
        const auto addOne = [&] {
            return save(store, "Sum", std::to_string(std::atoi(get(store, "Sum").c_str()) + 1));
        };
        for (int n = 1; n <= kWrites; ++n) {
            insist([&] { return save(store, own + std::to_string(n), own); });
            insist([&] { return store.together(addOne); });
        }
        report("done");
    };
    const ChildProcess one([&](const auto& report) { write(report, "One"); });
    const ChildProcess two([&](const auto& report) { write(report, "Two"); });
    EXPECT_EQ(one.nextReport(), "done");
    EXPECT_EQ(two.nextReport(), "done");
    Store store(path_);
    EXPECT_EQ(get(store, "Sum"), std::to_string(2 * kWrites));
    for (int n = 1; n <= kWrites; ++n)
        for (const std::string own : {"One", "Two"}) EXPECT_EQ(get(store, own + std::to_string(n)), own) << n;
    EXPECT_EQ(GetAllSettings(store, "KLTEdit", "Options").size(), 2U * kWrites + 1);
}

/// Saves forever, in single values and in pairs, and tells of each one that was saved.
void saveUntilKilled(const std::string& path, int round, const ChildProcess::Report& report) {
    Store store(path);
    for (int n = 0;; ++n) {
        const auto text = std::to_string(round) + "." + std::to_string(n);
        const auto key = "Key" + std::to_string((round + n) % 7);
        if (save(store, key, text)) report(std::string(key).append("=").append(text));
        const bool both =
            store.together([&] { return save(store, "Left", text) && save(store, "Right", text); });
        if (both) report("Left=" + text);
    }
}

TEST(StoreKillTest, KeepsWhatWasSaved) {
    // In memory where there is such a folder: a kill needs no disk, and meets more writes there.
    const ScopedVariable place(
        "TMPDIR", fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path().string());
    const ScratchFolder folder;
    const auto path = folder / "store.sqlite3";
    std::mt19937 random(1);
    std::map<std::string, std::string> saved;
    for (int round = 0; round < 200; ++round) {
        ChildProcess child([&](const auto& report) { saveUntilKilled(path, round, report); });
        const auto note = [&](const std::string& line) {
            saved[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
        };
        for (auto reports = random() % 3; reports > 0; --reports) note(child.nextReport());
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 8'000));
        child.kill();
        for (auto line = child.nextReport(); !line.empty(); line = child.nextReport()) note(line);
        Store store(path);
        for (const auto& [key, text] : saved) {
            const auto now = get(store, key);
            // The write that was under way may have been kept too.
            if (now != text) {
                EXPECT_TRUE(now.starts_with(std::to_string(round) + ".")) << key << " " << text << " " << now;
                saved[key] = now;
            }
        }
        EXPECT_EQ(get(store, "Left"), get(store, "Right")) << round;
    }
    for (const auto& entry : fs::directory_iterator(folder.path()))
        EXPECT_FALSE(entry.path().filename().string().starts_with("store.sqlite3.aside")) << entry.path();
    EXPECT_EQ(saved.size(), 8U) << "too few writes came through before the kills";
}

}  // namespace
}  // namespace klt
