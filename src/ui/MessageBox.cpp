#include "ui/MessageBox.h"
#include "ui/QtStrings.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QLabel>
#include <QLayout>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTextEdit>
#include <algorithm>

namespace klt {
namespace {

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// Breaking one long line takes time that is quadratic in its length. On no screen is so much in view at once.
constexpr int kLongestLine = 25'000;
// A text that is wider is broken.
constexpr int kMostWidth = 500;

bool fits(const QString& text, const QLabel& label, QSize area) {
    if (text.size() > kLongestLine) return false;
    const QRect needed = label.fontMetrics().boundingRect({0, 0, area.width(), 0}, Qt::TextWordWrap, text);
    return needed.width() <= area.width() && needed.height() <= area.height();
}

QString withShorterLines(QString text) {
    return text.replace(QRegularExpression(QString("([^\n]{%1})").arg(kLongestLine)), "\\1\n");
}

/// Makes text that a label would show beyond the screen scroll. It stays in the label too, for `text`.
void fitIntoScreen(QMessageBox& box) {
    const QSize screen = box.screen()->availableSize();
    const QSize area(std::min(kMostWidth, screen.width() / 2), screen.height() / 2);
    auto* const label = box.findChild<QLabel*>("qt_msgbox_label");
    if (fits(box.text(), *label, area)) return;
    auto* const view = new QTextEdit(&box);
    view->setObjectName("MessageText");
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    view->setFrameShape(QFrame::NoFrame);
    view->viewport()->setAutoFillBackground(false);
    view->setPlainText(withShorterLines(box.text()));
    view->document()->setTextWidth(area.width());
    view->setMinimumSize(area.width(), std::min(qRound(view->document()->size().height()), area.height()));
    delete box.layout()->replaceWidget(label, view);
    label->hide();
}

/// As wide as its title, with room for what the window's frame puts beside it.
void fitTitle(QMessageBox& box) {
    constexpr int kBeside = 160;
    // The frame has a font of its own, which nobody tells: it is bold mostly, and may be a wide one.
    QFont bold = box.font();
    bold.setBold(true);
    const int title = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) * 5 / 4;
    const int width = std::min(title + kBeside, box.screen()->availableSize().width() * 3 / 4);
    auto& grid = dynamic_cast<QGridLayout&>(*box.layout());
    grid.addItem(new QSpacerItem(width, 0), grid.rowCount(), 0, 1, grid.columnCount());
}

void nameSkipButton(QMessageBox& box) {
    auto* const skip = box.button(kSkipTheRest);
    if (!skip) return;
    skip->setText("&Skip the Rest");
    box.setEscapeButton(QMessageBox::Ok);
}

}  // namespace

QMessageBox::StandardButton MessageBox(QWidget* owner, std::string_view text, MessageIcon icon,
                                       std::string_view title, QMessageBox::StandardButtons buttons,
                                       QMessageBox::StandardButton preferred) {
    // On the heap, since the owner may take it along.
    const QPointer<QMessageBox> box =
        new QMessageBox(iconOf(icon), toQString(title), QString(), buttons, owner);
    box->setObjectName("MessageBox");
    box->setTextFormat(Qt::PlainText);
    box->setText(toQString(text));
    for (const auto first : {QMessageBox::Ok, QMessageBox::Yes, preferred})
        if (buttons.testFlag(first)) box->setDefaultButton(first);
    nameSkipButton(*box);
    fitIntoScreen(*box);
    fitTitle(*box);
    const auto answer = static_cast<QMessageBox::StandardButton>(box->exec());
    if (!box) return QMessageBox::NoButton;
    delete box;
    return answer;
}

}  // namespace klt
