// A coloured document in its window: the pass on command, a key and a move of the caret, each until painted.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <string>

#include "OpenEditor.h"
#include "language/StyleCategory.h"
#include "ui/StyleRunSearch.h"

namespace klt {
namespace {

/// The sample with a fault in each hundredth line.
void putInFaults(OpenEditor& open) {
    std::string text(open.box().Text());
    size_t lines = 0;
    for (size_t feed = text.find('\n'); feed != text.npos; feed = text.find('\n', feed + 1))
        if (++lines % 100 == 0) text.insert(feed + 1, "Sea Legs, 5x\r\n");
    open.box().SetText(text);
    open.editor().MenuClick("T6");
}

void checkOnCommand(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) {
        open.editor().MenuClick("T6");
        QApplication::processEvents();
    }
}
BENCHMARK(checkOnCommand)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void checkFaults(benchmark::State& state) {
    OpenEditor open(state);
    putInFaults(open);
    for ([[maybe_unused]] auto _ : state) {
        open.editor().MenuClick("T6");
        QApplication::processEvents();
    }
}
BENCHMARK(checkFaults)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The tip of one error, shown and painted.
void tellOfAFault(benchmark::State& state) {
    OpenEditor open(state);
    putInFaults(open);
    RichTextBox& box = open.box();
    const auto run = nextStyleRun(box, static_cast<StyleByte>(StyleCategory::SyntaxError), box.Length() / 2);
    if (!run) return state.SkipWithError("nothing is red");
    box.Select(run->start, run->end - run->start);
    box.ScrollCaret();
    QApplication::processEvents();
    for ([[maybe_unused]] auto _ : state) {
        box.showErrorTip(*run);
        QApplication::processEvents();
        state.PauseTiming();
        open.press(Qt::Key_Shift);
        state.ResumeTiming();
    }
}
BENCHMARK(tellOfAFault)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void typeInTheMiddle(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) open.press(Qt::Key_X, "x");
}
BENCHMARK(typeInTheMiddle)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void firstKeyInTheMiddle(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) {
        open.press(Qt::Key_X, "x");
        state.PauseTiming();
        open.box().SetSelStart(open.box().Length());
        open.box().SetSelText("x");
        open.box().SetSelStart(open.box().LineIndex(open.box().LineCount() / 2));
        open.box().ScrollCaret();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(firstKeyInTheMiddle)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void moveTheCaret(benchmark::State& state) {
    OpenEditor open(state);
    size_t round = 0;
    for ([[maybe_unused]] auto _ : state) open.press(++round % 20 < 10 ? Qt::Key_Down : Qt::Key_Up);
}
BENCHMARK(moveTheCaret)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The middle of one line of a megabyte.
void moveInALongLine(benchmark::State& state) {
    OpenEditor open(state);
    std::string line = "[ADS]\r\nSea Legs, 5, gives(+1 to SK:Boating";
    while (line.size() < 1'000'000) line += ", +1 to SK:Boating";
    open.box().SetText(line + ")");
    open.editor().MenuClick("T6");
    open.box().SetSelStart(500'000);
    open.box().ScrollCaret();
    QApplication::processEvents();
    for ([[maybe_unused]] auto _ : state) open.press(Qt::Key_Right);
}
BENCHMARK(moveInALongLine)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

/// In front of and behind a parenthesis whose partner stands a megabyte further on in the logical line.
void moveAtAParenthesis(benchmark::State& state) {
    OpenEditor open(state);
    std::string line = "\r\nSea Legs, 5, gives(";
    const auto place = static_cast<Position>(line.size());
    while (line.size() < 1'000'000) line += "+1 to SK:Boating,_\r\n";
    const Position start = open.box().SelStart();
    open.box().SetSelText(line + ")\r\n");
    open.editor().MenuClick("T6");
    open.box().SetSelStart(start + place);
    open.box().ScrollCaret();
    QApplication::processEvents();
    size_t round = 0;
    for ([[maybe_unused]] auto _ : state) open.press(++round % 2 == 0 ? Qt::Key_Right : Qt::Key_Left);
}
BENCHMARK(moveAtAParenthesis)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace klt
