#pragma once

#include <functional>
#include <string_view>

namespace klt {

class RichTextBox;

/// Keeps the lines that a wizard has collected and not written yet, should the program end or the user go
/// back.
class LinesKeeper {
public:
    virtual ~LinesKeeper() = default;

    /// From now on the box's lines are kept while `hasUnwritten` says so. `title` is the wizard's.
    virtual void watch(RichTextBox& box, std::string_view title, std::function<bool()> hasUnwritten) = 0;
    /// The lines are written, or there are none.
    virtual void drop(RichTextBox& box) = 0;
    /// The wizard goes without having written them.
    virtual void leave(RichTextBox& box) = 0;
};

}  // namespace klt
