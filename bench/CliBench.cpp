// `klt check` as a whole process, from its start to its end, with the most memory that it held: on texts of
// growing size with one faulty line in a hundred, its findings thrown away.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "KltProcess.h"
#include "SampleText.h"

namespace {

namespace fs = std::filesystem;

constexpr size_t kMegabyte = 1'000'000;
constexpr size_t kLinesForOneFault = 100;

// Gives the next tag behind each hundredth line end a name that no tag has.
void spoil(std::string& text) {
    constexpr std::string_view kTag = "page(";
    size_t line = 0;
    for (size_t place = text.find('\n'); place != text.npos; place = text.find('\n', place + 1)) {
        if (++line % kLinesForOneFault != 0) continue;
        place = text.find(kTag, place);
        if (place == text.npos) return;
        text[place] = 'q';
    }
}

/// A faulty sample on the disk. The text is gone from memory afterwards: a process inherits what its parent
/// holds as its own peak.
class SampleFile {
public:
    explicit SampleFile(size_t bytes)
        : path_(fs::temp_directory_path() / ("klt-bench-" + std::to_string(getpid()) + ".klt")) {
        auto text = bench::sampleText(bytes);
        spoil(text);
        size_ = text.size();
        std::ofstream(path_, std::ios::binary) << text;
    }
    ~SampleFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    SampleFile(const SampleFile&) = delete;
    SampleFile& operator=(const SampleFile&) = delete;

    const fs::path& path() const { return path_; }
    size_t size() const { return size_; }

private:
    fs::path path_;
    size_t size_ = 0;
};

void checkProcess(benchmark::State& state) {
    const SampleFile file(static_cast<size_t>(state.range(0)) * kMegabyte);
    double peak = 0;
    for ([[maybe_unused]] auto _ : state) {
        const auto run = bench::runKlt({"check", file.path().string()});
        if (run.status != 1) {
            state.SkipWithError("klt did not find the faults");
            return;
        }
        state.SetIterationTime(run.seconds);
        peak = std::max(peak, run.peakBytes);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(file.size()));
    state.counters["peak_per_byte"] = peak / static_cast<double>(file.size());
}

BENCHMARK(checkProcess)
    ->Arg(1)
    ->Arg(10)
    ->Arg(100)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

}  // namespace
