#include "cli/MergeCommand.h"

#include "text/Encoding.h"
#include "tools/MergeFiles.h"

namespace klt {

void runMerge(Session& session, const MergeArguments& arguments) {
    std::vector<std::string> texts;
    session.forEachFile(arguments.files, [&](const std::string& path) -> Failure {
        auto file = session.read(path);
        if (file.error) return file.error;
        texts.push_back(decode(std::move(file.bytes)).text);
        return {};
    });
    if (texts.size() < arguments.files.size()) return;
    if (const auto failure = writeMerged(arguments.output, std::move(texts))) {
        session.complain(arguments.output, *failure);
        session.note(ExitStatus::Failed);
    }
}

}  // namespace klt
