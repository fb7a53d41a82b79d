#include "tools/FindHistory.h"

#include "support/Scratch.h"

namespace klt {
namespace {

TEST(FindHistory, KeepsFourNewestFirst) {
    const ScratchFolder folder;
    Store store(folder / "store.sqlite3");
    const auto load = [&] { return FindHistory::load(store, settings::kSearchStrings); };
    writeSetting(store, settings::kReplaceStrings[0], "another list");
    auto history = load();
    EXPECT_EQ(history.entries(), std::vector<std::string>(4));
    for (const char* text : {"a", "b", "b", "c", "d"}) history.enter(text);
    const std::vector<std::string> kept = {"d", "c", "b", "b"};
    EXPECT_EQ(history.entries(), kept);
    history.save(store, settings::kSearchStrings);
    EXPECT_EQ(load().entries(), kept);
    EXPECT_EQ(GetSetting(store, "KLTEdit", "Search Strings", "3"), "b");
    EXPECT_EQ(readSetting(store, settings::kReplaceStrings[0]), "another list");
}

}  // namespace
}  // namespace klt
