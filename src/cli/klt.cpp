// The program klt: all of it but what belongs to a process stands in Program.h.

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "cli/Program.h"

namespace {

// A file opened under the number of a standard stream would take in what is meant for that stream. What
// holds its place here refuses to be used.
void fillStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0) open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

}  // namespace

int main(int argc, char** argv) {
    fillStandardStreams();
    // A reader that goes away, or a limit on a file's size, is told by the write that fails.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    return klt::runProgram({argv + (argc > 0 ? 1 : 0), argv + argc}, {});
}
