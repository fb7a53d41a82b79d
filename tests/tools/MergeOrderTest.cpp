#include "tools/MergeOrder.h"

#include <gmock/gmock.h>

namespace klt {
namespace {

using Rows = std::vector<std::string>;

TEST(MergeOrder, WhereANewFileGoes) {
    struct Row {
        Rows before;
        const char* path;
        Rows after;  // as before where it is told of as a duplicate
    };
    for (const auto& row : {
             Row{{}, "/a.klt", {"/a.klt"}},
             Row{{"/a.klt"}, "/b.klt", {"/b.klt", "/a.klt"}},
             Row{{"/a.klt"}, "/A.klt", {"/a.klt"}},
             Row{{"/d.klt", "/a.klt"}, "/a.klt", {"/a.klt", "/d.klt", "/a.klt"}},
             Row{{"/a.klt"}, "/Basic.klt", {"/a.klt", "/Basic.klt"}},
             Row{{"/COMPEND1.KLT"}, "/basic.klt", {"/basic.klt", "/COMPEND1.KLT"}},
             Row{{"/x/BASIC.KLT"}, "/basic.klt", {"/x/BASIC.KLT", "/basic.klt"}},
             Row{{"/a", "/b"}, "/BASIC.KLT", {"/a", "/BASIC.KLT", "/b"}},
             Row{{"/a", "/b", "/c"}, "/BASIC.KLT", {"/a", "/b", "/BASIC.KLT", "/c"}},
             Row{{"/a", "/basic.klt", "/c"}, "/BASIC.KLT", {"/a", "/basic.klt", "/c"}},
             Row{{"/a", "/c"}, "/compend1.klt", {"/a", "/c", "/compend1.klt"}},
             Row{{"/compend1.klt", "/c"}, "/Compend1.klt", {"/compend1.klt", "/c", "/Compend1.klt"}},
             Row{{"/c", "/compend1.klt"}, "/Compend1.klt", {"/c", "/compend1.klt"}},
             Row{{"/a", "/BASIC.KLT", "/COMPEND1.KLT"}, "/d", {"/d", "/a", "/BASIC.KLT", "/COMPEND1.KLT"}},
         }) {
        auto rows = row.before;
        const auto place = placeInMergeList(rows, row.path);
        if (place) rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(*place), row.path);
        EXPECT_THAT(rows, testing::ElementsAreArray(row.after)) << row.path;
        EXPECT_EQ(place.has_value(), row.before.size() != row.after.size()) << row.path;
    }
}

}  // namespace
}  // namespace klt
