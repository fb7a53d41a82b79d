// The store: one setting read as everybody reads them, and one written and on the disk.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "settings/Catalogue.h"

namespace {

namespace fs = std::filesystem;

/// A store of its own, as it looks after a while of use.
class UsedStore {
public:
    UsedStore() : folder_(fs::temp_directory_path() / ("klt-bench-store-" + std::to_string(getpid()))) {
        store_.together([this] {
            for (int key = 0; key < 200; ++key)
                klt::SaveSetting(store_, klt::kSettingsApplication, "Section" + std::to_string(key / 20),
                                 "Key" + std::to_string(key), "some text");
            return klt::writeSetting(store_, klt::settings::kTop, 300);
        });
    }
    ~UsedStore() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    UsedStore(const UsedStore&) = delete;
    UsedStore& operator=(const UsedStore&) = delete;
    klt::Store& store() { return store_; }
    std::string path() const { return folder_ / "store.sqlite3"; }

private:
    fs::path folder_;
    klt::Store store_{path()};
};

void readOneSetting(benchmark::State& state) {
    UsedStore used;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(klt::readSetting(used.store(), klt::settings::kTop));
}
BENCHMARK(readOneSetting)->Unit(benchmark::kMicrosecond);

void readAnAbsentSetting(benchmark::State& state) {
    UsedStore used;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(klt::readSetting(used.store(), klt::settings::kDefaultTop));
}
BENCHMARK(readAnAbsentSetting)->Unit(benchmark::kMicrosecond);

/// The first read in a process: the file is opened and examined.
void openAndRead(benchmark::State& state) {
    const UsedStore used;
    for ([[maybe_unused]] auto _ : state) {
        klt::Store store(used.path());
        benchmark::DoNotOptimize(klt::readSetting(store, klt::settings::kTop));
    }
}
BENCHMARK(openAndRead)->Unit(benchmark::kMicrosecond);

void writeOneSetting(benchmark::State& state) {
    UsedStore used;
    int value = 0;
    for ([[maybe_unused]] auto _ : state) klt::writeSetting(used.store(), klt::settings::kTop, ++value);
}
BENCHMARK(writeOneSetting)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
