#include "settings/Store.h"

#include <gmock/gmock.h>

#include "support/StoreFixture.h"

using namespace klt;

constexpr NodePath kNode{HKEY_CURRENT_USER, "Software\\Test"};

class StoreTest : public StoreFixture {
protected:
    static std::string text(Store& store, std::string_view name, NodePath key = kNode) {
        return textOf(store.read(key, name).value_or(StoredValue{REG_SZ, "<none>"}));
    }
    static bool write(Store& store, std::string_view name, const std::string& value, NodePath key = kNode) {
        return store.write(key, name, {REG_SZ, value});
    }
};

TEST_F(StoreTest, LiesInTheUsersFolderForTheUserAlone) {
    const ScratchHome home;
    Store store;
    ASSERT_TRUE(write(store, "Name", "x"));
    EXPECT_EQ(modeOf(home / "config/klt-editor/store.sqlite3"), 0600U);
    EXPECT_EQ(modeOf(home / "config/klt-editor"), 0700U);
}

TEST_F(StoreTest, KeepsEveryKindOfData) {
    const StoredValue values[] = {
        {REG_SZ, ""},
        {REG_SZ, std::string("\0middle\0", 8)},
        {REG_SZ, "\xFF\xFE no character"},
        {REG_DWORD, INT64_MIN},
        {REG_BINARY, Bytes{}},
        {REG_BINARY, Bytes{std::byte{0}, std::byte{255}}},
        {-1, "any type"},
        {REG_SZ, std::string(kLongestEntry, 'x')},
        {REG_BINARY, Bytes(kLongestEntry)},
    };
    for (const auto& value : values) {
        EXPECT_TRUE(store_.write(kNode, "Name", value));
        Store other(path_);
        EXPECT_EQ(store_.read(kNode, "name"), value);
        EXPECT_EQ(other.read(kNode, "NAME"), value);
    }
}

TEST_F(StoreTest, RefusesWhatItCannotHold) {
    ASSERT_TRUE(write(store_, "Name", "old"));
    EXPECT_FALSE(write(store_, "Name", std::string(kLongestEntry + 1, 'x')));
    const std::string tooLong(kLongestName + 1, 'x');
    EXPECT_FALSE(write(store_, tooLong, "x") || store_.makeKey({HKEY_CURRENT_USER, tooLong}));
    EXPECT_FALSE(store_.makeKey({7, "Software"}));
    std::string deep = "a";
    while (deep.size() < 1200) deep += "\\a";
    EXPECT_FALSE(store_.makeKey({HKEY_CURRENT_USER, deep}));
    EXPECT_FALSE(store_.hasKey({HKEY_CURRENT_USER, "a"})) << "nothing of it";
    EXPECT_FALSE(store_.removeKey({HKEY_CURRENT_USER, "\\"})) << "a root stays";
    EXPECT_EQ(text(store_, "Name"), "old");
}

TEST_F(StoreTest, TakesPathsHoweverSpelled) {
    ASSERT_TRUE(write(store_, "Name", "x"));
    for (const auto* path : {"software\\TEST", "\\Software\\\\Test\\"})
        EXPECT_EQ(text(store_, "Name", {HKEY_CURRENT_USER, path}), "x") << path;
    for (const auto& other :
         {NodePath{HKEY_CLASSES_ROOT, "Software\\Test"}, {HKEY_CURRENT_USER, "Software\\Rest"}})
        EXPECT_EQ(text(store_, "Name", other), "<none>");
}

TEST_F(StoreTest, RemovesABranchWhole) {
    ASSERT_TRUE(write(store_, "Name", "x", {HKEY_CURRENT_USER, "A\\B\\C"}));
    ASSERT_TRUE(write(store_, "Name", "y", {HKEY_CURRENT_USER, "AB"}));
    for (const bool isThere : {true, false}) EXPECT_EQ(store_.removeKey({HKEY_CURRENT_USER, "a"}), isThere);
    EXPECT_THAT(store_.keyNames({HKEY_CURRENT_USER, ""}), testing::ElementsAre("AB"));
    ASSERT_TRUE(store_.makeKey({HKEY_CURRENT_USER, "A\\B\\C"}));
    EXPECT_EQ(text(store_, "Name", {HKEY_CURRENT_USER, "A\\B\\C"}), "<none>");
    // Fails where more than one entry is left.
    byHand("CREATE UNIQUE INDEX one ON entries (1)");
}

TEST_F(StoreTest, SeesWhatOthersCommitAtTheNextRead) {
    Store other(path_);
    const auto expectBoth = [&](const std::string& value) {
        for (const auto* name : {"Name", "Other", "Name"}) EXPECT_EQ(text(store_, name), value);
    };
    expectBoth("<none>");
    for (const auto* value : {"one", "two"}) {
        ASSERT_TRUE(write(other, "Name", value) && write(other, "Other", value));
        expectBoth(value);
    }
    ASSERT_TRUE(other.removeKey(kNode));
    expectBoth("<none>");
    ASSERT_TRUE(write(other, "Name", "three"));
    byHand("UPDATE entries SET data = 'mended' WHERE name = 'NAME'");
    EXPECT_EQ(text(store_, "Name"), "mended");
}

TEST_F(StoreTest, KeepsAllOrNothing) {
    ASSERT_TRUE(write(store_, "Name", "old"));
    const NodePath below{HKEY_CURRENT_USER, "New\\Key"};
    for (const bool keeps : {false, true}) {
        const bool isKept = store_.together([&] {
            EXPECT_TRUE(write(store_, "Name", "new") && write(store_, "Other", "new", below));
            EXPECT_EQ(text(store_, "Name"), "new");
            Store other(path_);
            EXPECT_EQ(text(other, "Name"), "old");
            return keeps;
        });
        EXPECT_EQ(isKept, keeps);
        EXPECT_EQ(text(store_, "Name"), keeps ? "new" : "old");
        EXPECT_EQ(text(store_, "Other", below), keeps ? "new" : "<none>");
        EXPECT_EQ(store_.hasKey({HKEY_CURRENT_USER, "New"}), keeps);
    }
}

TEST_F(StoreTest, FollowsTheFileThatThePathLeadsTo) {
    ASSERT_TRUE(write(store_, "Name", "old"));
    std::filesystem::rename(path_, path_ + ".away");
    EXPECT_EQ(text(store_, "Name"), "<none>");
    EXPECT_TRUE(write(store_, "Name", "new"));
    EXPECT_EQ(text(store_, "Name"), "new");
    std::filesystem::rename(path_ + ".away", path_);
    EXPECT_EQ(text(store_, "Name"), "old");
    std::filesystem::remove(path_);
    EXPECT_EQ(text(store_, "Name"), "<none>");
}

TEST_F(StoreTest, TakesAWriteAheadLogOff) {
    ASSERT_TRUE(write(store_, "Name", "old"));
    Store other(path_);
    byHand("PRAGMA journal_mode = WAL");
    EXPECT_EQ(text(other, "Name"), "old");
    ASSERT_TRUE(write(other, "Name", "new"));
    EXPECT_EQ(text(store_, "Name"), "new");
    byHand("UPDATE entries SET data = 'mended'");
    EXPECT_EQ(text(store_, "Name"), "mended");
    EXPECT_EQ(text(other, "Name"), "mended");
}

TEST_F(StoreTest, BoundsWhatItReads) {
    ASSERT_TRUE(write(store_, "Name", "x"));
    for (const auto& [data, read] : {std::pair("replace(hex(zeroblob(524288)), '00', 'xx')", "<none>"),
                                     {"zeroblob(1048576)", "<none>"},
                                     {"zeroblob(65537)", "<none>"},
                                     {"NULL", "<none>"},
                                     {"1.5", "1.5"},
                                     {"9223372036854775807", "9223372036854775807"},
                                     {"x'4142'", "AB"}}) {
        byHand(std::string("UPDATE entries SET data = ") + data);
        EXPECT_EQ(text(store_, "Name"), read) << data;
        EXPECT_EQ(store_.valueNames(kNode).size(), 1U) << data;
    }
    byHand("UPDATE entries SET type = 'no number'");
    EXPECT_EQ(store_.read(kNode, "Name"), (StoredValue{0, Bytes{std::byte{'A'}, std::byte{'B'}}}));
    EXPECT_TRUE(write(store_, "Name", "mended"));
    EXPECT_EQ(text(store_, "Name"), "mended");
}

TEST_F(StoreTest, StandsOddTrees) {
    ASSERT_TRUE(write(store_, "Name", "x", {HKEY_CURRENT_USER, "A\\B"}));
    // A and B below each other, and below no root; an entry of no key; a flood of keys.
    byHand(
        "UPDATE keys SET parent = (SELECT id FROM keys WHERE name = 'B') WHERE name = 'A';"
        "INSERT INTO entries (key, name, type, data) VALUES (999, 'Name', 1, 'lost');"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
        "INSERT INTO keys (parent, name) SELECT 1, 'K' || i FROM n");
    EXPECT_FALSE(store_.hasKey({HKEY_CURRENT_USER, "A"}));
    EXPECT_EQ(store_.keyNames({HKEY_CURRENT_USER, ""}).size(), 10'000U);
    byHand(
        "UPDATE keys SET parent = id WHERE name = 'K1'; INSERT INTO keys (parent, name) SELECT 1, 'Loop';"
        "UPDATE keys SET parent = (SELECT id FROM keys WHERE name = 'Loop') WHERE name = "
        "'HKEY_CURRENT_USER'");
    EXPECT_FALSE(store_.hasKey({HKEY_CURRENT_USER, "K2"}));
    EXPECT_TRUE(write(store_, "Name", "new root")) << "the root is made anew";
    EXPECT_EQ(text(store_, "Name"), "new root");
    byHand("INSERT INTO keys (parent, name) SELECT id, 'Ring' FROM keys WHERE name = 'Test'");
    byHand("UPDATE keys SET parent = (SELECT id FROM keys WHERE name = 'Ring') WHERE name = 'Software'");
    EXPECT_FALSE(store_.removeKey({HKEY_CURRENT_USER, "Software"}));
    EXPECT_TRUE(write(store_, "Name", "again"));
}
