// Reading and saving long files. `disk` is what the disk takes for the same bytes, so that a save can be held
// against it.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "SampleText.h"
#include "platform/FileReader.h"
#include "platform/FileWriter.h"
#include "settings/HostEntries.h"

namespace {

size_t bytesOf(const benchmark::State& state) {
    return static_cast<size_t>(state.range(0)) * 1'000'000;
}

/// A file of this program's own, gone at the end.
class ScratchFile {
public:
    ~ScratchFile() { std::filesystem::remove(path_); }
    const std::string& path() const { return path_; }

private:
    std::string path_ =
        (std::filesystem::temp_directory_path() / ("klt-bench-" + std::to_string(getpid()) + "-file.klt"))
            .string();
};

void disk(benchmark::State& state) {
    const ScratchFile file;
    const auto text = bench::sampleText(bytesOf(state));
    for ([[maybe_unused]] auto _ : state) {
        const int number = open(file.path().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        size_t done = 0;
        while (done < text.size()) {
            const auto written = write(number, text.data() + done, text.size() - done);
            if (written <= 0) return state.SkipWithError("the disk takes no more");
            done += static_cast<size_t>(written);
        }
        fsync(number);
        close(number);
    }
}

void save(benchmark::State& state) {
    const ScratchFile file;
    const auto text = bench::sampleText(bytesOf(state));
    for ([[maybe_unused]] auto _ : state)
        if (klt::writeTextFile(file.path(), text, klt::Encoding::Any).error)
            return state.SkipWithError("the file could not be saved");
}

void enterIntoHostFile(benchmark::State& state) {
    const ScratchFile file;
    std::string text = "[Addons]\r\n";
    for (int i = 0; text.size() < bytesOf(state); ++i)
        text.append("add-on ").append(std::to_string(i)).append("=C:\\TVM\\tool.exe %filelistquoted%\r\n");
    if (klt::writeFile(file.path(), text)) return state.SkipWithError("the file could not be written");
    for ([[maybe_unused]] auto _ : state) {
        // Another command each time, so that there is something to write.
        const auto command = "/bin/klteditor " + std::to_string(state.iterations());
        if (klt::addToAddOns(file.path(), {"klteditor", command, ""}).error)
            return state.SkipWithError("the file could not be written");
        if (klt::addToToolbar(file.path(), {"klteditor", command, command}).error)
            return state.SkipWithError("the file could not be written");
    }
}

void read(benchmark::State& state) {
    const ScratchFile file;
    if (klt::writeFile(file.path(), bench::sampleText(bytesOf(state))))
        return state.SkipWithError("the file could not be written");
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(klt::readTextFile(file.path()));
}

BENCHMARK(disk)->Arg(1)->Arg(50)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(50)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(enterIntoHostFile)->Arg(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(read)->Arg(50)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
