#include "cli/Program.h"

#include "cli/Arguments.h"
#include "cli/CheckCommand.h"
#include "cli/FormatCommand.h"
#include "cli/MergeCommand.h"

namespace klt {

namespace {

void run(Session& session, const CheckArguments& arguments) {
    runCheck(session, arguments);
}

void run(Session& session, const FormatArguments& arguments) {
    runFormat(session, arguments);
}

void run(Session& session, const MergeArguments& arguments) {
    runMerge(session, arguments);
}

void run(Session& session, const Answer& answer) {
    session.out().write(answer.text);
}

void run(Session& session, const BadArguments& bad) {
    session.complain(bad.reason + "\nTry \"klt --help\".");
    session.note(ExitStatus::Failed);
}

}  // namespace

int runProgram(const std::vector<std::string>& arguments, Streams streams) {
    Session session(streams);
    std::visit([&](const auto& asked) { run(session, asked); }, parseArguments(arguments));
    return static_cast<int>(session.end());
}

}  // namespace klt
