// Merging ten files, `klt merge` as a whole process: its time until the result is on the disk, and the most
// memory that it held. Each two files have half of their items in common.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "KltProcess.h"
#include "SampleText.h"
#include "platform/FileWriter.h"

namespace {

namespace fs = std::filesystem;

constexpr unsigned kFiles = 10;

class MergeFolder {
public:
    explicit MergeFolder(size_t bytes) {
        fs::create_directories(path_);
        for (unsigned i = 0; i < kFiles; ++i) {
            const auto text =
                bench::sampleText(bytes / 2, 1 + i) + bench::sampleText(bytes / 2, 1 + kFiles + i / 2);
            size_ += text.size();
            inputs_.push_back((path_ / std::to_string(i)).string());
            isWritten_ = isWritten_ && !klt::writeFile(inputs_.back(), text);
        }
    }
    ~MergeFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    MergeFolder(const MergeFolder&) = delete;
    MergeFolder& operator=(const MergeFolder&) = delete;

    std::vector<std::string> arguments() const {
        std::vector<std::string> all = {"merge", "-o", (path_ / "out.klt").string()};
        all.insert(all.end(), inputs_.begin(), inputs_.end());
        return all;
    }
    size_t size() const { return size_; }
    bool isWritten() const { return isWritten_; }

private:
    const fs::path path_ = fs::temp_directory_path() / ("klt-bench-merge-" + std::to_string(getpid()));
    std::vector<std::string> inputs_;
    size_t size_ = 0;
    bool isWritten_ = true;
};

void mergeProcess(benchmark::State& state) {
    const MergeFolder folder(static_cast<size_t>(state.range(0)) * 1'000'000);
    double peak = 0;
    for ([[maybe_unused]] auto _ : state) {
        const auto run = bench::runKlt(folder.arguments());
        if (!folder.isWritten() || run.status != 0) return state.SkipWithError("klt could not merge");
        state.SetIterationTime(run.seconds);
        peak = std::max(peak, run.peakBytes);
    }
    state.counters["peak_per_byte"] = peak / static_cast<double>(folder.size());
}

BENCHMARK(mergeProcess)->Arg(1)->Arg(10)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

}  // namespace
