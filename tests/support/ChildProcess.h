#pragma once

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace klt {

/// A forked process that runs a function and reports to the test by lines. Killed at the end of the scope.
class ChildProcess {
public:
    using Report = std::function<void(std::string_view line)>;

    explicit ChildProcess(const std::function<void(const Report&)>& run) {
        int ends[2];
        if (pipe(ends) != 0) ADD_FAILURE() << "no pipe";
        reports_ = ends[0];
        pid_ = fork();
        if (pid_ != 0) {
            close(ends[1]);
            return;
        }
        close(ends[0]);
        run([&](std::string_view line) {
            const auto text = std::string(line) + "\n";
            if (write(ends[1], text.data(), text.size()) < 0) _exit(1);
        });
        _exit(0);
    }
    ChildProcess(ChildProcess&& other) noexcept
        : pid_(std::exchange(other.pid_, -1)),
          reports_(std::exchange(other.reports_, -1)),
          status_(std::exchange(other.status_, 0)) {}
    ChildProcess& operator=(ChildProcess&&) = delete;
    ~ChildProcess() {
        kill();
        if (reports_ >= 0) close(reports_);
    }

    /// The next line; "" when the process has ended, or says nothing for half a minute.
    std::string nextReport() const {
        std::string line;
        for (char byte = 0;; line += byte) {
            pollfd entry{reports_, POLLIN, 0};
            if (poll(&entry, 1, 30'000) != 1 || read(reports_, &byte, 1) != 1) return "";
            if (byte == '\n') return line;
        }
    }

    pid_t pid() const { return pid_; }
    void signal(int number) const { ::kill(pid_, number); }
    void freeze() const {
        signal(SIGSTOP);
        waitpid(pid_, nullptr, WUNTRACED);
    }
    bool isRunning() { return !status_ && !reap(WNOHANG); }
    /// The exit status; nothing while it runs, and where a signal ended it.
    std::optional<int> exitStatus() {
        if (isRunning() || !WIFEXITED(*status_)) return {};
        return WEXITSTATUS(*status_);
    }
    /// Waits for its end, at most half a minute.
    std::optional<int> waitForEnd() {
        constexpr int kTries = 3000;
        for (int i = 0; i < kTries && isRunning(); ++i) poll(nullptr, 0, 10);
        return exitStatus();
    }
    /// Kills it and waits for its end.
    void kill() {
        if (!isRunning()) return;
        signal(SIGKILL);
        reap(0);
    }

    [[noreturn]] static void sleepForever() {
        for (;;) pause();
    }

private:
    /// True once it has ended.
    bool reap(int options) {
        int status = 0;
        if (pid_ > 0 && waitpid(pid_, &status, options) != pid_) return false;
        status_ = status;
        return true;
    }

    pid_t pid_ = -1;
    int reports_ = -1;
    std::optional<int> status_;
};

}  // namespace klt
