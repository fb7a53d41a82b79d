#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "language/LogicalLine.h"
#include "tools/LineRun.h"
#include "tools/MergedDocument.h"
#include "tools/UnknownHeading.h"

namespace klt {

/// Cuts texts into units by the pass's walk over lines, and puts them into a document. The texts and the
/// cutter must outlive the document.
class MergeCutter {
public:
    /// `unknown`, where given, takes the lines that begin as headers and are none.
    explicit MergeCutter(MergedDocument& document, UnknownHeadings* unknown = nullptr)
        : document_(document), unknown_(unknown) {}

    /// All of a text with CR LF line ends, but for its version lines and the comment that belongs to them.
    void cut(std::string_view text);

private:
    using Zone = MergedDocument::Zone;

    void line(LineKind kind, std::string_view line);
    void sectionHeader(std::string_view header);
    void subsectionHeader(std::string_view header);
    void item(std::string_view item);
    void fixed(std::string_view line);
    void noteUnknown(std::string_view line);
    void open();
    void close();
    void endSection();
    std::string_view completed(std::string_view rest, LineKind kind);
    MergeUnit unit(std::string_view body);
    Zone zone() const { return section_ == Section::Packages ? Zone::Front : Zone::Rest; }

    MergedDocument& document_;
    UnknownHeadings* unknown_;
    /// The text that is cut, where its line at work begins, and how far its lines are counted.
    std::string_view text_;
    size_t textIndex_ = 0, lineStart_ = 0, countedTo_ = 0, lineNumber_ = 1;
    std::deque<std::string> copies_;
    Section section_ = Section::Other;
    /// Comments and blank lines that wait for what they stand above.
    LineRun above_{copies_};
    /// A package or an author's block that takes in the lines to come.
    LineRun block_{copies_};
    size_t blockAbove_ = 0;
    bool isOpen_ = false;
};

}  // namespace klt
