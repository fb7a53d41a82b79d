#include "tools/MergeOrder.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

using Rows = std::vector<std::string>;

TEST(MergeOrder, WhereANewFileGoes) {
    // Behind each path: as before where it is told of as a duplicate.
    const std::tuple<Rows, const char*, Rows> rows[] = {
        {{}, "/a.klt", {"/a.klt"}},
        {{"/a.klt"}, "/b.klt", {"/b.klt", "/a.klt"}},
        {{"/a.klt"}, "/A.klt", {"/a.klt"}},
        {{"/d.klt", "/a.klt"}, "/a.klt", {"/a.klt", "/d.klt", "/a.klt"}},
        {{"/a.klt"}, "/Basic.klt", {"/a.klt", "/Basic.klt"}},
        {{"/COMPEND1.KLT"}, "/basic.klt", {"/basic.klt", "/COMPEND1.KLT"}},
        {{"/x/BASIC.KLT"}, "/basic.klt", {"/x/BASIC.KLT", "/basic.klt"}},
        {{"/a", "/b"}, "/BASIC.KLT", {"/a", "/BASIC.KLT", "/b"}},
        {{"/a", "/b", "/c"}, "/BASIC.KLT", {"/a", "/b", "/BASIC.KLT", "/c"}},
        {{"/a", "/basic.klt", "/c"}, "/BASIC.KLT", {"/a", "/basic.klt", "/c"}},
        {{"/a", "/c"}, "/compend1.klt", {"/a", "/c", "/compend1.klt"}},
        {{"/compend1.klt", "/c"}, "/Compend1.klt", {"/compend1.klt", "/c", "/Compend1.klt"}},
        {{"/c", "/compend1.klt"}, "/Compend1.klt", {"/c", "/compend1.klt"}},
        {{"/a", "/BASIC.KLT", "/COMPEND1.KLT"}, "/d", {"/d", "/a", "/BASIC.KLT", "/COMPEND1.KLT"}},
    };
    for (const auto& [before, path, after] : rows) {
        auto list = before;
        const auto place = placeInMergeList(list, path);
        if (place) list.insert(list.begin() + static_cast<std::ptrdiff_t>(*place), path);
        EXPECT_EQ(list, after) << path;
        EXPECT_EQ(place.has_value(), before.size() != after.size()) << path;
    }
}

}  // namespace
}  // namespace klt
