#include "ui/CharacterTally.h"

#include <gtest/gtest.h>

#include <QTest>
#include <random>

#include "ui/RichTextBox.h"

using namespace klt;

namespace {

TEST(CharacterTallyTest, StaysRightThroughEditsOfEveryKind) {
    constexpr std::string_view kTexts[] = {
        "", "x", "\xC3\xA4", "\xE2\x82\xAC\r\n", "\n", "\xFF\xC3", "\xF0\x9F\x98\x80 and more"};
    std::mt19937 random(7);
    const auto below = [&random](Position limit) {
        return std::uniform_int_distribution<Position>(0, limit)(random);
    };
    RichTextBox box;
    box.SetText("Version=2\r\n\xC3\xA4\xC3\xB6\xC3\xBC");
    for (int step = 0; step < 2000; ++step) {
        switch (below(6)) {
            case 0:
                box.Undo();
                break;
            case 1:
                box.Redo();
                break;
            case 2:
                QTest::keyClick(&box, below(1) ? Qt::Key_Backspace : Qt::Key_Delete);
                break;
            case 3:
                QTest::keyClicks(&box, "k");
                break;
            case 4:
                box.RewriteRun(below(box.Length()), "y");
                break;
            default:
                box.Select(below(box.Length()), below(20));
                box.SetSelText(kTexts[below(std::size(kTexts) - 1)]);
        }
        if (below(400) == 0) box.SetText(kTexts[below(std::size(kTexts) - 1)]);
        // Asked now and then only, so that edits come together too.
        if (below(1) == 0) continue;
        ASSERT_EQ(box.CharacterCount(), static_cast<Position>(countCharacters(box.Text()))) << step;
    }
}

}  // namespace
