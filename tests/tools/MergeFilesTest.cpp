#include "tools/MergeFiles.h"

#include <gtest/gtest.h>

#include "language/NewDocument.h"
#include "support/Scratch.h"

namespace klt {
namespace {

class MergeFilesTest : public testing::Test {
protected:
    ScratchHome home_;
    const std::string a_ = home_ / "a.klt", b_ = home_ / "b.klt", out_ = home_ / "out.klt";
    const std::string head_ = std::string(kNewDocumentText) + "\r\n[ADS]\r\n";
};

TEST_F(MergeFilesTest, EncodingsMeetWithoutLoss) {
    struct Row {
        const char* a;
        const char* b;
        const char* wanted;
    };
    for (const auto& row :
         {Row{"[ADS]\nx", "[ADS]\ny", "x\r\ny\r\n"},
          Row{"[ADS]\n\xC9t\xE9", "\xEF\xBB\xBF[ADS]\n\u00c9t\u00e9\ny", "\xC9t\xE9\r\ny\r\n"},
          Row{"[ADS]\n\xC9", "[ADS]\n\u0416", "\u00c9\r\n\u0416\r\n"}}) {
        writeBytes(a_, row.a);
        writeBytes(b_, row.b);
        EXPECT_TRUE(MergeFiles(out_, {a_, home_ / "B.KLT"}).empty());
        EXPECT_EQ(readBytes(out_), head_ + row.wanted);
    }
}

TEST_F(MergeFilesTest, TheOutputMayBeAnInput) {
    writeBytes(a_, "[ADS]\nx");
    writeBytes(b_, "[ADS]\ny");
    EXPECT_TRUE(MergeFiles(a_, {b_, a_}).empty());
    EXPECT_EQ(readBytes(a_), head_ + "y\r\nx\r\n");
}

TEST_F(MergeFilesTest, WhatFailsIsNamedAndNothingIsWritten) {
    writeBytes(a_, "[ADS]\nx");
    writeBytes(out_, "old");
    const auto failures = MergeFiles(out_, {b_, a_, home_.folder().path()});
    ASSERT_EQ(failures.size(), 2);
    EXPECT_EQ(failures[0].path, b_);
    EXPECT_EQ(failures[0].reason, "No such file or directory");
    EXPECT_EQ(failures[1].path, home_.folder().path());
    EXPECT_EQ(readBytes(out_), "old");

    const auto unwritten = MergeFiles(home_ / "none/out.klt", {a_});
    ASSERT_EQ(unwritten.size(), 1);
    EXPECT_EQ(unwritten[0].path, home_ / "none/out.klt");
}

}  // namespace
}  // namespace klt
