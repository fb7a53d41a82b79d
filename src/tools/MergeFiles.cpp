#include "tools/MergeFiles.h"

#include <cerrno>
#include <new>
#include <utility>

#include "platform/FileReader.h"
#include "platform/FileWriter.h"
#include "platform/Paths.h"
#include "tools/MergeCutter.h"

namespace klt {

std::string MergeTexts(const std::vector<std::string>& texts) {
    MergedDocument document;
    MergeCutter cutter(document);
    for (const auto& text : texts) cutter.cut(text);
    return document.takeText();
}

Failure writeMerged(const std::string& outputName, std::vector<std::string> texts) {
    try {
        const auto merged = MergeTexts(texts);
        // Writing may take another copy.
        texts = {};
        return writeTextFile(outputName, merged, Encoding::Any).error;
    } catch (const std::bad_alloc&) {
        return systemFailure(ENOMEM);
    }
}

std::vector<MergeFailure> MergeFiles(const std::string& outputName, const std::vector<std::string>& files) {
    std::vector<MergeFailure> failures;
    std::vector<std::string> texts;
    for (const auto& spelled : files) {
        const auto path = findPathIgnoringCase(spelled).value_or(spelled);
        auto file = readTextFile(path);
        if (file.error) failures.push_back({path, *file.error});
        texts.push_back(std::move(file.text));
    }
    if (!failures.empty()) return failures;
    if (const auto failure = writeMerged(outputName, std::move(texts)))
        failures.push_back({outputName, *failure});
    return failures;
}

}  // namespace klt
