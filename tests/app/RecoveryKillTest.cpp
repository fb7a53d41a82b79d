// An editor that is killed, or ends by what nobody has chosen, while somebody types into three documents.
// KLT_KILLS says how many kills there are: a few by default.

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <random>
#include <sstream>
#include <thread>

#include "platform/Paths.h"
#include "platform/RecoveryFolder.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"

using namespace klt;
using namespace std::chrono_literals;

namespace {

constexpr std::string_view kNames[] = {"a.klt", "b.klt", "KLT3"};
constexpr char kFile[] = "Version=2\r\n[SKILLS]\r\n";
constexpr char kNew[] =
    "Version=2\r\n* The version information above MUST be the first line of the data file";

/// A text as it was typed: how many bytes stood there when.
struct Typed {
    std::string text;
    std::vector<std::pair<size_t, long long>> ends;
};

/// An editor in a home of its own. The environment is set in the child alone, for several run at once.
class TypingEditor {
public:
    TypingEditor() {
        for (const auto* name : {"a.klt", "b.klt"}) writeBytes(folder_ / name, kFile);
        process_.emplace([this](const ChildProcess::Report&) { run(); });
    }
    /// Lets it type as long from its first word on, then sends the signal. Gives the exit status, or of a
    /// signal that ended it the number below 0.
    int end(std::chrono::milliseconds after, int signal) {
        const auto first = firstWord();
        std::this_thread::sleep_for(first ? after : 0ms);
        ended_ = std::chrono::steady_clock::now();
        process_->signal(signal);
        std::ignore = process_->waitForEnd();
        return process_->exitStatus().value_or(-process_->endSignal().value_or(0));
    }
    std::vector<Typed> typed() const {
        std::vector<Typed> all{{kFile, {}}, {kFile, {}}, {kNew, {}}};
        std::istringstream lines(readBytes(folder_ / "log"));
        size_t index = 0;
        std::string number;
        for (long long when = 0; lines >> index >> number >> when;) {
            all[index].text += number + " ";
            all[index].ends.emplace_back(all[index].text.size(), when);
        }
        return all;
    }
    long long endTime() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(ended_.time_since_epoch()).count();
    }
    std::string recovery() const { return folder_ / "state/klt-editor/recovery/"; }

private:
    void run() const {
        for (const auto* variable : {"HOME", "XDG_RUNTIME_DIR"}) setenv(variable, folder_.path().c_str(), 1);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("XDG_STATE_HOME", (folder_ / "state").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
        if (!std::freopen((folder_ / "log").c_str(), "w", stdout)) _exit(1);
        const auto a = folder_ / "a.klt", b = folder_ / "b.klt";
        execl(KLT_TYPING_EDITOR, KLT_TYPING_EDITOR, a.c_str(), b.c_str(), nullptr);
        _exit(1);
    }
    bool firstWord() const {
        const auto log = folder_ / "log";
        for (int i = 0; i < 3000; ++i, std::this_thread::sleep_for(10ms))
            if (PathExists(log) && std::filesystem::file_size(log) > 0) return true;
        ADD_FAILURE() << "nothing was typed";
        return false;
    }

    ScratchFolder folder_;
    std::optional<ChildProcess> process_;
    std::chrono::steady_clock::time_point ended_;
};

/// Whether it is a beginning of the text, at the end of a word; the last word may not have been told of yet.
bool isBeginning(std::string_view kept, std::string_view text) {
    if (text.starts_with(kept)) return kept.ends_with(' ') || kept == kFile || kept == kNew;
    return kept.starts_with(text) && kept.find(' ', text.size()) == kept.size() - 1;
}

/// What is wrong with what is kept: it must be a beginning of what was typed, and hold all that was typed
/// `mayLose` before the end.
std::string faultsOf(const TypingEditor& editor, std::chrono::milliseconds mayLose) {
    std::string faults;
    const auto typed = editor.typed();
    for (size_t i = 0; i < typed.size(); ++i) {
        const auto path = editor.recovery() + std::string(kNames[i]);
        const auto kept = PathExists(path) ? readBytes(path) : std::string();
        if (!kept.empty() && !isBeginning(kept, typed[i].text)) faults += path + " is torn\n";
        size_t due = 0;
        for (const auto& [end, when] : typed[i].ends)
            if (when <= editor.endTime() - mayLose.count()) due = end;
        if (kept.size() < due) faults += path + " lacks " + std::to_string(due - kept.size()) + " bytes\n";
    }
    return faults;
}

TEST(RecoveryKill, NoKillTakesMoreThanTheLastSecondsAndNoneTearsACopy) {
    constexpr int kAtOnce = 6;
    const char* const wanted = std::getenv("KLT_KILLS");
    const int kills = wanted ? std::atoi(wanted) : kAtOnce;
    std::mt19937 random(std::random_device{}());
    std::uniform_int_distribution<int> delay(0, 9000);
    for (int done = 0; done < kills; done += kAtOnce) {
        std::vector<std::future<std::string>> runs;
        for (int i = 0; i < std::min(kAtOnce, kills - done); ++i)
            runs.push_back(std::async(std::launch::async, [after = delay(random)] {
                TypingEditor editor;
                EXPECT_EQ(editor.end(std::chrono::milliseconds(after), SIGKILL), -SIGKILL);
                return faultsOf(editor, 5s);
            }));
        for (auto& run : runs) EXPECT_EQ(run.get(), "");
    }
}

TEST(RecoveryKill, AnEndThatNobodyChoseLosesNothingAndStaysWhatItWas) {
    for (const auto& [signal, status] : {std::pair(SIGTERM, -SIGTERM),
                                         {SIGHUP, -SIGHUP},
                                         {SIGINT, -SIGINT},
                                         {SIGQUIT, -SIGQUIT},
                                         {SIGUSR1, 1}}) {
        TypingEditor editor;
        EXPECT_EQ(editor.end(300ms, signal), status) << signal;
        EXPECT_EQ(faultsOf(editor, 0s), "") << signal;
    }
}

}  // namespace
