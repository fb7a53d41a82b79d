#include "KltProcess.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

namespace bench {

using Clock = std::chrono::steady_clock;

Run runKlt(std::vector<std::string> arguments) {
    constexpr const char* kProgram = KLT_BIN "/klt";
    arguments.insert(arguments.begin(), kProgram);
    std::vector<char*> words;
    for (auto& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    const auto start = Clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execv(kProgram, words.data());
        _exit(127);
    }
    Run run;
    int status = 0;
    rusage used{};
    if (pid < 0 || wait4(pid, &status, 0, &used) != pid) return run;
    run.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    run.peakBytes = static_cast<double>(used.ru_maxrss) * 1024;
    if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
    return run;
}

}  // namespace bench
