#include "settings/cMRUFileList.h"

#include "support/StoreFixture.h"

using namespace klt;

class cMRUFileListTest : public StoreFixture {
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
    void store(const std::string& key, const StoredValue& value) {
        ASSERT_TRUE(store_.write({HKEY_CURRENT_USER, registry_.SectionKey()}, key, value));
    }
    /// As the main window makes its list.
    cMRUFileList loaded() {
        cMRUFileList list;
        list.MaxFileCount(cMRUFileList::storedCapacity(registry_));
        EXPECT_TRUE(list.Load(registry_));
        return list;
    }

    cRegistry registry_{store_};
    cMRUFileList list_;
};

TEST_F(cMRUFileListTest, AddsInFront) {
    const std::pair<const char*, const char*> rows[] = {{"/a.klt", "/a.klt,"},
                                                        {"/b.klt", "/B.KLT,/A.KLT,"},
                                                        {"/B.klt", "/B.KLT,/A.KLT,"},
                                                        {"/\xC3\xA9.klt", "/\xC3\x89.KLT,/B.KLT,/A.KLT,"},
                                                        {"/d", "/D,/\xC3\x89.KLT,/B.KLT,/A.KLT,"},
                                                        {"/b.KLT", "/B.KLT,/D,/\xC3\x89.KLT,/A.KLT,"},
                                                        {"/e", "/E,/B.KLT,/D,/\xC3\x89.KLT,"}};
    for (const auto& [added, all] : rows) {
        list_.AddFile(added);
        EXPECT_EQ(shown(list_), all) << added;
    }
    EXPECT_EQ(list_.MenuCaption(2), "&2 /B.KLT");
    for (const auto index : {0, 4, 5}) EXPECT_EQ(list_.FileExists(index), index == 4) << index;
    EXPECT_EQ(list_.file(-1), "");
}

TEST_F(cMRUFileListTest, ComparesOnlyUpToTheMatch) {
    store("MaxCount", {REG_DWORD, 4});
    store("Count", {REG_DWORD, 3});
    for (const std::string name : {"1", "2", "3"}) store("RecentFile" + name, {REG_SZ, "/f" + name});
    auto list = loaded();
    EXPECT_EQ(shown(list), "/f1,/f2,/f3,");
    list.AddFile("/F2");
    EXPECT_EQ(shown(list), "/F2,/F1,/f3,");
}

TEST_F(cMRUFileListTest, KeepsItsCountWhenTheCapacityDrops) {
    EXPECT_EQ(shown(loaded()), "") << "no key";
    list_.MaxFileCount(9);
    for (char name = 'A'; name <= 'I'; ++name) list_.AddFile(std::string(1, name));
    list_.MaxFileCount(4);
    EXPECT_EQ(list_.FileCount(), 9);
    EXPECT_EQ(list_.file(4) + list_.file(5), "F");
    EXPECT_TRUE(list_.Save(registry_));
    EXPECT_EQ(store_.read({HKEY_CURRENT_USER, registry_.SectionKey()}, "Count"), (StoredValue{REG_DWORD, 9}));
    EXPECT_EQ(loaded().MaxFileCount(), 4);
    EXPECT_TRUE(HasSetting(store_, "KLTEdit", "MRU", "RecentFile4"));
    EXPECT_FALSE(HasSetting(store_, "KLTEdit", "MRU", "RecentFile5"));
    list_.AddFile("J");
    EXPECT_EQ(shown(list_), "J,I,H,G,");
}

TEST_F(cMRUFileListTest, StandsHostileStores) {
    const std::tuple<StoredValue, StoredValue, std::int32_t, std::int32_t> rows[] = {
        {{REG_DWORD, 0}, {REG_DWORD, 1}, 4, 1},
        {{REG_SZ, ""}, {REG_SZ, "1"}, 4, 1},
        {{REG_SZ, "9"}, {REG_SZ, "x"}, 9, 0},
        {{REG_BINARY, Bytes(4)}, {REG_BINARY, Bytes(4)}, 4, 0},
        {{REG_DWORD, -5}, {REG_DWORD, 3}, -5, 0},
        {{REG_DWORD, 4}, {REG_DWORD, -3}, 4, 0},
        {{REG_DWORD, 4}, {REG_DWORD, 9}, 4, 9},
        {{REG_DWORD, 2147483647}, {REG_DWORD, 2147483647}, 2147483647, 1000}};
    store("RecentFile1", {REG_SZ, "/a"});
    store("RecentFile2", {REG_DWORD, 2});
    for (const auto& [maxCount, count, capacity, files] : rows) {
        store("MaxCount", maxCount);
        store("Count", count);
        auto list = loaded();
        EXPECT_EQ(list.MaxFileCount(), capacity);
        EXPECT_EQ(list.FileCount(), files);
        list.AddFile("/new");
        EXPECT_EQ(list.FileExists(1), capacity > 0);
        EXPECT_TRUE(list.Save(registry_));
    }
}
