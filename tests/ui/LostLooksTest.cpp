// Undo and redo bring text back as it was: with its styles, and with the reasons of its errors.

#include <gmock/gmock.h>

#include <functional>
#include <random>

#include "language/StyleCategory.h"
#include "support/Box.h"
#include "text/TextAreaGuards.h"

using namespace klt;
using namespace std::string_literals;

namespace {

constexpr auto kRed = static_cast<StyleByte>(StyleCategory::SyntaxError);

/// All that is seen of a text.
struct Looks {
    std::string text;
    std::string styles;
    std::vector<QString> reasons;
    bool operator==(const Looks&) const = default;

    static Looks of(const RichTextBox& box) {
        Looks looks{std::string(box.Text()), box.Styles(), {}};
        for (Position at = 0; at < box.Length(); ++at)
            if (box.StyleAt(at) == kRed) looks.reasons.push_back(box.errorAt(at));
        return looks;
    }
};

/// Runs of many lengths in all styles, the red ones with reasons.
void setStyledText(RichTextBox& box, std::mt19937& random) {
    std::string text, styles;
    ErrorRuns runs;
    for (const size_t length : {3, 40, 1, 150, 7, 8, 2, 4500, 1, 1, 300, 30}) {
        const auto start = static_cast<Position>(text.size());
        const bool isRed = random() % 3 == 0;
        styles += std::string(length, static_cast<char>(isRed ? kRed : random() % 13));
        for (size_t n = 0; n < length; ++n) text += static_cast<char>('a' + random() % 26);
        if (styles.back() != kRed) continue;
        const auto middle = start + static_cast<Position>(length / 2);
        runs.push_back({start, middle, ErrorReason::BadCost});
        runs.push_back({middle, static_cast<Position>(text.size()), ErrorReason::BadStep});
    }
    box.SetText(text);
    box.LayStyles(0, styles);
    box.keepReasons({0, box.Length()}, runs);
}

TEST(LostLooks, ComeBackThroughEditsOfEveryKind) {
    std::mt19937 random(11);
    const auto below = [&](Position most) {
        return std::uniform_int_distribution<Position>(0, most)(random);
    };
    Box box;
    setStyledText(box, random);
    std::vector<Looks> history = {Looks::of(box)};
    size_t now = 0;
    // A step may be more than one edit: it ends at some state of the history, in its direction.
    const auto lookFor = [&](int direction) {
        const Looks looks = Looks::of(box);
        do now += static_cast<size_t>(direction);
        while (now < history.size() && history[now] != looks);
        return now < history.size();
    };
    const auto selectSome = [&](Position most) { box.Select(below(box.Length()), below(most)); };
    const std::function<void()> edits[] = {
        [&] { QTest::keyClick(&box, below(1) ? Qt::Key_Backspace : Qt::Key_Delete); },
        [&] { selectSome(0), QTest::keyClick(&box, below(1) ? Qt::Key_Backspace : Qt::Key_Delete, kCtrl); },
        [&] { QTest::keyClicks(&box, "k"); },
        [&] { selectSome(30), QTest::keyClicks(&box, "m"); },
        [&] { selectSome(3000), box.key(Qt::Key_X, kCtrl); },
        [&] { selectSome(5), box.key(Qt::Key_V, kCtrl); },
        [&] { selectSome(200), box.SetSelTextStyled("abc", "\1\13\2"); },
        [&] {
            const UndoGroup group(box);
            for (int n = 0; n < 5; ++n) selectSome(20), box.SetSelText("\u20AC");
        },
        [&] { box.ReplaceText(std::string(box.Text()) + "tail"); },
    };
    for (int step = 0; step < 900; ++step) {
        const Position choice = below(20);
        if (choice < 8 && box.CanUndo()) {
            box.key(Qt::Key_Z, kCtrl);
            ASSERT_TRUE(lookFor(-1)) << step;
        } else if (choice < 14 && box.CanRedo()) {
            box.key(Qt::Key_Y, kCtrl);
            ASSERT_TRUE(lookFor(1)) << step;
        } else {
            box.changes = 0;
            // All of it goes now and then only, for it leaves one style.
            edits[below(std::size(edits) - (step % 40 == 0 ? 1 : 2))]();
            if (box.changes == 0) continue;
            history.resize(now + 1);
            history.push_back(Looks::of(box));
            now = history.size() - 1;
        }
        if (step % 300 == 299) {
            setStyledText(box, random);
            history = {Looks::of(box)};
            now = 0;
        }
    }
    while (box.CanUndo()) box.Undo();
    EXPECT_EQ(Looks::of(box), history.front());
    while (box.CanRedo()) box.Redo();
    EXPECT_EQ(Looks::of(box), history.back());
}

TEST(LostLooks, AreThoseThatTheTextHadWhenItWent) {
    const auto cut = [](Box& box) { box.Select(2, 3), box.key(Qt::Key_Delete); };
    const auto undo = [](Box& box) { box.key(Qt::Key_Z, kCtrl); };
    const auto recheck = [](Box& box) {
        box.ColourRun(0, box.Length(), 5);
        box.keepReasons({0, box.Length()}, {});
    };
    const struct {
        const char* what;
        std::vector<std::function<void(Box&)>> acts;
        const char* styles;
        const char* reasonAt3;
    } rows[] = {
        {"deleted", {cut, undo}, "11;;;223", "not a cost"},
        {"what stayed was coloured anew meanwhile", {cut, recheck, undo}, "55;;;555", "not a cost"},
        {"coloured before it went", {recheck, cut, undo}, "55555555", ""},
        {"typed over",
         {[](Box& box) { box.Select(1, 7), box.key(Qt::Key_X); }, undo},
         "11;;;223",
         "not a cost"},
    };
    for (const auto& row : rows) {
        Box box(RichTextBox::Kind::Document, "abcdefgh");
        box.LayStyles(0, "\1\1\13\13\13\2\2\3");
        box.keepReasons({0, 8}, {{2, 5, ErrorReason::BadCost}});
        for (const auto& act : row.acts) act(box);
        EXPECT_EQ(box.shown(), "abcdefgh") << row.what;
        EXPECT_EQ(styleDigits(box), row.styles) << row.what;
        EXPECT_EQ(box.errorAt(3), row.reasonAt3) << row.what;
    }
}

}  // namespace
