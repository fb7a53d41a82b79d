#include "app/documents/WindowPass.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <future>
#include <utility>

#include "app/dialogs/frmKLTChecker.h"
#include "language/LogicalLine.h"
#include "platform/MemoryRoom.h"
#include "ui/modKLTSyntaxHighlighter.h"

namespace klt {
namespace {

// Between two slices events run: often enough for a button to answer, seldom enough to cost nothing.
constexpr qint64 kSliceMilliseconds = 16;
constexpr int kLinesAtOnce = 200;
// So many errors are enough for one slice: they are kept until the box takes them.
constexpr size_t kErrorsAtOnce = 20'000;
// What the check of a line may take for each of its bytes, beside their styles: the scan, and the reasons of
// an error for every other byte in a list that grows.
constexpr size_t kBytesOfCheck = 24 + 36;

}  // namespace

WindowPass::WindowPass(RichTextBox& box, CheckerState& state, frmKLTChecker* progress)
    : box_(box),
      progress_(progress),
      mask_(std::in_place, box),
      freeze_(std::in_place, box),
      text_(box.letters()),
      pass_(text_, state, this, &errors_) {
    box_.setLocked(true);
    if (!progress_) return;
    connect(progress_, &frmKLTChecker::lockToggled, this, &WindowPass::setLocked);
    progress_->SetProgressInfo(box_.LineCount());
}

void WindowPass::requireRoomFor(const RichTextBox& box) {
    const auto length = static_cast<size_t>(box.Length());
    if (roomFor(length + kBytesOfCheck * length)) return;
    requireRoom(length + kBytesOfCheck * longestLine(box.Text()));
}

WindowPass::~WindowPass() {
    box_.setLocked(false);
}

void WindowPass::run() {
    const Position firstVisible = box_.FirstVisibleLine();
    box_.keepReasons({0, text_.size()}, {});
    QCoreApplication::processEvents();
    for (bool goesOn = slice(); goesOn;) {
        tell();
        if (!locked_) showFinishedPart();
        QCoreApplication::processEvents();
        const Position finished = pass_.settledEnd();
        box_.keepReasons({}, std::exchange(errors_, {}));
        // Without a thread the slice is scanned afterwards, here.
        auto next = std::async(std::launch::async | std::launch::deferred, [this] { return slice(); });
        layStylesTo(finished);
        goesOn = next.get();
    }
    layStylesTo(text_.size());
    box_.keepReasons({}, errors_);
    box_.SetProtectedRuns(versionRuns(text_.styles()));
    box_.lettersChanged();
    box_.ScrollToLine(firstVisible);
    box_.ScrollCaret();
    box_.EmptyUndoBuffer();
}

/// False when the text has come to its end.
bool WindowPass::slice() {
    // The first one is short, so that the user sees something at once.
    const qint64 most = pass_.linesDone() == 0 ? 0 : kSliceMilliseconds;
    QElapsedTimer clock;
    clock.start();
    for (int lines = 1; pass_.advance(1); ++lines) {
        if (errors_.size() >= kErrorsAtOnce) return true;
        if (lines % kLinesAtOnce == 0 && clock.elapsed() >= most) return true;
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
    if (locked) {
        freeze_.emplace(box_);
        return;
    }
    // What has not been checked yet shows none of the colours of an earlier pass.
    box_.ColourRun(laid_, box_.Length(), static_cast<StyleByte>(StyleCategory::NormalText));
    showFinishedPart();
    freeze_.reset();
}

void WindowPass::showFinishedPart() {
    layStylesTo(pass_.settledEnd());
    box_.lettersChanged();
}

void WindowPass::layStylesTo(Position end) {
    if (end <= laid_) return;
    box_.LayStyles(laid_,
                   text_.styles().substr(static_cast<size_t>(laid_), static_cast<size_t>(end - laid_)));
    laid_ = end;
}

}  // namespace klt
