// The store under what may befall it: damage, locks, missing rights, kills, and company.

#include <gmock/gmock.h>

#include <random>
#include <thread>

#include "settings/AuthorProfiles.h"
#include "settings/Catalogue.h"
#include "support/OrdinaryUser.h"
#include "support/StoreFixture.h"

using namespace klt;
namespace fs = std::filesystem;

static std::string get(Store& store, const std::string& key, const char* otherwise = "<none>") {
    return GetSetting(store, "KLTEdit", "Options", key, otherwise);
}

static bool save(Store& store, const std::string& key, const std::string& text) {
    return SaveSetting(store, "KLTEdit", "Options", key, text);
}

static int number(Store& store, const char* key) {
    return std::stoi(get(store, key, "0"));
}

class StoreFaultsTest : public StoreFixture {
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
    std::fstream opened() const {
        return std::fstream(path_, std::ios::binary | std::ios::in | std::ios::out);
    }
    void damageMiddle() { opened().seekp(4096) << std::string(size_t{3} * 4096, '\x5A'); }
    void makeForeign() {
        writeBytes(path_, "");
        byHand(
            "CREATE TABLE songs (id, parent, name);"
            "CREATE TABLE entries (key, name, type, data, UNIQUE (key, name));"
            "CREATE VIEW keys AS SELECT * FROM songs;"
            "CREATE TRIGGER adds INSTEAD OF INSERT ON keys BEGIN SELECT 1; END;"
            "CREATE TRIGGER removes INSTEAD OF DELETE ON keys BEGIN SELECT 1; END;");
    }
    /// That the store has nothing, and takes something.
    void expectNew(Store& store) {
        EXPECT_EQ(get(store, "Name"), "<none>");
        EXPECT_TRUE(save(store, "Name", "new"));
        EXPECT_EQ(get(store, "Name"), "new");
    }
    /// Works in as many processes at once, each with a store and a name of its own.
    void inCompany(const std::vector<std::string>& names, bool (*work)(Store&, const std::string&)) {
        std::vector<ChildProcess> children;
        for (const auto& own : names)
            children.emplace_back([&](const ChildProcess::Report& report) {
                Store store(path_);
                report(work(store, own) ? "done" : "refused");
            });
        for (const auto& child : children) EXPECT_EQ(child.nextReport(), "done");
    }
    std::vector<std::string> aside() const {
        auto names = namesIn(home_);
        std::erase_if(names, [](const auto& name) { return !name.starts_with("store.sqlite3.aside-"); });
        return names;
    }
    void clear() {
        for (const auto& name : namesIn(home_)) fs::remove(home_ + "/" + name);
    }

    std::string home_ = folder_ / "klt-editor";
};

TEST_F(StoreFaultsTest, MovesADamagedFileAside) {
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"a text", [&] { writeBytes(path_, std::string(10'000, 't')); }},
        {"zeros", [&] { writeBytes(path_, std::string(8192, '\0')); }},
        {"cut short", [&] { fill(), fs::resize_file(path_, fs::file_size(path_) / 2); }},
        {"noise in the middle", [&] { fill(), damageMiddle(); }},
        {"somebody else's database", [&] { makeForeign(); }},
    };
    for (const auto& [name, make] : rows) {
        SCOPED_TRACE(name);
        make();
        const auto old = readBytes(path_);
        testing::internal::CaptureStderr();
        Store store(path_);
        expectNew(store);
        const auto said = testing::internal::GetCapturedStderr();
        ASSERT_EQ(aside().size(), 1U);
        const auto kept = home_ + "/" + aside()[0];
        EXPECT_EQ(readBytes(kept), old);
        EXPECT_EQ(said, "klt-editor: " + path_ + " is damaged, and kept as " + kept +
                            "; all settings have their defaults\n");
        clear();
    }
}

TEST_F(StoreFaultsTest, NoticesDamageWhileItRuns) {
    fill();
    EXPECT_EQ(get(store_, "Name"), "kept");
    damageMiddle();
    // Without a new change counter nobody looks at the file again.
    opened().seekp(24) << '\x7F';
    testing::internal::CaptureStderr();
    expectNew(store_);
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(aside().size(), 1U);
}

TEST_F(StoreFaultsTest, MovesAsideOnceInCompany) {
    for (int round = 0; round < 10; ++round) {
        writeBytes(path_, "no store " + std::to_string(round));
        inCompany({"One", "Two", "Three", "Four"},
                  [](Store& store, const std::string& own) { return save(store, own, "saved"); });
        Store store(path_);
        EXPECT_EQ(GetAllSettings(store, "KLTEdit", "Options").size(), 4U);
        ASSERT_EQ(aside().size(), 1U);
        clear();
    }
}

TEST_F(StoreFaultsTest, TakesAnEmptyFile) {
    // A file of one byte is an empty one to SQLite.
    for (const auto* content : {"", "S"}) {
        writeBytes(path_, content);
        Store store(path_);
        expectNew(store);
        EXPECT_EQ(aside().size(), 0U);
    }
}

TEST_F(StoreFaultsTest, LivesWhereNoStoreCanBe) {
    writeBytes(folder_ / "file", "a file");
    fs::create_directory(folder_ / "folder");
    ASSERT_EQ(mkfifo((folder_ / "fifo").c_str(), 0600), 0);
    fs::create_symlink(folder_ / "nowhere/store", folder_ / "dangling");
    for (const auto* path : {"file/store", "folder", "fifo", "dangling", "file/klt-editor/store"}) {
        Store store(folder_ / path);
        EXPECT_EQ(get(store, "Name"), "<none>") << path;
        EXPECT_FALSE(save(store, "Name", "new")) << path;
        EXPECT_FALSE(store.together([] { return true; })) << path;
        EXPECT_FALSE(store.removeKey({HKEY_CURRENT_USER, "Software"})) << path;
        EXPECT_TRUE(store.keyNames({HKEY_CURRENT_USER, ""}).empty()) << path;
    }
    EXPECT_EQ(readBytes(folder_ / "file"), "a file");
}

TEST_F(StoreFaultsTest, LeavesAloneWhatItMayNotTouch) {
    const std::tuple<const char*, mode_t, mode_t, bool, std::string> rows[] = {
        {"unreadable file", 0700, 0000, true, "<none>"},
        {"read-only file", 0700, 0400, true, "kept"},
        {"read-only folder", 0500, 0600, true, "kept"},
        {"read-only both", 0500, 0400, true, "kept"},
        {"closed folder", 0000, 0600, true, "<none>"},
        {"damaged, unreadable", 0700, 0000, false, "<none>"},
        {"damaged, in a read-only folder", 0500, 0600, false, "<none>"},
    };
    chmod(folder_.path().c_str(), 0755);
    for (const auto& [name, folder, file, isSound, read] : rows) {
        SCOPED_TRACE(name);
        fill();
        if (!isSound) writeBytes(path_, "no store");
        const auto old = readBytes(path_);
        for (const auto& [path, mode] : {std::pair(path_, file), {home_, folder}}) {
            giveToUser(path);
            chmod(path.c_str(), mode);
        }
        const auto answer = asUser([&] {
            Store store(path_);
            const auto before = get(store, "Name");
            return before + (save(store, "Name", "new") ? ",saved," : ",refused,") + get(store, "Name");
        });
        EXPECT_EQ(answer, read + ",refused," + read);
        chmod(home_.c_str(), 0700);
        chmod(path_.c_str(), 0600);
        EXPECT_EQ(readBytes(path_), old);
        EXPECT_EQ(aside().size(), 0U);
        fs::remove(path_);
    }
}

TEST_F(StoreFaultsTest, WaitsForALockForAWhileOnly) {
    fill();
    Database other;
    other.open(path_);
    auto lock = std::make_unique<Transaction>(other, Transaction::For::Alone);
    ASSERT_TRUE(lock->begun());
    EXPECT_EQ(get(store_, "Name"), "<none>");
    EXPECT_FALSE(save(store_, "Name", "new"));
    EXPECT_EQ(aside().size(), 0U);
    lock.reset();
    EXPECT_EQ(get(store_, "Name"), "kept");
    EXPECT_TRUE(save(store_, "Name", "new"));
}

TEST_F(StoreFaultsTest, LosesNothingBetweenTwoWriters) {
    constexpr int kWrites = 30;
    inCompany({"One", "Two"}, [](Store& store, const std::string& own) {
        // A write is refused, and lost nowhere, where the other process is busy for too long.
        int n = 1;
        for (int tries = 0; n <= kWrites && tries < 1000; ++tries)
            n += store.together([&] {
                return save(store, own + std::to_string(n), own) &&
                       save(store, "Sum", std::to_string(number(store, "Sum") + 1));
            });
        return n > kWrites;
    });
    EXPECT_EQ(get(store_, "Sum"), std::to_string(2 * kWrites));
    EXPECT_EQ(GetAllSettings(store_, "KLTEdit", "Options").size(), 2U * kWrites + 1);
}

class StoreKillTest : public testing::Test {
protected:
    // In memory where there is such a folder: a kill needs no disk, and meets more writes there.
    const ScopedVariable place_{
        "TMPDIR", fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path().string()};
    const ScratchFolder folder_;
    const std::string path_ = folder_ / "store.sqlite3";
    std::mt19937 random_{1};
};

TEST_F(StoreKillTest, ResetsAllOrNothing) {
    int whole = 0;
    for (int round = 0; round < 100; ++round) {
        ChildProcess child([&](const ChildProcess::Report& report) {
            for (Store store(path_);; resetAllSettings(store))
                if (store.together([&] {
                        return save(store, "Name", "kept") && SaveSetting(store, "Authors", "0", "Name", "A");
                    }))
                    report("saved");
        });
        EXPECT_EQ(child.nextReport(), "saved");
        std::this_thread::sleep_for(std::chrono::microseconds(random_() % 2'000));
        child.kill();
        Store store(path_);
        const bool isKept = get(store, "Name") == "kept";
        EXPECT_EQ(HasSetting(store, "Authors", "0", "Name"), isKept) << round;
        whole += isKept;
    }
    EXPECT_THAT(whole, testing::AllOf(testing::Gt(0), testing::Lt(100)));
}

TEST_F(StoreKillTest, StoresAuthorsAllOrNothing) {
    const AuthorList lists[] = {{{{"Ann", {"a", "", ""}}, {"Bob", {}}}, 0}, {{{"Cid", {"c", "d", "e"}}}, -1}};
    for (int round = 0; round < 40; ++round) {
        ChildProcess child([&](const ChildProcess::Report& report) {
            Store store(path_);
            for (int turn = 0;; ++turn)
                if (storeAuthorList(store, lists[turn % 2], readAuthorList(store).profiles)) report("stored");
        });
        EXPECT_EQ(child.nextReport(), "stored");
        std::this_thread::sleep_for(std::chrono::microseconds(random_() % 2'000));
        child.kill();
        Store store(path_);
        EXPECT_THAT(lists, testing::Contains(readAuthorList(store))) << round;
    }
}

TEST_F(StoreKillTest, KeepsWhatWasSaved) {
    int told = 0;
    for (int round = 0; round < 200; ++round) {
        // Saves ever greater numbers, alone and in pairs, and tells of each that was saved.
        ChildProcess child([&](const ChildProcess::Report& report) {
            Store store(path_);
            for (auto n = number(store, "Alone") + 1;; ++n) {
                const auto text = std::to_string(n);
                const auto both = [&] { return save(store, "Left", text) && save(store, "Right", text); };
                if (save(store, "Alone", text) && store.together(both)) report(text);
            }
        });
        for (auto reports = random_() % 3; reports > 0; --reports) told = std::stoi(child.nextReport());
        std::this_thread::sleep_for(std::chrono::microseconds(random_() % 8'000));
        child.kill();
        for (auto line = child.nextReport(); !line.empty(); line = child.nextReport()) told = std::stoi(line);
        // The write that was under way may have been kept too.
        Store store(path_);
        EXPECT_GE(number(store, "Left"), told) << round;
        EXPECT_EQ(number(store, "Left"), number(store, "Right")) << round;
        EXPECT_GE(number(store, "Alone"), number(store, "Left")) << round;
    }
    EXPECT_GT(told, 100) << "too few writes came through before the kills";
    EXPECT_THAT(namesIn(folder_.path()), testing::Each(testing::Not(testing::HasSubstr("aside"))));
}
