#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Output.h"
#include "platform/FileReader.h"

namespace klt {

/// How a run ends, the worst that has happened.
enum class ExitStatus { Clean = 0, Found = 1, Failed = 2 };

/// The open descriptors that a run reads and writes.
struct Streams {
    int in = 0;
    int out = 1;
    int err = 2;
};

inline constexpr std::string_view kStandardInput = "-";

/// What one run of the program shares: its streams and how it will end.
class Session {
public:
    explicit Session(Streams streams) : in_(streams.in), out_(streams.out), err_(streams.err) {}

    /// Findings and texts.
    Output& out() { return out_; }

    /// Calls `work` with each file in turn, under the path that it really has; a failure of one is complained
    /// of, and the others still have their turn. Ends early where the output can't be written any more.
    using FileWork = std::function<Failure(const std::string& path)>;
    void forEachFile(const std::vector<std::string>& paths, const FileWork& work);

    /// All bytes of a file, or of standard input for "-", which can be read but once.
    FileBytes read(const std::string& path);

    /// Writes "klt: SUBJECT: REASON" to the complaints, behind all findings so far.
    void complain(std::string_view subject, std::string_view reason);
    void complain(std::string_view reason);

    /// The run ends no better than that.
    void note(ExitStatus status);
    /// Sends what is left, and gives the status of the run: it has failed where its output could not be
    /// written. Of that it complains, unless the reader has just gone away.
    ExitStatus end();

private:
    int in_;
    Output out_;
    Output err_;
    bool isInputRead_ = false;
    ExitStatus status_ = ExitStatus::Clean;
};

/// The name of a file in findings and complaints.
std::string_view shownName(std::string_view path);

}  // namespace klt
