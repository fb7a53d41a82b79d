#include "app/window/NoticeBar.h"
#include "ui/QtStrings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

namespace klt {
namespace {

/// A label that shortens what it shows, never what it holds, to its width.
class ShortenedLabel : public QLabel {
public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width()));
    }
};

/// A path may hold line breaks; the bar has one line.
QString onOneLine(std::string_view text) {
    auto line = toQString(text);
    for (auto& character : line)
        if (character.category() == QChar::Other_Control) character = ' ';
    return line;
}

}  // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), icon_(new QLabel(this)), text_(new ShortenedLabel(this)), others_(new QLabel(this)) {
    setObjectName("NoticeBar");
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    hide();

    icon_->setObjectName("NoticeIcon");
    for (auto* label : {text_, others_}) {
        label->setTextFormat(Qt::PlainText);
        label->setForegroundRole(QPalette::ToolTipText);
    }
    text_->setObjectName("NoticeText");
    text_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    others_->setObjectName("NoticeCount");

    auto* button = new QPushButton(tr("&Dismiss"), this);
    button->setObjectName("NoticeDismiss");
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QPushButton::clicked, this, [this] { dismiss(); });

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 4, 2);
    row->addWidget(icon_);
    row->addWidget(text_, 1);
    row->addWidget(others_);
    row->addWidget(button);
}

void NoticeBar::tell(std::string_view text, std::function<void()> dismissed) {
    QString line = onOneLine(text);
    // What goes wrong at every key is told once.
    if (!notices_.empty() && notices_.back().text == line && !dismissed && !notices_.back().dismissed) return;
    notices_.push_back({std::move(line), std::move(dismissed)});
    // Looked up at its first use: icons are slow to load, and a start shows no notice.
    if (icon_->pixmap(Qt::ReturnByValue).isNull()) {
        const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
        icon_->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    }
    showNewest();
}

void NoticeBar::dismiss() {
    if (notices_.empty()) return;
    const auto dismissed = std::move(notices_.back().dismissed);
    notices_.pop_back();
    showNewest();
    if (dismissed) dismissed();
}

void NoticeBar::showNewest() {
    setVisible(!notices_.empty());
    if (notices_.empty()) return;
    text_->setText(notices_.back().text);
    text_->setToolTip("<p style='white-space:pre-wrap'>" + notices_.back().text.toHtmlEscaped() + "</p>");
    const auto others = static_cast<int>(notices_.size()) - 1;
    others_->setText(tr("and %1 more").arg(others));
    others_->setVisible(others > 0);
}

}  // namespace klt
