#include "tools/MergeCutter.h"

#include <algorithm>

#include "language/NewDocument.h"
#include "text/Ascii.h"

namespace klt {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

void MergeCutter::cut(std::string_view text) {
    document_.beginText();
    section_ = Section::Other;
    text_ = text;
    countedTo_ = 0;
    lineNumber_ = 1;
    for (size_t start = 0; start < text.size();) {
        lineStart_ = start;
        const auto end = lineEnd(text, start);
        const auto first = text.substr(start, end - start);
        const auto kind = classifyLine(first, section_);
        const auto next = nextLine(text, start, end, kind);
        if (kind != LineKind::Version && first != kNewDocumentComment)
            line(kind, next <= text.size() ? text.substr(start, next - start)
                                           : completed(text.substr(start), kind));
        start = next;
    }
    endSection();
    ++textIndex_;
}

// The text's last line with the line end that it lacks, and with the empty line that keeps what will come
// behind it out of it.
std::string_view MergeCutter::completed(std::string_view rest, LineKind kind) {
    auto& copy = copies_.emplace_back(rest);
    if (!copy.ends_with(kLineEnd)) copy += kLineEnd;
    if (nextLine(copy, 0, lineEnd(copy, 0), kind) > copy.size()) copy += kLineEnd;
    return copy;
}

MergeUnit MergeCutter::unit(std::string_view body) {
    const auto aboveSize = above_.size();
    above_.add(body);
    return {above_.take(), aboveSize};
}

void MergeCutter::line(LineKind kind, std::string_view line) {
    switch (kind) {
        case LineKind::Blank:
        case LineKind::Comment:
            return above_.add(line);
        case LineKind::SectionHeader:
            return sectionHeader(line);
        case LineKind::SubsectionHeader:
            return subsectionHeader(line);
        case LineKind::PackageHeader:
            close();
            open();
            return item(line);
        default:
            return item(line);
    }
}

void MergeCutter::sectionHeader(std::string_view header) {
    const auto name = trimBlanks(header.substr(0, header.size() - kLineEnd.size()));
    if (!isSectionHeader(name)) return fixed(header);
    endSection();
    section_ = sectionOf(name);
    document_.beginSection(header);
    if (section_ == Section::Author) open();
}

void MergeCutter::subsectionHeader(std::string_view header) {
    if (section_ == Section::Author) return item(header);
    if (!trimBlanks(header.substr(0, header.size() - kLineEnd.size())).ends_with('>')) return fixed(header);
    close();
    document_.beginSubsection(unit(header));
}

void MergeCutter::item(std::string_view item) {
    if (!isOpen_) return document_.addOnce(unit(item), zone());
    block_.add(above_.take());
    block_.add(item);
}

// A line that is no right header has no equal: it stands where it stood.
void MergeCutter::fixed(std::string_view line) {
    if (unknown_ != nullptr) noteUnknown(line);
    if (isOpen_) return item(line);
    document_.addLines(unit(line).lines, zone());
}

void MergeCutter::noteUnknown(std::string_view line) {
    const auto passed = text_.substr(countedTo_, lineStart_ - countedTo_);
    lineNumber_ += static_cast<size_t>(std::count(passed.begin(), passed.end(), '\n'));
    countedTo_ = lineStart_;
    const auto heading = trimBlanks(line.substr(0, line.size() - kLineEnd.size()));
    unknown_->push_back({textIndex_, lineNumber_, std::string(heading)});
}

void MergeCutter::open() {
    isOpen_ = true;
    blockAbove_ = above_.size();
    block_.add(above_.take());
}

void MergeCutter::close() {
    if (section_ == Section::Author) block_.add(above_.take());
    if (!block_.empty()) document_.addOnce({block_.take(), blockAbove_}, Zone::Rest);
    isOpen_ = false;
}

void MergeCutter::endSection() {
    close();
    document_.addLines(above_.take(), Zone::Rest);
}

}  // namespace klt
