// The pass: whole texts of growing size, the worst lines that are known, and one field at a keystroke.

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

#include "SampleText.h"
#include "checker/DocumentPass.h"

namespace {

constexpr size_t kMegabyte = 1'000'000;

void setRate(benchmark::State& state, size_t bytes) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes));
}

void checkText(benchmark::State& state, const std::string& text) {
    klt::StyledText styled(text);
    for ([[maybe_unused]] auto _ : state) {
        klt::CheckerState checkerState;
        klt::CheckDocument(styled, checkerState);
        benchmark::DoNotOptimize(styled.styles().data());
    }
    setRate(state, text.size());
}

void checkDocument(benchmark::State& state) {
    checkText(state, bench::sampleText(static_cast<size_t>(state.range(0)) * kMegabyte));
}
BENCHMARK(checkDocument)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

std::string repeated(std::string_view piece, size_t count) {
    std::string text;
    text.reserve(piece.size() * count);
    for (size_t i = 0; i < count; ++i) text += piece;
    return text;
}

struct Worst {
    const char* name;
    std::function<std::string()> make;
};

constexpr size_t kMany = 1'000'000;

std::string item(std::string_view section, std::string_view line) {
    return std::string(section).append("\r\n").append(line).append("\r\n");
}

const std::vector<Worst>& worstTexts() {
    static const std::vector<Worst> texts = {
        {"oneLineOf20MB",
         [] { return item("[ADS]", "Name, 5, notes(" + repeated("word ", 4 * kMany) + ")"); }},
        {"nestedFunctions",
         [] {
             return item("[ADS]", "Name, 5, upto(" + repeated("@INT(", kMany) + repeated(")", kMany) + ")");
         }},
        {"nestedFunctionsInError",
         [] { return item("[ADS]", "N, 5, upto(" + repeated("@MAX(", kMany) + repeated(")", kMany) + ")"); }},
        {"nestedFunctionsRunOff",
         [] {
             return item("[ADS]", "N, 5, page(a))" + repeated(", page(a))", kMany / 10) + ", upto(" +
                                      repeated("@INT(", kMany / 10));
         }},
        {"commas", [] { return item("[ADS]", repeated(",", kMany)); }},
        {"commasInAuthor", [] { return item("[AUTHOR]", repeated("a,", kMany)); }},
        {"commasInNeeds", [] { return item("[ADS]", "N, 5, needs(" + repeated("a,", kMany) + ")"); }},
        {"unbalanced", [] { return item("[ADS]", "Name, 5, " + repeated("(", kMany)); }},
        {"emptyBonuses", [] { return item("[ADS]", "Name, 5, " + repeated("gives(),", kMany)); }},
        {"emptyBonusesFarBehind",
         [] { return item("[ADS]", repeated("n", kMany) + ", 5, " + repeated("gives(),", kMany)); }},
        {"bonusOfLetters", [] { return item("[BONUS]", repeated("x", kMany)); }},
        {"bonusOfLettersAndSigns", [] { return item("[BONUS]", repeated("x+", kMany)); }},
        {"restarts",
         [] { return item("[AUTHOR]", "N, " + repeated("_", kMany) + "a" + repeated("_", kMany) + "b,"); }},
        {"continuations", [] { return item("[ADS]", "Name, 5, notes(" + repeated("a _\r\n", kMany) + ")"); }},
        {"blanks", [] { return item("[ADS]", "Name, 5, needs(" + repeated(" ", kMany) + ")"); }},
        {"modifiers",
         [] { return item("[PACKAGES]", "ADD=AD:x .WITH. m, 5" + repeated(" .AND. m, 5", kMany)); }},
        {"badCosts", [] { return item("[ADS]", "N, " + repeated("xx,", kMany)); }},
        {"unknownFunctions", [] { return item("[ADS]", "N, 5, " + repeated("upto(@X()),", kMany)); }},
    };
    return texts;
}

void checkWorst(benchmark::State& state) {
    const auto& worst = worstTexts()[static_cast<size_t>(state.range(0))];
    state.SetLabel(worst.name);
    checkText(state, worst.make());
}
BENCHMARK(checkWorst)
    ->DenseRange(0, static_cast<int>(worstTexts().size()) - 1)
    ->Unit(benchmark::kMillisecond);

// 200 characters at each keystroke, the copy of the text included.
void checkField(benchmark::State& state) {
    std::string text;
    while (text.size() < 200) text += "+@INT(%level/2) to SK:Sailing upto 12, ";
    text.resize(200);
    text = text.substr(0, text.rfind(','));
    text.append(200 - text.size(), 'x');
    for ([[maybe_unused]] auto _ : state) {
        klt::StyledText field(text);
        klt::CheckerState checkerState;
        checkerState.functionStack.reset();
        klt::CheckField(field, checkerState, "gives(");
        benchmark::DoNotOptimize(field.styles().data());
    }
    setRate(state, text.size());
}
BENCHMARK(checkField);

}  // namespace
