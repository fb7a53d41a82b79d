#pragma once

#include <memory>
#include <string_view>

#include "checker/CheckerState.h"
#include "checker/ErrorReason.h"
#include "language/StyledText.h"

namespace klt {

/// Told how far a pass over a document has come.
class PassObserver {
public:
    virtual ~PassObserver() = default;
    /// A section header has been met; `subsection` is then "(none)". Or a subsection header, trimmed.
    virtual void SetLblCaptions(std::string_view section, std::string_view subsection) = 0;
    /// An item line is done; `lineIndex` counts physical lines from 0 and is that of its last one.
    virtual void StepIt(Position lineIndex) = 0;
};

/// The pass over a whole document, in slices. It puts `FunctionStack` back to one empty element and clears
/// the styles at its start, then lays styles and case rewrites line by line. `target` and `state` must
/// outlive it and must not be changed between two slices.
class DocumentPass {
public:
    /// `errors`, where given, takes the reason of each error run that is laid.
    DocumentPass(StyledText& target, CheckerState& state, PassObserver* observer = nullptr,
                 ErrorRuns* errors = nullptr);
    ~DocumentPass();

    /// Works on until at least `lines` further physical lines are done (a logical line is never cut). False
    /// when the text has come to its end.
    bool advance(Position lines);

    /// The physical lines done so far.
    Position linesDone() const;
    /// The start of the line that is next.
    Position position() const;
    /// The end of what no further slice colours. It is a little in front of `position`: the check of a line
    /// may colour the end of the one before.
    Position settledEnd() const;

private:
    class Work;
    std::unique_ptr<Work> work_;
};

/// The whole pass at once.
void CheckDocument(StyledText& target, CheckerState& state, PassObserver* observer = nullptr,
                   ErrorRuns* errors = nullptr);

/// The cut-down pass of the preview boxes over [from, to): no section or subsection headers, no reset of the
/// state, no clearing of styles. Nothing happens unless `from` is less than `to`.
void CheckRange(StyledText& target, CheckerState& state, Position from, Position to,
                ErrorRuns* errors = nullptr);

/// Checks a field that holds the value of one tag ("gives(", "cost(", "value(" ..., in lower case). An empty
/// field is left alone; unequal parentheses put all of it in error; a tag without a scanner, such as "name("
/// or "type(", gets `Normal Text` and no more.
void CheckField(StyledText& field, CheckerState& state, std::string_view tag, ErrorRuns* errors = nullptr);

}  // namespace klt
