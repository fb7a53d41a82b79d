#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/KnownUnits.h"

namespace klt {

/// What several texts hold, section by section and subsection by subsection. It keeps views: what it is given
/// must outlive it. All lines come with their line ends.
class MergedDocument {
public:
    /// Where in its subsection something stands. `Front` is for lines in [PACKAGES] that belong to no
    /// package: behind another text's package they would become part of it.
    enum class Zone { Front, Rest };

    MergedDocument();

    /// What comes next stands before a text's first section.
    void beginText();
    void beginSection(std::string_view header);
    void beginSubsection(const MergeUnit& header);
    /// Adds it unless an equal one is there in the same subsection. Of one that is left out the lines above
    /// stay, unless those above the other are the same.
    void addOnce(const MergeUnit& unit, Zone zone);
    void addLines(std::string_view lines, Zone zone);

    /// The whole text; nothing can be added afterwards.
    std::string takeText();

private:
    using Lines = std::vector<std::string_view>;
    struct Subsection {
        MergeUnit header;
        Lines front, rest;
        KnownUnits known;
    };
    struct Part {
        std::string_view header;
        bool isPresent = false;
        /// The first one, without a header, holds what stands before the others.
        std::deque<Subsection> subsections{1};
        std::unordered_map<std::string, Subsection*> byName;
    };

    Part& partOf(std::string_view header);
    void enter(Part& part);
    Lines& lines(Zone zone) { return zone == Zone::Front ? current_->front : current_->rest; }
    Lines inOrder() const;

    /// One for each `Section`, then those that name none.
    std::deque<Part> parts_;
    std::unordered_map<std::string, Part*> unnamed_;
    Part* part_ = nullptr;
    Subsection* current_ = nullptr;
};

}  // namespace klt
