#pragma once

#include <functional>

#include "app/recovery/TextCopies.h"
#include "forms/LinesKeeper.h"

namespace klt {

class NoticeBar;

/// Keeps the lines of wizards as texts of their own.
class WizardLines : public LinesKeeper {
public:
    /// `bar` gives the bar that tells of lines which were thrown away.
    WizardLines(RecoveryFolder& folder, TextCopies& copies, std::function<NoticeBar&()> bar)
        : folder_(folder), copies_(copies), bar_(std::move(bar)) {}

    void watch(RichTextBox& box, std::string_view title, std::function<bool()> hasUnwritten) override;
    void drop(RichTextBox& box) override;
    void leave(RichTextBox& box) override;

private:
    RecoveryFolder& folder_;
    TextCopies& copies_;
    std::function<NoticeBar&()> bar_;
};

}  // namespace klt
