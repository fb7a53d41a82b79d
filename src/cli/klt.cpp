// The program klt: all of it but what belongs to a process stands in Program.h.

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "cli/Program.h"

namespace {

// Where a standard stream is closed, the next file to be opened would get its number, and with it what is
// meant for the stream. /dev/null takes the number first, opened so that using it fails.
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
