#pragma once

#include <cstdio>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "cli/Program.h"
#include "support/Scratch.h"

namespace klt {

/// What a run of the program gave.
struct Ran {
    int status = 0;
    std::string out;
    std::string err;
    bool operator==(const Ran&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, const Ran& ran) {
    return stream << "status " << ran.status << "\n--- out\n" << ran.out << "--- err\n" << ran.err << "---";
}

/// A file without a name, for one of the program's streams.
class StreamFile {
public:
    explicit StreamFile(const std::string& bytes = {}) : file_(std::tmpfile(), &std::fclose) {
        std::fwrite(bytes.data(), 1, bytes.size(), file_.get());
        std::rewind(file_.get());
    }
    int number() const { return fileno(file_.get()); }
    std::string bytes() const { return readBytes("/proc/self/fd/" + std::to_string(number())); }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

/// Runs the program in this process.
inline Ran runKlt(const std::vector<std::string>& arguments, const std::string& input = {}) {
    const StreamFile in(input), out, err;
    const int status = runProgram(arguments, {in.number(), out.number(), err.number()});
    return {status, out.bytes(), err.bytes()};
}

}  // namespace klt
