#include "ui/CharacterTally.h"

#include <gtest/gtest.h>

#include <QTest>
#include <functional>
#include <random>

#include "ui/RichTextBox.h"

using namespace klt;

namespace {

TEST(CharacterTallyTest, StaysRightThroughEditsOfEveryKind) {
    constexpr std::string_view kTexts[] = {
        "", "x", "\xC3\xA4", "\xE2\x82\xAC\r\n", "\n", "\xFF\xC3", "\xF0\x9F\x98\x80 and more"};
    std::mt19937 random(7);
    const auto below = [&](Position most) {
        return std::uniform_int_distribution<Position>(0, most)(random);
    };
    RichTextBox box;
    box.SetText("Version=2\r\n\xC3\xA4\xC3\xB6\xC3\xBC");
    const auto someText = [&] { return kTexts[below(std::size(kTexts) - 1)]; };
    const std::function<void()> edits[] = {
        [&] { box.Undo(); },
        [&] { box.Redo(); },
        [&] { QTest::keyClick(&box, below(1) ? Qt::Key_Backspace : Qt::Key_Delete); },
        [&] { QTest::keyClicks(&box, "k"); },
        [&] { box.RewriteRun(below(box.Length()), "y"); },
        [&] { box.Select(below(box.Length()), below(20)), box.SetSelText(someText()); },
    };
    for (int step = 0; step < 2000; ++step) {
        edits[below(std::size(edits) - 1)]();
        if (below(400) == 0) box.SetText(someText());
        // Asked now and then only, so that edits come together too.
        if (below(1) == 0) continue;
        ASSERT_EQ(box.CharacterCount(), static_cast<Position>(countCharacters(box.Text()))) << step;
    }
}

}  // namespace
