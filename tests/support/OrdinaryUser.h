#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <functional>
#include <string>

#include "support/ChildProcess.h"

namespace klt {

/// An ordinary user that every system has.
inline constexpr uid_t kNobody = 65534;

inline bool isRoot() {
    return geteuid() == 0;
}

/// What `work` returns, one line, in a process of its own, so that limits and users set there end with it.
inline std::string inChild(const std::function<std::string()>& work) {
    const ChildProcess child([&](const ChildProcess::Report& report) { report("=" + work()); });
    const auto result = child.nextReport();
    return result.empty() ? "the process ended early" : result.substr(1);
}

/// The same as an ordinary user, for whom permissions count: root is bound by none.
inline std::string asUser(const std::function<std::string()>& work) {
    return inChild([&]() -> std::string {
        if (isRoot() && (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0))
            return "can't become an ordinary user";
        return work();
    });
}

/// Gives a path to the user of `asUser`.
inline void giveToUser(const std::string& path) {
    EXPECT_TRUE(!isRoot() || chown(path.c_str(), kNobody, kNobody) == 0) << path;
}

/// From now on, in this process, no file grows behind `size`.
inline void limitFileSize(rlim_t size) {
    const rlimit limit{size, size};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

}  // namespace klt
