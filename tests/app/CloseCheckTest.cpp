#include "support/EditorFixture.h"

using namespace klt;

namespace {

class CloseCheckTest : public EditorFixture {};

TEST_F(CloseCheckTest, AChangedDocumentIsAskedAbout) {
    openNew();
    type("x");
    answerMessage(QMessageBox::Cancel);
    action("F3")->trigger();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0], "The data file KLT1.klt has been changed!\nSave changes?");
    EXPECT_EQ(lastTitle, "KLT Editor Beta 1.60");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_TRUE(window().ActiveForm());
}

}  // namespace
