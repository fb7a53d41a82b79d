#include "cli/MergeCommand.h"

#include "platform/DrivePaths.h"
#include "text/Encoding.h"
#include "tools/MergeFiles.h"

namespace klt {

void runMerge(Session& session, const MergeArguments& arguments) {
    std::vector<std::string> texts, paths;
    session.forEachFile(arguments.files, [&](const std::string& path) -> Failure {
        auto file = session.read(path);
        if (file.error) return file.error;
        paths.push_back(path);
        texts.push_back(decode(std::move(file.bytes)).text);
        return {};
    });
    if (texts.size() < arguments.files.size()) return;
    const auto output = fromDrivePath(arguments.output, winePrefix());
    for (const auto& [path, reason] : writeMerged(output, std::move(texts), paths).failures) {
        session.complain(path, reason);
        session.note(ExitStatus::Failed);
    }
}

}  // namespace klt
