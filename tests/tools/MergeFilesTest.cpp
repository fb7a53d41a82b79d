#include "tools/MergeFiles.h"

#include "language/NewDocument.h"
#include "support/Scratch.h"

namespace klt {
namespace {

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
        // The output may be an input.
        EXPECT_TRUE(MergeFiles(b_, {a_, home_ / "B.KLT"}).empty());
        EXPECT_EQ(readBytes(b_), std::string(kNewDocumentText) + "\r\n[ADS]\r\n" + merged);
    }
}

TEST_F(MergeFilesTest, WhatFailsIsNamedAndNothingIsWritten) {
    const auto out = home_ / "out.klt", none = home_ / "none/out.klt", folder = home_.folder().path();
    const auto failed = [&](const std::string& output, const std::vector<std::string>& files) {
        std::string all;
        for (const auto& [path, reason] : MergeFiles(output, files)) all += path + ": " + reason + "\n";
        return all;
    };
    writeBytes(a_, "[ADS]\nx");
    writeBytes(out, "old");
    EXPECT_EQ(failed(out, {b_, a_, folder}),
              b_ + ": No such file or directory\n" + folder + ": Is a directory\n");
    EXPECT_EQ(readBytes(out), "old");
    EXPECT_EQ(failed(none, {a_}), none + ": No such file or directory\n");
}

}  // namespace
}  // namespace klt
