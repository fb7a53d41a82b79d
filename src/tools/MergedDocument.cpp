#include "tools/MergedDocument.h"

#include "language/NewDocument.h"
#include "language/Section.h"
#include "text/Ascii.h"
#include "text/LargePages.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string_view trimmedLine(std::string_view line) {
    return trimBlanks(line.substr(0, line.size() - kLineEnd.size()));
}

// What a text holds in one piece stays one.
void append(std::vector<std::string_view>& all, std::string_view lines) {
    if (lines.empty()) return;
    if (!all.empty() && all.back().data() + all.back().size() == lines.data())
        all.back() = {all.back().data(), all.back().size() + lines.size()};
    else
        all.push_back(lines);
}

}  // namespace

MergedDocument::MergedDocument() : parts_(kSectionNames.size()) {
    beginText();
}

void MergedDocument::beginText() {
    enter(parts_.front());
}

void MergedDocument::enter(Part& part) {
    part.isPresent = true;
    part_ = &part;
    current_ = &part.subsections.front();
}

MergedDocument::Part& MergedDocument::partOf(std::string_view header) {
    const auto name = trimmedLine(header);
    const auto section = sectionOf(name);
    if (section != Section::Other) return parts_[static_cast<size_t>(section)];
    auto& part = unnamed_[upperCase(name)];
    if (part == nullptr) {
        part = &parts_.emplace_back();
        part->header = header;
    }
    return *part;
}

void MergedDocument::beginSection(std::string_view header) {
    enter(partOf(header));
}

void MergedDocument::beginSubsection(const MergeUnit& header) {
    auto& subsection = part_->byName[upperCase(trimmedLine(header.body()))];
    const bool isNew = subsection == nullptr;
    if (isNew) {
        subsection = &part_->subsections.emplace_back();
        subsection->header = header;
    }
    current_ = subsection;
    if (!isNew && header.above() != subsection->header.above()) addLines(header.above(), Zone::Rest);
}

void MergedDocument::addOnce(const MergeUnit& unit, Zone zone) {
    const auto known = current_->known.findOrAdd(unit);
    if (!known)
        addLines(unit.lines, zone);
    else if (unit.above() != *known)
        addLines(unit.above(), zone);
}

void MergedDocument::addLines(std::string_view lines, Zone zone) {
    append(this->lines(zone), lines);
}

MergedDocument::Lines MergedDocument::inOrder() const {
    Lines all = {kNewDocumentText, kLineEnd};
    for (size_t i = 0; i < parts_.size(); ++i) {
        const auto& part = parts_[i];
        if (!part.isPresent) continue;
        if (i >= kSectionNames.size())
            all.push_back(part.header);
        else if (i > 0)
            all.insert(all.end(), {kSectionNames[i], kLineEnd});
        for (const auto& subsection : part.subsections) {
            append(all, subsection.header.lines);
            for (const auto* zone : {&subsection.front, &subsection.rest})
                all.insert(all.end(), zone->begin(), zone->end());
        }
    }
    return all;
}

std::string MergedDocument::takeText() {
    // What is known is not needed any more, and its memory is room for the text.
    for (auto& part : parts_)
        for (auto& subsection : part.subsections) subsection.known = {};
    const auto all = inOrder();
    size_t size = 0;
    for (const auto lines : all) size += lines.size();
    std::string text;
    reserveLarge(text, size);
    for (const auto lines : all) text += lines;
    return text;
}

}  // namespace klt
