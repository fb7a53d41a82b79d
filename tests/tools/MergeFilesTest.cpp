#include "tools/MergeFiles.h"

#include "language/NewDocument.h"
#include "support/Scratch.h"
#include "tools/MergeOrder.h"

namespace klt {
namespace {

using Paths = std::vector<std::string>;

class MergeFilesTest : public testing::Test {
protected:
    ScratchHome home_;
    const std::string a_ = home_ / "a.klt", b_ = home_ / "b.klt";
};

TEST_F(MergeFilesTest, EncodingsMeetWithoutLoss) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"[ADS]\nx", "[ADS]\ny", "x\r\ny\r\n"},
        {"[ADS]\n\xC9t\xE9", "\xEF\xBB\xBF[ADS]\n\u00c9t\u00e9\ny", "\xC9t\xE9\r\ny\r\n"},
        {"[ADS]\n\xC9", "[ADS]\n\u0416", "\u00c9\r\n\u0416\r\n"},
    };
    for (const auto& [a, b, merged] : rows) {
        writeBytes(a_, a);
        writeBytes(b_, b);
        // The output may be an input, which is kept then.
        const auto result = MergeFiles(b_, {a_, home_ / "B.KLT"});
        EXPECT_TRUE(result.failures.empty());
        EXPECT_EQ(readBytes(result.kept), b);
        EXPECT_EQ(readBytes(b_), std::string(kNewDocumentText) + "\r\n[ADS]\r\n" + merged);
    }
}

TEST_F(MergeFilesTest, WhatFailsIsNamedAndNothingIsWritten) {
    const auto out = home_ / "out.klt", none = home_ / "none/out.klt", folder = home_.folder().path();
    const auto failed = [&](const std::string& output, const Paths& files) {
        std::string all;
        for (const auto& [path, reason] : MergeFiles(output, files).failures)
            all += path + ": " + reason + "\n";
        return all;
    };
    writeBytes(a_, "[ADS]\nx");
    writeBytes(out, "old");
    EXPECT_EQ(failed(out, {b_, a_, folder}),
              b_ + ": No such file or directory\n" + folder + ": Is a directory\n");
    EXPECT_EQ(readBytes(out), "old");
    EXPECT_EQ(failed(none, {a_}), none + ": No such file or directory\n");
    EXPECT_EQ(namesIn(home_.folder().path()), Paths({"a.klt", "out.klt"})) << "nothing new is kept";
}

TEST(MergeOrder, WhereANewFileGoes) {
    // Behind each path: as before where it is told of as a duplicate.
    const std::tuple<Paths, const char*, Paths> rows[] = {
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
