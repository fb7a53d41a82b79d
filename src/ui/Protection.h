#pragma once

#include <vector>

#include "text/TextArea.h"

namespace klt {

/// The protected runs of one text, ascending and never touching each other. They move with the text.
class Protection {
public:
    bool empty() const { return runs_.empty(); }
    const std::vector<TextRange>& all() const { return runs_; }
    void clear() { runs_.clear(); }

    /// Whether `range` may go and, with `inserts`, text may come in at its start.
    bool permit(TextRange range, bool inserts) const;
    /// Whether a run ends at `place`.
    bool endAt(Position place) const;

    void protect(TextRange range);
    void unprotect(TextRange range);
    void textInserted(Position place, Position length);
    void textDeleted(Position place, Position length);

private:
    std::vector<TextRange> runs_;
};

}  // namespace klt
