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

#include "platform/Descriptor.h"

namespace klt {

/// A forked process that runs a function and reports to the test by lines. Killed at the end of the scope.
class ChildProcess {
public:
    using Report = std::function<void(std::string_view line)>;

    explicit ChildProcess(const std::function<void(const Report&)>& run) {
        int ends[2];
        if (pipe(ends) != 0) ADD_FAILURE() << "no pipe";
        reports_ = Descriptor(ends[0]);
        const Descriptor writing(ends[1]);
        pid_ = fork();
        if (pid_ != 0) return;
        reports_ = {};
        run([&](std::string_view line) {
            const auto text = std::string(line) + "\n";
            if (write(writing.number(), text.data(), text.size()) < 0) _exit(1);
        });
        _exit(0);
    }
    ChildProcess(ChildProcess&& other) noexcept
        : pid_(std::exchange(other.pid_, -1)),
          reports_(std::move(other.reports_)),
          status_(std::exchange(other.status_, 0)) {}
    ChildProcess& operator=(ChildProcess&&) = delete;
    ~ChildProcess() { kill(); }

    /// The next line; "" when the process has ended, or says nothing for half a minute.
    std::string nextReport() const {
        std::string line;
        for (char byte = 0;; line += byte) {
            pollfd entry{reports_.number(), POLLIN, 0};
            if (poll(&entry, 1, 30'000) != 1 || read(entry.fd, &byte, 1) != 1) return "";
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
    /// The signal that ended it; nothing while it runs, and where it ended by itself.
    std::optional<int> endSignal() {
        if (isRunning() || !WIFSIGNALED(*status_)) return {};
        return WTERMSIG(*status_);
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
    Descriptor reports_;
    std::optional<int> status_;
};

}  // namespace klt
