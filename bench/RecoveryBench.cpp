// How long the window's thread is held for a copy of a text that is being edited.

#include <benchmark/benchmark.h>

#include <vector>

#include "OpenEditor.h"

namespace klt {
namespace {

/// The copy into memory that is kept from one to the next, after an edit in the middle.
void copyWhileTyping(benchmark::State& state) {
    OpenEditor open(state);
    open.press(Qt::Key_X, "x");
    std::vector<char> kept(static_cast<size_t>(open.box().Length()));
    for ([[maybe_unused]] auto _ : state) {
        open.box().CopyText(kept.data());
        benchmark::DoNotOptimize(kept.data());
    }
}
BENCHMARK(copyWhileTyping)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace klt
