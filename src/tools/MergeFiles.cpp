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
#include "text/ShownText.h"
#include "tools/MergeCutter.h"

namespace klt {

namespace {

/// Whether the path leads to one of the files.
bool isAmong(const std::vector<MergeInput>& inputs, const std::string& path) {
    return std::ranges::any_of(inputs, [&path](const auto& input) {
        std::error_code unknown;
        return std::filesystem::equivalent(input.path, path, unknown);
    });
}

std::vector<std::string> takeTexts(std::vector<MergeInput>& inputs) {
    std::vector<std::string> texts;
    texts.reserve(inputs.size());
    for (auto& input : inputs) texts.push_back(std::move(input.text));
    return texts;
}

std::string noteOf(const UnknownHeading& unknown, const std::string& name) {
    constexpr size_t kLongestHeading = 60;
    return name + ":" + std::to_string(unknown.line) + ": unknown heading " +
           shownOnOneLine(unknown.heading, kLongestHeading) +
           " stays where it stood. What other files bring comes behind it, and moves under it once it is "
           "corrected.";
}

bool isUtf8(Encoding encoding) {
    return encoding == Encoding::Utf8 || encoding == Encoding::Utf8Bom;
}

void addRecoded(std::vector<std::string>& notes, const std::vector<MergeInput>& inputs,
                const std::string& outputName, Encoding written) {
    if (!isUtf8(written)) return;
    for (const auto& input : inputs)
        if (input.encoding != Encoding::Any && !isUtf8(input.encoding))
            notes.push_back(input.name + ": " + encodingChange(input.encoding, written) + " in " +
                            outputName);
}

}  // namespace

std::string MergeTexts(const std::vector<std::string>& texts, UnknownHeadings* unknown) {
    MergedDocument document;
    MergeCutter cutter(document, unknown);
    for (const auto& text : texts) cutter.cut(text);
    return document.takeText();
}

MergeResult writeMerged(const std::string& outputName, std::vector<MergeInput> inputs) {
    MergeResult result;
    try {
        UnknownHeadings unknown;
        const auto merged = MergeTexts(takeTexts(inputs), &unknown);
        KeptBeside kept;
        if (isAmong(inputs, outputName)) kept = keepBeside(outputName);
        if (kept.error) return {{{outputName, *kept.error}}, {}, {}};
        const auto written = writeTextFile(outputName, merged, Encoding::Any);
        if (written.error) {
            if (!kept.path.empty()) unlink(kept.path.c_str());
            return {{{outputName, *written.error}}, {}, {}};
        }
        result.kept = kept.path;
        for (const auto& heading : unknown)
            result.notes.push_back(noteOf(heading, inputs[heading.text].name));
        addRecoded(result.notes, inputs, outputName, written.encoding);
        return result;
    } catch (const std::bad_alloc&) {
        return {{{outputName, *systemFailure(ENOMEM)}}, {}, {}};
    }
}

MergeResult MergeFiles(const std::string& outputName, const std::vector<std::string>& files) {
    std::vector<MergeFailure> failures;
    std::vector<MergeInput> inputs;
    for (const auto& spelled : files) {
        const auto path = findPathIgnoringCase(spelled).value_or(spelled);
        auto file = readTextFile(path);
        if (file.error) failures.push_back({path, *file.error});
        inputs.push_back({path, path, std::move(file.text), file.encoding});
    }
    if (!failures.empty()) return {std::move(failures), {}, {}};
    return writeMerged(outputName, std::move(inputs));
}

}  // namespace klt
