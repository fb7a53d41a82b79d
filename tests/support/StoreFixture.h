#pragma once

#include "settings/GetSetting.h"
#include "support/Scratch.h"

namespace klt {

/// A store of its own, whose file is not made yet.
class StoreFixture : public testing::Test {
protected:
    /// What a person does with the sqlite3 program.
    void byHand(const std::string& sql) {
        Database database;
        ASSERT_EQ(database.open(path_), DatabaseStatus::Done);
        EXPECT_EQ(database.execute(sql), DatabaseStatus::Done) << sql;
    }

    ScratchFolder folder_;
    std::string path_ = folder_ / "klt-editor/store.sqlite3";
    Store store_{path_};
};

}  // namespace klt
