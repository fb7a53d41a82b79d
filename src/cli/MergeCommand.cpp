#include "cli/MergeCommand.h"

#include "platform/DrivePaths.h"
#include "text/Encoding.h"
#include "tools/MergeFiles.h"

namespace klt {

void runMerge(Session& session, const MergeArguments& arguments) {
    std::vector<MergeInput> inputs;
    session.forEachFile(arguments.files, [&](const std::string& path) -> Failure {
        auto file = session.read(path);
        if (file.error) return file.error;
        auto decoded = decode(std::move(file.bytes));
        inputs.push_back({path, std::string(shownName(path)), std::move(decoded.text), decoded.encoding});
        return {};
    });
    if (inputs.size() < arguments.files.size()) return;
    const auto output = fromDrivePath(arguments.output, winePrefix());
    const auto result = writeMerged(output, std::move(inputs));
    for (const auto& [path, reason] : result.failures) {
        session.complain(path, reason);
        session.note(ExitStatus::Failed);
    }
    for (const auto& note : result.notes) session.complain(note);
}

}  // namespace klt
