#include "app/WindowPass.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include "app/frmKLTChecker.h"
#include "ui/modKLTSyntaxHighlighter.h"

namespace klt {
namespace {

// Between two slices events run: often enough for a button to answer, seldom enough to cost nothing.
constexpr qint64 kSliceMilliseconds = 16;
constexpr Position kLinesAtOnce = 200;
// The check of a line may still colour the byte in front of it.
constexpr Position kUnsettled = 8;

}  // namespace

WindowPass::WindowPass(RichTextBox& box, CheckerState& state, frmKLTChecker* progress)
    : box_(box),
      progress_(progress),
      mask_(std::in_place, box),
      freeze_(std::in_place, box),
      text_(box.letters()),
      pass_(text_, state, this) {
    box_.setLocked(true);
    if (!progress_) return;
    connect(progress_, &frmKLTChecker::lockToggled, this, &WindowPass::setLocked);
    progress_->SetProgressInfo(box_.LineCount());
}

WindowPass::~WindowPass() {
    box_.setLocked(false);
}

void WindowPass::run() {
    const Position firstVisible = box_.FirstVisibleLine();
    QCoreApplication::processEvents();
    while (slice()) {
        tell();
        if (!locked_) showFinishedPart();
        QCoreApplication::processEvents();
    }
    box_.lettersChanged();
    layStyles(box_, text_.styles());
    box_.ScrollToLine(firstVisible);
    box_.ScrollCaret();
    box_.EmptyUndoBuffer();
}

/// False when the text has come to its end.
bool WindowPass::slice() {
    // The first one is short, so that the user sees something at once.
    const qint64 most = pass_.lineIndex() == 0 ? 0 : kSliceMilliseconds;
    QElapsedTimer clock;
    clock.start();
    while (pass_.advance(kLinesAtOnce)) {
        if (clock.elapsed() >= most) return true;
    }
    return false;
}

void WindowPass::SetLblCaptions(std::string_view section, std::string_view subsection) {
    section_ = section;
    subsection_ = subsection;
}

void WindowPass::tell() {
    if (!progress_) return;
    progress_->SetLblCaptions(section_, subsection_);
    if (step_) progress_->StepIt(*step_);
}

void WindowPass::setLocked(bool locked) {
    if (std::exchange(locked_, locked) == locked) return;
    if (locked) return freeze_.emplace(box_), void();
    // What has not been checked yet shows none of the colours of an earlier pass.
    if (shown_ == 0) box_.SetBaseStyle(static_cast<StyleByte>(StyleCategory::NormalText));
    showFinishedPart();
    freeze_.reset();
}

void WindowPass::showFinishedPart() {
    const Position end = std::max(shown_, pass_.position() - kUnsettled);
    box_.lettersChanged();
    box_.LayStyles(shown_,
                   text_.styles().substr(static_cast<size_t>(shown_), static_cast<size_t>(end - shown_)));
    shown_ = end;
}

}  // namespace klt
