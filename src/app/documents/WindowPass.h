#pragma once

#include <QObject>
#include <optional>
#include <string>

#include "checker/DocumentPass.h"
#include "text/TextAreaGuards.h"

namespace klt {

class RichTextBox;
class frmKLTChecker;

/// One pass over the text in a box, slice by slice, with events let run in between. Meanwhile the box takes
/// no edit and is not redrawn, unless the user unlocks it to watch. While one slice is scanned on a thread of
/// its own, the styles of those before are handed to the box; nothing else runs beside a scan.
class WindowPass : public QObject, private PassObserver {
public:
    /// `progress` may be null. All must outlive the pass.
    WindowPass(RichTextBox& box, CheckerState& state, frmKLTChecker* progress);
    ~WindowPass() override;
    /// Throws `std::bad_alloc` where a pass over this text might run out of memory.
    static void requireRoomFor(const RichTextBox& box);

    /// Works to the end and puts the result into the box. Selection and scroll position stay, but the caret
    /// is brought into view; nothing can be undone afterwards.
    void run();

private:
    void SetLblCaptions(std::string_view section, std::string_view subsection) override;
    void StepIt(Position lineIndex) override { step_ = lineIndex; }

    bool slice();
    void tell();
    void setLocked(bool locked);
    void showFinishedPart();
    void layStylesTo(Position end);

    RichTextBox& box_;
    frmKLTChecker* progress_;
    std::optional<NotificationMask> mask_;
    std::optional<RedrawFreeze> freeze_;
    StyledText text_;
    ErrorRuns errors_;  // of the slice scanned last
    DocumentPass pass_;
    Position laid_ = 0;  // the place up to which the box has the styles
    bool locked_ = true;

    std::string section_;
    std::string subsection_;
    std::optional<Position> step_;
};

}  // namespace klt
