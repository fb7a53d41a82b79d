#include "tools/MergeFiles.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>
#include <utility>

#include "platform/FileReader.h"
#include "platform/FileWriter.h"
#include "platform/KeepBeside.h"
#include "platform/Paths.h"
#include "tools/MergeCutter.h"

namespace klt {

namespace {

/// Whether the path leads to one of the files.
bool isAmong(const std::vector<std::string>& files, const std::string& path) {
    return std::ranges::any_of(files, [&path](const auto& file) {
        std::error_code unknown;
        return std::filesystem::equivalent(file, path, unknown);
    });
}

}  // namespace

std::string MergeTexts(const std::vector<std::string>& texts) {
    MergedDocument document;
    MergeCutter cutter(document);
    for (const auto& text : texts) cutter.cut(text);
    return document.takeText();
}

MergeResult writeMerged(const std::string& outputName, std::vector<std::string> texts,
                        const std::vector<std::string>& files) {
    KeptBeside kept;
    try {
        const auto merged = MergeTexts(texts);
        // Writing may take another copy.
        texts = {};
        if (isAmong(files, outputName)) kept = keepBeside(outputName);
        if (kept.error) return {{{outputName, *kept.error}}, {}};
        const auto failure = writeTextFile(outputName, merged, Encoding::Any).error;
        if (!failure) return {{}, kept.path};
        if (!kept.path.empty()) unlink(kept.path.c_str());
        return {{{outputName, *failure}}, {}};
    } catch (const std::bad_alloc&) {
        return {{{outputName, *systemFailure(ENOMEM)}}, {}};
    }
}

MergeResult MergeFiles(const std::string& outputName, const std::vector<std::string>& files) {
    std::vector<MergeFailure> failures;
    std::vector<std::string> texts, paths;
    for (const auto& spelled : files) {
        paths.push_back(findPathIgnoringCase(spelled).value_or(spelled));
        auto file = readTextFile(paths.back());
        if (file.error) failures.push_back({paths.back(), *file.error});
        texts.push_back(std::move(file.text));
    }
    if (!failures.empty()) return {std::move(failures), {}};
    return writeMerged(outputName, std::move(texts), paths);
}

}  // namespace klt
