#include "language/NewDocument.h"
#include "support/RunKlt.h"

namespace klt {
namespace {

class MergeCommand : public testing::Test {
protected:
    MergeCommand() {
        writeBytes(a_, "[ADS]\na\n");
        writeBytes(home_ / "b.klt", "[ADS]\nb");
    }
    ScratchHome home_;
    const std::string a_ = home_ / "a.klt", out_ = home_ / "out.klt";
    const std::string head_ = std::string(kNewDocumentText) + "\r\n[ADS]\r\n";
};

TEST_F(MergeCommand, WritesTheFilesAsOne) {
    const Ran done{0, "", ""};
    EXPECT_EQ(runKlt({"merge", "-o", out_, a_, home_ / "B.klt"}), done);
    EXPECT_EQ(readBytes(out_), head_ + "a\r\nb\r\n");
    EXPECT_EQ(runKlt({"merge", "-", a_, "--output", a_}, "[ADS]\nc"), done);
    EXPECT_EQ(readBytes(a_), head_ + "c\r\na\r\n");
    EXPECT_EQ(readBytes(a_ + "~"), "[ADS]\na\n") << "an input is kept";
}

TEST_F(MergeCommand, TellsOfUnknownHeadingsAndChangedEncodings) {
    const std::string stays =
        " stays where it stood. What other files bring comes behind it, and moves under it once it is "
        "corrected.\n";
    const std::string b = home_ / "b.klt";
    writeBytes(a_, "[ADS]\na\n\n [SKILS]\n\xC9\n");
    EXPECT_EQ(runKlt({"merge", "-o", out_, a_, "-", b}, "[ADS]\n\u0416\n<Sea"),
              (Ran{0, "",
                   "klt: " + a_ + ":4: unknown heading [SKILS]" + stays +
                       "klt: <stdin>:3: unknown heading <Sea" + stays + "klt: " + a_ +
                       ": the encoding changes from Windows-1252 to UTF-8 in " + out_ + "\n"}));
    EXPECT_EQ(readBytes(out_), head_ + "a\r\n\r\n [SKILS]\r\n\u00c9\r\n\u0416\r\n<Sea\r\nb\r\n");
}

TEST_F(MergeCommand, TakesDrivePaths) {
    std::filesystem::create_directories(home_ / "wine/dosdevices");
    std::filesystem::create_directory_symlink(home_.folder().path(), home_ / "wine/dosdevices/k:");
    const ScopedVariable prefix("WINEPREFIX", home_ / "wine");
    EXPECT_EQ(runKlt({"merge", "-o", R"(K:\out.klt)", R"(k:\A.KLT)"}), (Ran{0, "", ""}));
    EXPECT_EQ(readBytes(out_), head_ + "a\r\n");
}

TEST_F(MergeCommand, WritesNothingWhereSomethingFails) {
    const std::string none = home_ / "none", missing = ": No such file or directory\n";
    writeBytes(out_, "old");
    EXPECT_EQ(runKlt({"merge", "-o", out_, none, a_, none + "/x"}),
              (Ran{2, "", "klt: " + none + missing + "klt: " + none + "/x" + missing}));
    EXPECT_EQ(readBytes(out_), "old");
    EXPECT_EQ(runKlt({"merge", "-o", none + "/x", a_}), (Ran{2, "", "klt: " + none + "/x" + missing}));
}

}  // namespace
}  // namespace klt
