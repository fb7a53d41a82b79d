#include "app/window/NoticeBar.h"
#include "ui/QtStrings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <utility>

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
    : QFrame(parent),
      row_(new QHBoxLayout(this)),
      icon_(new QLabel(this)),
      text_(new ShortenedLabel(this)),
      others_(new QLabel(this)) {
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

    row_->setContentsMargins(6, 2, 4, 2);
    row_->addWidget(icon_);
    row_->addWidget(text_, 1);
    row_->addWidget(others_);
    // There may be no memory for it when there is something to tell.
    button(0).setText(tr("&Dismiss"));
}

QPushButton& NoticeBar::button(size_t index) {
    while (buttons_.size() <= index) {
        auto* made = new QPushButton(this);
        made->setFocusPolicy(Qt::NoFocus);
        connect(made, &QPushButton::clicked, this, [this, at = buttons_.size()] { choose(at); });
        row_->addWidget(made);
        buttons_.push_back(made);
    }
    return *buttons_[index];
}

void NoticeBar::tell(std::string_view text, std::function<void()> dismissed) {
    // What goes wrong at every key is told once.
    if (!notices_.empty() && !dismissed && notices_.back().text == onOneLine(text)) {
        const auto& choices = notices_.back().choices;
        if (choices.size() == 1 && !choices.front().chosen) return;
    }
    offer(text, {{"NoticeDismiss", "&Dismiss", std::move(dismissed)}});
}

NoticeBar::Id NoticeBar::offer(std::string_view text, std::vector<NoticeChoice> choices) {
    notices_.push_back({++lastId_, onOneLine(text), std::move(choices)});
    // Looked up at its first use: icons are slow to load, and a start shows no notice.
    if (icon_->pixmap(Qt::ReturnByValue).isNull()) {
        const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
        icon_->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    }
    showNewest();
    return lastId_;
}

void NoticeBar::withdraw(Id notice) {
    if (std::erase_if(notices_, [notice](const Notice& it) { return it.id == notice; }) > 0) showNewest();
}

void NoticeBar::choose(size_t index) {
    if (notices_.empty() || index >= notices_.back().choices.size()) return;
    const auto chosen = std::move(notices_.back().choices[index].chosen);
    notices_.pop_back();
    showNewest();
    if (chosen) chosen();
}

void NoticeBar::showNewest() {
    setVisible(!notices_.empty());
    if (notices_.empty()) return;
    text_->setText(notices_.back().text);
    text_->setToolTip("<p style='white-space:pre-wrap'>" + notices_.back().text.toHtmlEscaped() + "</p>");
    const auto others = static_cast<int>(notices_.size()) - 1;
    others_->setText(tr("and %1 more").arg(others));
    others_->setVisible(others > 0);
    const auto& choices = notices_.back().choices;
    for (size_t i = 0; i < std::max(choices.size(), buttons_.size()); ++i) {
        const bool isUsed = i < choices.size();
        button(i).setObjectName(isUsed ? choices[i].name : "");
        button(i).setText(isUsed ? tr(choices[i].caption) : QString());
        button(i).setVisible(isUsed);
    }
}

}  // namespace klt
