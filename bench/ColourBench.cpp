// A coloured document in its window: the pass on command, a key and a move of the caret, each until painted.

#include <benchmark/benchmark.h>

#include <QApplication>

#include "OpenEditor.h"

namespace klt {
namespace {

void checkOnCommand(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) {
        open.editor().MenuClick("T6");
        QApplication::processEvents();
    }
}
BENCHMARK(checkOnCommand)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

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

}  // namespace
}  // namespace klt
