// Why a text is red: kept while it is edited, and told where the mouse rests.

#include <gmock/gmock.h>

#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QScopeGuard>
#include <functional>

#include "language/StyleCategory.h"
#include "support/Box.h"

using namespace klt;
using testing::ElementsAre;

namespace {

constexpr auto kRed = static_cast<StyleByte>(StyleCategory::SyntaxError);
constexpr auto kCost = "not a cost";
constexpr auto kStep = "the step is not a number";
constexpr auto kChanged = "Changed since the last check (Ctrl+K)";

/// As a check leaves it.
void check(Box& box, std::string_view text, const ErrorRuns& runs) {
    box.SetText(text);
    for (const ErrorRun& run : runs) box.ColourRun(run.start, run.end, kRed);
    box.keepReasons({0, box.Length()}, runs);
}

/// The reasons of the bytes, each once for those that have it one after the other.
std::vector<std::string> reasons(const RichTextBox& box) {
    std::vector<std::string> told;
    for (Position at = 0; at < box.Length(); ++at) {
        auto reason = box.errorAt(at).toStdString();
        if (told.empty() || told.back() != reason) told.push_back(std::move(reason));
    }
    return told;
}

TEST(ErrorReasons, StayWithTheirTextUntilItIsEdited) {
    const ErrorRuns one = {{2, 7, ErrorReason::BadCost}};
    const ErrorRuns named = {{2, 7, ErrorReason::UnknownTag, {3, 6}}};
    const ErrorRuns two = {{2, 4, ErrorReason::BadCost}, {4, 7, ErrorReason::BadStep}};
    const ErrorRuns all = {{0, 9, ErrorReason::BadCost}};
    const ErrorRuns over = {{2, 7, ErrorReason::BadCost}, {4, 6, ErrorReason::BadStep}};
    const auto typeAt = [](Position at) {
        return [at](Box& box) { box.SetSelStart(at), box.key(Qt::Key_X); };
    };
    const auto deleteFrom = [](Position at, Position length) {
        return [at, length](Box& box) { box.Select(at, length), box.key(Qt::Key_Delete); };
    };
    using Told = std::vector<std::string>;
    const struct {
        const char* what;
        ErrorRuns runs;
        std::function<void(Box&)> act;
        Told told;
    } rows[] = {
        {"as laid", one, [](Box&) {}, {"", kCost, ""}},
        {"with its word", named, [](Box&) {}, {"", "no such tag: def", ""}},
        {"with its word, typed in front", named, typeAt(0), {"", "no such tag: def", ""}},
        {"typed in its word", named, typeAt(4), {"", kChanged, ""}},
        {"undone in its word",
         named,
         [&](Box& box) { typeAt(4)(box), box.Undo(); },
         {"", "no such tag: def", ""}},
        {"a part of its word brought back",
         named,
         [&](Box& box) { deleteFrom(4, 2)(box), box.Undo(); },
         {"", "no such tag: def", ""}},
        {"all of it brought back",
         named,
         [&](Box& box) { deleteFrom(1, 7)(box), box.Undo(), box.Redo(), box.Undo(); },
         {"", "no such tag: def", ""}},
        {"another word of the run",
         {{3, 6, ErrorReason::BadCost, {3, 4}}, {2, 7, ErrorReason::UnknownTag, {4, 6}}},
         [](Box&) {},
         {"", "no such tag: ef", ""}},
        {"the later over the earlier", over, [](Box&) {}, {"", kCost, kStep, kCost, ""}},
        {"typed elsewhere", one, typeAt(0), {"", kCost, ""}},
        {"typed right in front", one, typeAt(2), {"", kCost, ""}},
        {"typed inside", one, typeAt(3), {"", kChanged, ""}},
        {"typed right behind, where it is red too", one, typeAt(7), {"", kChanged, ""}},
        {"typed behind the one and in front of the other", two, typeAt(4), {"", kChanged, kStep, ""}},
        {"typed at the text's end", all, typeAt(9), {kChanged}},
        {"typed at the text's start", all, typeAt(0), {kChanged}},
        {"its start deleted", one, deleteFrom(1, 2), {"", kChanged, ""}},
        {"its end deleted", one, deleteFrom(5, 3), {"", kChanged, ""}},
        {"deleted inside", one, deleteFrom(3, 2), {"", kChanged, ""}},
        {"deleted beside", one, deleteFrom(7, 1), {"", kCost, ""}},
        {"deleted as a whole", two, deleteFrom(1, 3), {"", kStep, ""}},
        {"undone in front", one, [&](Box& box) { typeAt(0)(box), box.Undo(); }, {"", kCost, ""}},
        {"redone in front", one, [&](Box& box) { typeAt(0)(box), box.Undo(), box.Redo(); }, {"", kCost, ""}},
        {"brought back in front", one, [&](Box& box) { deleteFrom(0, 1)(box), box.Undo(); }, {"", kCost, ""}},
        {"undone inside", one, [&](Box& box) { typeAt(3)(box), box.Undo(); }, {"", kCost, ""}},
        {"coloured anew", one, [](Box& box) { box.ColourRun(0, 9, 5); }, {""}},
        {"in the base format", one, [](Box& box) { box.SetBaseStyle(kRed); }, {kChanged}},
        {"another text", all, [](Box& box) { box.SetText("x"), box.ColourRun(0, 1, kRed); }, {kChanged}},
        {"a part checked anew",
         two,
         [](Box& box) {
             box.keepReasons({4, 7}, {{4, 7, ErrorReason::BadCost}});
         },
         {"", kCost, ""}},
    };
    for (const auto& row : rows) {
        Box box;
        check(box, "abcdefghi", row.runs);
        row.act(box);
        EXPECT_EQ(reasons(box), row.told) << row.what;
    }
    Box box;
    check(box, "\u20AC5", {{1, 4, ErrorReason::BadCost}});
    EXPECT_THAT(reasons(box), ElementsAre(kCost)) << "from the character's start, as the colour";
}

TEST(ErrorReasons, AreToldWhereTheMouseRests) {
    Box box(RichTextBox::Kind::Field);
    check(box, "abc def ghi", {{4, 7, ErrorReason::BadCost}});
    const auto tip = [&] { return box.findChild<QLabel*>("ErrorTip"); };
    const auto isShown = [&] { return tip() && tip()->isVisible(); };
    const auto rest = [&](Position place) {
        QHelpEvent event(QEvent::ToolTip, box.pointOf(place) + QPoint(2, 2),
                         box.viewport()->mapToGlobal(box.pointOf(place)));
        QApplication::sendEvent(box.viewport(), &event);
    };
    const auto moveTo = [&](Position place) {
        const QPointF point = box.pointOf(place) + QPoint(2, 2);
        QMouseEvent move(QEvent::MouseMove, point, box.viewport()->mapToGlobal(point), Qt::NoButton, {}, {});
        QApplication::sendEvent(box.viewport(), &move);
    };
    rest(1);
    EXPECT_FALSE(isShown());
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"moved off", [&] { moveTo(1); }},
        {"left",
         [&] {
             QEvent leave(QEvent::Leave);
             QApplication::sendEvent(box.viewport(), &leave);
         }},
        {"key", [&] { box.key(Qt::Key_Home); }},
        {"click", [&] { QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.pointOf(1)); }},
        {"hidden by code", [&] { box.hide(); }},
    };
    for (const auto& [what, end] : ends) {
        rest(5);
        ASSERT_TRUE(isShown());
        EXPECT_EQ(tip()->text(), kCost);
        EXPECT_TRUE(tip()->isWindow()) << "not drawn inside the text";
        moveTo(6);
        EXPECT_TRUE(isShown()) << "still on the red text";
        end();
        EXPECT_FALSE(isShown()) << what;
    }
}

TEST(ErrorReasons, TheirTipStaysOnTheScreenAndOffItsLine) {
    Box box(RichTextBox::Kind::Field);
    check(box, "abc def ghi", {{4, 7, ErrorReason::BadCost}});
    const QRect screen = box.screen()->availableGeometry();
    for (const auto& place :
         {QPoint(100, 100), screen.topRight() - QPoint(60, -50), screen.bottomLeft() - QPoint(0, 25),
          screen.bottomRight() - QPoint(60, 25), screen.topLeft() - QPoint(50, 0)}) {
        box.move(place);
        QCoreApplication::processEvents();
        box.showErrorTip({4, 7});
        const QRect tip = box.findChild<QLabel*>("ErrorTip")->geometry();
        EXPECT_TRUE(screen.contains(tip));
        const int line = box.viewport()->mapToGlobal(box.pointOf(4)).y();
        EXPECT_TRUE(tip.top() > line + 5 || tip.bottom() < line);
    }
}

TEST(ErrorReasons, AreReadByAssistiveTools) {
    Box box;
    const auto described = [&](Position place) {
        box.SetSelStart(place);
        return QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Description);
    };
    const ErrorRuns runs = {{4, 7, ErrorReason::BadCost}};
    check(box, "abc def ghi", runs);
    EXPECT_EQ(described(4), "") << "nobody listens";
    QAccessible::setActive(true);
    const auto leave = qScopeGuard([] { QAccessible::setActive(false); });
    for (const auto& [place, told] : {std::pair(3, ""), {4, kCost}, {7, kCost}, {8, ""}, {5, kCost}})
        EXPECT_EQ(described(place), told) << place;
    box.keepReasons({0, box.Length()}, {});
    EXPECT_EQ(box.accessibleDescription(), kChanged) << "as soon as it is checked";
    box.ColourRun(0, box.Length(), 0);
    box.keepReasons({0, box.Length()}, {});
    EXPECT_EQ(box.accessibleDescription(), "");

    check(box, "abc def ghi", runs);
    box.showErrorTip({4, 7});
    auto* const tip = QAccessible::queryAccessibleInterface(box.findChild<QLabel*>("ErrorTip"));
    ASSERT_NE(tip, nullptr);
    EXPECT_EQ(tip->role(), QAccessible::ToolTip);
    EXPECT_EQ(tip->text(QAccessible::Name), kCost);
}

}  // namespace
