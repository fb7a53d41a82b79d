// The whole program in a real window: from process start to painted and idle.
//
// Needs Xvfb, or a DISPLAY of its own. Idle is the start of the first second in which the process takes under
// 2 % of a processor. Each start has a runtime folder of its own, and a store in which nothing stands but
// that neither tips nor a question after the host's version are wanted.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "SampleText.h"
#include "settings/Catalogue.h"
#include "settings/Store.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr Seconds kWindow{1.0};
constexpr double kIdleShare = 0.02;
constexpr Seconds kGiveUp{60.0};

/// An own virtual display for the life of the program, where none is set.
class Display {
public:
    Display() {
        if (std::getenv("DISPLAY")) return;
        int ends[2];
        if (pipe(ends) != 0) return;
        pid_ = fork();
        if (pid_ == 0) {
            const std::string fd = std::to_string(ends[1]);
            const int null = open("/dev/null", O_WRONLY);
            dup2(null, STDERR_FILENO);
            execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1280x900x24", "-nolisten",
                   "tcp", nullptr);
            _exit(127);
        }
        close(ends[1]);
        char number[16] = {};
        if (read(ends[0], number, sizeof number - 1) > 0) {
            const std::string display = ":" + std::to_string(std::atoi(number));
            setenv("DISPLAY", display.c_str(), 1);
        }
        close(ends[0]);
    }
    ~Display() {
        if (pid_ <= 0) return;
        kill(pid_, SIGTERM);
        waitpid(pid_, nullptr, 0);
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    static bool ready() {
        static Display display;
        return std::getenv("DISPLAY") != nullptr;
    }

private:
    pid_t pid_ = -1;
};

/// Empty folders for one start.
class Home {
public:
    Home() : path_(fs::temp_directory_path() / ("klt-bench-" + std::to_string(getpid()))) {
        fs::remove_all(path_);
        for (const auto* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
            fs::create_directories(path_ / name);
            fs::permissions(path_ / name, fs::perms::owner_all);
            setenv(name, (path_ / name).c_str(), 1);
        }
    }
    ~Home() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;
    fs::path file(const std::string& name) const { return path_ / name; }

private:
    fs::path path_;
};

/// Processor time that all threads of a process have taken.
Seconds processorTime(pid_t pid) {
    double total = 0;
    std::error_code gone;
    for (const auto& task : fs::directory_iterator("/proc/" + std::to_string(pid) + "/task", gone)) {
        std::ifstream file(task.path() / "schedstat");
        double nanoseconds = 0;
        if (file >> nanoseconds) total += nanoseconds;
    }
    return Seconds(total / 1e9);
}

/// A store as after a first start, but without what else is kept.
void makeStore() {
    klt::Store store;
    klt::writeSetting(store, klt::settings::kShowTips, 0);
    klt::writeSetting(store, klt::settings::kTvmVersionChosen, "0");
}

double peakMegabytes(pid_t pid) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("VmHWM:")) return std::atof(line.c_str() + 6) / 1024;
    return 0;
}

/// Seconds from `start` to the first idle second of `pid`; nothing if it never comes.
std::optional<double> secondsToIdle(pid_t pid, Clock::time_point start) {
    struct Sample {
        Clock::time_point at;
        Seconds used;
    };
    std::deque<Sample> samples{{start, Seconds(0)}};
    while (Clock::now() - start < kGiveUp) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        samples.push_back({Clock::now(), processorTime(pid)});
        while (samples.back().at - samples.front().at >= kWindow) {
            if (samples.back().used - samples.front().used < kIdleShare * kWindow)
                return Seconds(samples.front().at - start).count();
            samples.pop_front();
        }
    }
    return std::nullopt;
}

void startToIdle(benchmark::State& state) {
    if (!Display::ready()) {
        state.SkipWithError("neither DISPLAY nor Xvfb is there");
        return;
    }
    const Home home;
    const auto megabytes = static_cast<size_t>(state.range(0));
    const std::string program = KLT_BIN "/klteditor", file = home.file("sample.klt");
    if (megabytes > 0) std::ofstream(file, std::ios::binary) << bench::sampleText(megabytes * 1'000'000);
    double peak = 0;
    for ([[maybe_unused]] auto _ : state) {
        fs::remove_all(home.file("XDG_CONFIG_HOME") / "klt-editor");
        makeStore();
        const auto start = Clock::now();
        const pid_t pid = fork();
        if (pid == 0) {
            execl(program.c_str(), program.c_str(), megabytes > 0 ? file.c_str() : nullptr, nullptr);
            _exit(127);
        }
        const auto seconds = secondsToIdle(pid, start);
        peak = peakMegabytes(pid);
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
        if (!seconds) {
            state.SkipWithError("the program never came to rest");
            return;
        }
        state.SetIterationTime(*seconds);
    }
    state.counters["peak_MB"] = peak;
}

BENCHMARK(startToIdle)
    ->Arg(0)
    ->Arg(10)
    ->Arg(50)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

}  // namespace
