#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/TextArea.h"
#include "wizards/EditLine.h"

namespace klt {

/// A text area that may be closed meanwhile: then it gives null.
using AreaLookup = std::function<TextArea*()>;

/// What "&Done!" writes, with a style for each byte where it brings its colours along.
struct TargetText {
    std::string_view text;
    std::optional<std::string_view> styles = {};
};

/// Where "&Done!" writes. Each writes as one step of undo.
class LineTarget {
public:
    explicit LineTarget(AreaLookup area) : area_(std::move(area)) {}
    virtual ~LineTarget() = default;

    /// False, with nothing changed, where the area is closed, no longer holds what it held or is protected
    /// there.
    bool write(const TargetText& line);

protected:
    /// What is written around the line.
    struct Joints {
        std::string_view before = {};
        std::string_view behind = {};
    };
    /// Selects what the line replaces; nothing where it has no place.
    virtual std::optional<Joints> select(TextArea& area) = 0;

private:
    AreaLookup area_;
};

/// The empty line that `GoToSubSection` finds or makes; in a section without subsections `GoToSection`.
class PlacedLine : public LineTarget {
public:
    PlacedLine(AreaLookup document, std::string_view section)
        : LineTarget(std::move(document)), section_(section) {}
    PlacedLine(AreaLookup document, std::string_view section, std::string subsection,
               std::vector<std::string> categories, int index);

protected:
    std::optional<Joints> select(TextArea& area) override;

private:
    std::string_view section_;
    std::string subsection_;
    std::vector<std::string> categories_;
    int index_ = -1;
};

/// The item that is edited, as long as it is what it was. It goes with the edits of the text around it; where
/// all of the text came anew, it is found again if it stands there once.
class ReplacedLine : public LineTarget {
public:
    /// The item must outlive this.
    ReplacedLine(AreaLookup document, const EditedItem& item)
        : LineTarget(std::move(document)), item_(item) {}

protected:
    std::optional<Joints> select(TextArea& area) override;

private:
    std::optional<TextRange> find(const TextArea& area) const;

    const EditedItem& item_;
};

/// The whole of a box that holds one line.
class LineBox : public LineTarget {
public:
    using LineTarget::LineTarget;

protected:
    std::optional<Joints> select(TextArea& area) override;
};

/// The end of a field, wherever its caret is; behind a joiner where the field holds text.
class FieldEnd : public LineTarget {
public:
    FieldEnd(AreaLookup field, std::string_view joiner) : LineTarget(std::move(field)), joiner_(joiner) {}

protected:
    std::optional<Joints> select(TextArea& area) override;

private:
    std::string_view joiner_;
};

}  // namespace klt
