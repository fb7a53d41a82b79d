#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "language/LogicalLine.h"
#include "language/Vocabulary.h"

namespace klt {

/// A line that a person looks for: a header or an item. It is a view into its text.
struct OutlineEntry {
    /// That of a header, right or not, or `Item`.
    LineKind kind = LineKind::Item;
    /// The section in which it stands; of a right section header the one that it opens.
    Section section = Section::Other;
    /// What is read of its first physical line: a header as it stands, an item up to the comma behind its
    /// name. Without blanks and tabs around, and never empty.
    std::string_view shown;

    /// The name by which other lines refer to it: without brackets, of a package without the description.
    std::string_view name() const;
};

/// Calls `visit` for each header and item of a text in their order, those of [AUTHOR] left out, by the pass's
/// walk over lines.
void walkOutline(std::string_view text, const std::function<void(const OutlineEntry&)>& visit);

/// All of them.
std::vector<OutlineEntry> outlineOf(std::string_view text);

/// Whether a prefix tag names such lines: the items of its section, for some tags subsections or packages.
bool isNamedBy(const OutlineEntry& entry, const PrefixRow& prefix);

/// Whether it is offered where a name is wanted behind that tag. Classes are subsections of skills too, but
/// offered are those of spells, which the tag is for.
bool isOfferedBehind(const OutlineEntry& entry, const PrefixRow& prefix);

}  // namespace klt
