// What a wizard does with a long document when it opens.

#include <benchmark/benchmark.h>

#include <string>

#include "SampleText.h"
#include "wizards/Wizards.h"

namespace {

void fillCombos(benchmark::State& state) {
    const auto text = bench::sampleText(static_cast<size_t>(state.range(0)) * 1'000'000);
    for ([[maybe_unused]] auto _ : state) {
        klt::Wizard wizard(klt::kAdWizard, {});
        wizard.fillCombos(text);
        benchmark::DoNotOptimize(wizard.state);
    }
}
BENCHMARK(fillCombos)->Arg(10)->Unit(benchmark::kMillisecond);

}  // namespace
