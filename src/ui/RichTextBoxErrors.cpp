// Why a text is red: what the mouse, the keys and assistive tools are told.

#include <QHelpEvent>
#include <QMouseEvent>
#include <QStringList>
#include <algorithm>

#include "ui/AccessOnDemand.h"
#include "ui/ErrorTip.h"
#include "ui/QtStrings.h"
#include "ui/RichTextBox.h"

namespace klt {

void RichTextBox::keepReasons(TextRange checked, const ErrorRuns& runs) {
    reasons_.forget(checked);
    reasons_.lay(runs);
    if (masks_ == 0) describeError();
}

QString RichTextBox::errorAt(Position place) const {
    return toQString(reasons_.at(place));
}

ErrorTip& RichTextBox::tip() {
    if (!tip_) tip_ = new ErrorTip(*this);
    return *tip_;
}

/// The line that `place` stands in, from there on, in pixels of the viewport.
QRect RichTextBox::lineFrom(Position place) const {
    const QPoint corner(static_cast<int>(send(SCI_POINTXFROMPOSITION, 0, place)),
                        static_cast<int>(send(SCI_POINTYFROMPOSITION, 0, place)));
    return {corner, QSize(1, static_cast<int>(send(SCI_TEXTHEIGHT, 0)))};
}

void RichTextBox::showErrorTip(TextRange run) {
    QStringList lines;
    for (const auto& reason : reasons_.of(run)) lines << toQString(reason);
    if (lines.isEmpty()) return;
    // Below its last line, which the caret has brought into view.
    showTipBelow(std::max(run.start, LineIndex(GetLineFromChar(run.end - 1))), lines.join('\n'));
}

void RichTextBox::showTipAtCaret(const char* text) {
    showTipBelow(send(SCI_GETCURRENTPOS), text);
}

void RichTextBox::showTipBelow(Position shown, const QString& text) {
    QRect place = lineFrom(shown);
    const QRect seen = viewport()->rect();
    place.moveLeft(std::clamp(place.left(), 0, std::max(seen.width() - 1, 0)));
    place.moveTop(std::clamp(place.top(), 0, std::max(seen.height() - place.height(), 0)));
    place.moveTopLeft(viewport()->mapToGlobal(place.topLeft()));
    tip().showBelow(place, text, ErrorTip::Owner::Keyboard);
}

/// Whether the event has been seen to.
bool RichTextBox::tellErrorAtMouse(QEvent& event) {
    const auto reasonAt = [this](const QPoint& point) {
        return errorAt(send(SCI_CHARPOSITIONFROMPOINTCLOSE, point.x(), point.y()));
    };
    // Amid a pass the colours and the reasons are not of one text.
    if (masks_ > 0) return false;
    if (event.type() == QEvent::ToolTip) {
        const auto& rest = static_cast<QHelpEvent&>(event);
        const QString reason = reasonAt(rest.pos());
        if (reason.isEmpty()) return false;
        constexpr QSize kPointer{16, 20};
        tip().showBelow({rest.globalPos(), kPointer}, reason, ErrorTip::Owner::Mouse);
        return true;
    }
    if (!tip_ || tip_->owner() != ErrorTip::Owner::Mouse) return false;
    const bool hasMoved = event.type() == QEvent::MouseMove;
    if (event.type() == QEvent::Leave ||
        (hasMoved && reasonAt(static_cast<QMouseEvent&>(event).position().toPoint()) != tip_->text()))
        tip_->hide();
    return false;
}

/// For assistive tools, while one listens: why the text at the caret, or right in front of it, is in error.
void RichTextBox::describeError() {
    if (!somebodyListens()) return;
    const Position caret = send(SCI_GETCURRENTPOS);
    QString reason = errorAt(caret);
    if (reason.isEmpty()) reason = errorAt(send(SCI_POSITIONBEFORE, caret));
    if (reason != accessibleDescription()) setAccessibleDescription(reason);
}

}  // namespace klt
