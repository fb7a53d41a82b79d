// The text area with texts of many megabytes: what opening, colouring and finding stand on.

#include <benchmark/benchmark.h>

#include <string>

#include "Application.h"
#include "SampleText.h"
#include "text/LineEnds.h"
#include "text/TextSearch.h"
#include "tools/FindText.h"
#include "ui/RichTextBox.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

std::string textOf(const benchmark::State& state) {
    return bench::sampleText(static_cast<size_t>(state.range(0)) * 1'000'000);
}

void countBytes(benchmark::State& state, size_t size) {
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}

void SetText(benchmark::State& state) {
    bench::needApplication();
    const std::string text = textOf(state);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto* const box = new RichTextBox;
        state.ResumeTiming();
        box->SetText(text);
        state.PauseTiming();
        delete box;
        state.ResumeTiming();
    }
    countBytes(state, text.size());
}
BENCHMARK(SetText)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

void SetStyles(benchmark::State& state) {
    bench::needApplication();
    const std::string text = textOf(state);
    const std::string styles[] = {std::string(text.size(), '\1'), std::string(text.size(), '\2')};
    RichTextBox box;
    box.SetText(text);
    size_t round = 0;
    for ([[maybe_unused]] auto _ : state) box.SetStyles(styles[++round % 2]);
    countBytes(state, text.size());
}
BENCHMARK(SetStyles)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

void TypeAtTheEnd(benchmark::State& state) {
    bench::needApplication();
    RichTextBox box;
    box.SetText(textOf(state));
    box.SetSelStart(box.Length());
    for ([[maybe_unused]] auto _ : state) box.SetSelText("x");
}
BENCHMARK(TypeAtTheEnd)->Arg(50)->Unit(benchmark::kMicrosecond);

void CountCharacters(benchmark::State& state) {
    bench::needApplication();
    RichTextBox box;
    box.SetText(textOf(state));
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(box.CharacterCount());
}
BENCHMARK(CountCharacters)->Arg(50)->Unit(benchmark::kMillisecond);

void RewriteRuns(benchmark::State& state) {
    bench::needApplication();
    RichTextBox box;
    box.SetText(textOf(state));
    const Position step = box.Length() / 100'000;
    size_t round = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::string_view word = ++round % 2 == 0 ? "Gives" : "gIVES";
        for (Position place = 0; place + step < box.Length(); place += step) box.RewriteRun(place, word);
    }
    state.SetItemsProcessed(state.iterations() * 100'000);
}
BENCHMARK(RewriteRuns)->Arg(50)->Unit(benchmark::kMillisecond);

void EditAndWriteLine(benchmark::State& state) {
    bench::needApplication();
    RichTextBox box;
    box.SetText(textOf(state));
    const Position place = box.LineIndex(box.LineCount() / 2);
    for ([[maybe_unused]] auto _ : state) {
        box.SetSelStart(place);
        EditLine(box);
        const auto item = LoadSingleLine(box, place);
        ReplacedLine([&box] { return &box; }, item).write({item.oldText});
    }
}
BENCHMARK(EditAndWriteLine)->Arg(50)->Unit(benchmark::kMillisecond);

void WriteNewLine(benchmark::State& state) {
    bench::needApplication();
    RichTextBox box;
    box.SetText(textOf(state));
    Wizard wizard(kAdWizard, {.target = [&box] { return &box; }});
    // The section is not there before the first round, and at the end of the text ever after.
    wizard.click("optQuirkType", kOn);
    wizard.state.setText("cmbQuirkCat", "Habits");
    for ([[maybe_unused]] auto _ : state) {
        wizard.state.setText("rtbItemName", "Hums While Rowing");
        if (wizard.finish({}).kind != DoneResult::Kind::StaysOpen)
            return state.SkipWithError("the line was not written");
    }
}
BENCHMARK(WriteNewLine)->Arg(50)->Unit(benchmark::kMillisecond);

void FindNothing(benchmark::State& state, const char* find, bool matchCase) {
    const std::string text = textOf(state);
    const TextSearch search(find, matchCase);
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(search.next(text));
    countBytes(state, text.size());
}
BENCHMARK_CAPTURE(FindNothing, Word, "xylophone", false)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindNothing, CommonLetters, "senate", false)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindNothing, LettersWithTwins, "kisiks", false)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindNothing, Exact, "xylophone", true)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindNothing, BeyondAscii, "\u00E4\u00F6", false)->Arg(50)->Unit(benchmark::kMillisecond);

// In a text that is coloured and shown, until it is painted again.
void ReplaceAll(benchmark::State& state) {
    bench::needApplication();
    constexpr Position kMatches = 100'000;
    std::string text = textOf(state);
    const auto step = static_cast<Position>(text.size()) / kMatches;
    for (Position n = 0; n < kMatches; ++n) text.replace(static_cast<size_t>(n * step + 20), 5, "Zebra");
    text = withCrLf(text);
    RichTextBox box;
    box.resize(800, 600);
    box.show();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        box.SetText(text);
        box.SetStyles(std::string(static_cast<size_t>(box.Length()), '\1'));
        box.repaint();
        state.ResumeTiming();
        const auto outcome = runFind(box, FindButton::ReplaceAll, {"zebra", "Antelope"});
        box.repaint();
        if (outcome.result != kMatches) state.SkipWithError("not all were replaced");
    }
}
BENCHMARK(ReplaceAll)->Arg(50)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace klt
