#include "settings/cMRUFileList.h"

#include "settings/GetSetting.h"
#include "support/Scratch.h"

namespace klt {
namespace {

class cMRUFileListTest : public testing::Test {
protected:
    cMRUFileListTest() {
        registry_.ClassKey(HKEY_CURRENT_USER);
        registry_.SectionKey(recentFilesPath());
        list_.MaxFileCount(4);
    }
    static std::string shown(const cMRUFileList& list) {
        std::string text;
        for (std::int32_t index = 1; index <= list.FileCount(); ++index) text += list.file(index) + ",";
        return text;
    }
    void store(const char* key, const StoredValue& value) {
        ASSERT_TRUE(store_.write({HKEY_CURRENT_USER, registry_.SectionKey()}, key, value));
    }
    /// As the main window makes its list.
    cMRUFileList loaded() {
        cMRUFileList list;
        list.MaxFileCount(cMRUFileList::storedCapacity(registry_));
        EXPECT_TRUE(list.Load(registry_));
        return list;
    }

    ScratchFolder folder_;
    Store store_{folder_ / "store.sqlite3"};
    cRegistry registry_{store_};
    cMRUFileList list_;
};

TEST_F(cMRUFileListTest, AddsInFront) {
    struct Row {
        const char* added;
        const char* shown;
    };
    const Row rows[] = {{"/a.klt", "/a.klt,"},
                        {"/b.klt", "/B.KLT,/A.KLT,"},
                        {"/B.klt", "/B.KLT,/A.KLT,"},
                        {"/\xC3\xA9.klt", "/\xC3\x89.KLT,/B.KLT,/A.KLT,"},
                        {"/d", "/D,/\xC3\x89.KLT,/B.KLT,/A.KLT,"},
                        {"/b.KLT", "/B.KLT,/D,/\xC3\x89.KLT,/A.KLT,"},
                        {"/e", "/E,/B.KLT,/D,/\xC3\x89.KLT,"}};
    for (const auto& row : rows) {
        list_.AddFile(row.added);
        EXPECT_EQ(shown(list_), row.shown) << row.added;
    }
    EXPECT_EQ(list_.MenuCaption(2), "&2 /B.KLT");
    EXPECT_TRUE(list_.FileExists(4));
    EXPECT_FALSE(list_.FileExists(5));
    EXPECT_FALSE(list_.FileExists(0));
    EXPECT_EQ(list_.file(-1), "");
}

TEST_F(cMRUFileListTest, ComparesOnlyUpToTheMatch) {
    store("MaxCount", {REG_DWORD, 4});
    store("Count", {REG_DWORD, 3});
    for (const auto* name : {"1", "2", "3"})
        store((std::string("RecentFile") + name).c_str(), {REG_SZ, std::string("/f") + name});
    auto list = loaded();
    EXPECT_EQ(shown(list), "/f1,/f2,/f3,");
    list.AddFile("/F2");
    EXPECT_EQ(shown(list), "/F2,/F1,/f3,");
}

TEST_F(cMRUFileListTest, SavesAndLoads) {
    EXPECT_EQ(shown(loaded()), "") << "no key";
    list_.AddFile("/a");
    list_.AddFile("/b");
    EXPECT_TRUE(list_.Save(registry_));
    EXPECT_EQ(store_.read({HKEY_CURRENT_USER, registry_.SectionKey()}, "Count"), (StoredValue{REG_DWORD, 2}));
    const auto list = loaded();
    EXPECT_EQ(list.MaxFileCount(), 4);
    EXPECT_EQ(shown(list), "/B,/A,");
}

TEST_F(cMRUFileListTest, KeepsItsCountWhenTheCapacityDrops) {
    list_.MaxFileCount(9);
    for (char name = 'A'; name <= 'I'; ++name) list_.AddFile(std::string(1, name));
    list_.MaxFileCount(4);
    EXPECT_EQ(list_.FileCount(), 9);
    EXPECT_EQ(list_.file(4), "F");
    EXPECT_EQ(list_.file(5), "");
    list_.Save(registry_);
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "MRU", "Count"), "9");
    EXPECT_EQ(GetSetting(store_, "KLTEdit", "MRU", "RecentFile4"), "F");
    EXPECT_FALSE(HasSetting(store_, "KLTEdit", "MRU", "RecentFile5"));
    list_.AddFile("J");
    EXPECT_EQ(shown(list_), "J,I,H,G,");
}

TEST_F(cMRUFileListTest, StandsHostileStores) {
    struct Row {
        StoredValue maxCount;
        StoredValue count;
        std::int32_t capacity;
        std::int32_t files;
    };
    const Row rows[] = {{{REG_DWORD, 0}, {REG_DWORD, 1}, 4, 1},
                        {{REG_SZ, ""}, {REG_SZ, "1"}, 4, 1},
                        {{REG_SZ, "9"}, {REG_SZ, "x"}, 9, 0},
                        {{REG_BINARY, Bytes(4)}, {REG_BINARY, Bytes(4)}, 4, 0},
                        {{REG_DWORD, -5}, {REG_DWORD, 3}, -5, 0},
                        {{REG_DWORD, 4}, {REG_DWORD, -3}, 4, 0},
                        {{REG_DWORD, 4}, {REG_DWORD, 9}, 4, 9},
                        {{REG_DWORD, 2147483647}, {REG_DWORD, 2147483647}, 2147483647, 1000}};
    store("RecentFile1", {REG_SZ, "/a"});
    store("RecentFile2", {REG_DWORD, 2});
    for (const auto& row : rows) {
        store("MaxCount", row.maxCount);
        store("Count", row.count);
        auto list = loaded();
        EXPECT_EQ(list.MaxFileCount(), row.capacity);
        EXPECT_EQ(list.FileCount(), row.files);
        list.AddFile("/new");
        EXPECT_EQ(list.FileExists(1), row.capacity > 0);
        EXPECT_TRUE(list.Save(registry_));
    }
}

}  // namespace
}  // namespace klt
