#include "app/window/NoticeBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "app/window/NoticeList.h"
#include "app/window/NoticeText.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr int kMostLines = 3;
constexpr const char* kDismiss = "NoticeDismiss";

/// A path may hold line breaks, which say nothing here.
QString withoutBreaks(std::string_view text) {
    auto line = toQString(text);
    for (auto& character : line)
        if (character.category() == QChar::Other_Control) character = ' ';
    return line;
}

/// Tells assistive tools, for the focus stays where it is.
void announce(QWidget& text) {
    QAccessibleEvent event(&text, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent),
      row_(new QHBoxLayout(this)),
      icon_(new QLabel(this)),
      text_(new NoticeText(kMostLines, this)),
      all_(new QToolButton(this)),
      list_(new NoticeList(*this, [this](Id notice, size_t choice) { choose(notice, choice); })) {
    setObjectName("NoticeBar");
    setAccessibleName("Notice");
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    hide();

    icon_->setObjectName("NoticeIcon");
    text_->setObjectName("NoticeText");
    text_->clicked = [this] { list(); };
    text_->resized = [this] { showListButton(); };
    all_->setObjectName("NoticeAll");
    all_->setFocusPolicy(Qt::NoFocus);
    connect(all_, &QToolButton::clicked, this, &NoticeBar::list);

    row_->setContentsMargins(6, 2, 4, 2);
    row_->addWidget(icon_);
    row_->addWidget(text_, 1);
    row_->addWidget(all_);
    // There may be no memory for it when there is something to tell.
    button(0).setText(tr("&Dismiss"));
}

QPushButton& NoticeBar::button(size_t index) {
    while (buttons_.size() <= index) {
        auto* made = new QPushButton(this);
        made->setFocusPolicy(Qt::NoFocus);
        const auto newest = [this] { return notices_.empty() ? kNone : notices_.back().id; };
        connect(made, &QPushButton::pressed, this, [this, newest] { pressed_ = newest(); });
        // Not what another notice offers that has come between press and release.
        connect(made, &QPushButton::clicked, this, [this, newest, at = buttons_.size()] {
            if (pressed_ == newest()) choose(pressed_, at);
        });
        row_->addWidget(made);
        buttons_.push_back(made);
    }
    return *buttons_[index];
}

void NoticeBar::tell(std::string_view text, std::function<void()> dismissed, const QObject* about) {
    // What goes wrong at every key is told once.
    if (!notices_.empty() && !dismissed && notices_.back().text == withoutBreaks(text)) {
        const auto& choices = notices_.back().choices;
        if (choices.size() == 1 && !choices.front().chosen) return;
    }
    offer(text, {{kDismiss, "&Dismiss", std::move(dismissed)}}, about);
}

NoticeBar::Id NoticeBar::offer(std::string_view text, std::vector<NoticeChoice> choices,
                               const QObject* about) {
    notices_.push_back({++lastId_, withoutBreaks(text), std::move(choices), about});
    if (about) connect(about, &QObject::destroyed, this, [this, about] { withdrawAbout(about); });
    // Looked up at its first use: icons are slow to load, and a start shows no notice.
    if (icon_->pixmap(Qt::ReturnByValue).isNull()) {
        const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
        icon_->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    }
    showNewest();
    announce(*text_);
    return lastId_;
}

void NoticeBar::withdraw(Id notice) {
    if (std::erase_if(notices_, [notice](const PendingNotice& it) { return it.id == notice; }) > 0)
        showNewest();
}

void NoticeBar::withdrawAbout(const QObject* about) {
    const auto isAbout = [about](const PendingNotice& it) { return about && it.about == about; };
    if (std::erase_if(notices_, isAbout) > 0) showNewest();
}

void NoticeBar::choose(Id notice, size_t choice) {
    const auto found = std::ranges::find(notices_, notice, &PendingNotice::id);
    if (found == notices_.end() || choice >= found->choices.size()) return;
    // What else can be chosen opens or changes something, which the user is to see.
    if (std::string_view(found->choices[choice].name) != kDismiss) list_->close();
    const auto chosen = std::move(found->choices[choice].chosen);
    notices_.erase(found);
    showNewest();
    if (chosen) chosen();
}

void NoticeBar::showNewest() {
    setVisible(!notices_.empty());
    if (list_->isVisible()) list_->showNotices(notices_);
    if (notices_.empty()) return;
    const PendingNotice& newest = notices_.back();
    text_->setText(newest.text);
    text_->setToolTip("<p style='white-space:pre-wrap'>" + newest.text.toHtmlEscaped() + "</p>");
    showListButton();
    for (size_t i = 0; i < std::max(newest.choices.size(), buttons_.size()); ++i) {
        const bool isUsed = i < newest.choices.size();
        button(i).setObjectName(isUsed ? newest.choices[i].name : "");
        button(i).setText(isUsed ? tr(newest.choices[i].caption) : QString());
        button(i).setVisible(isUsed);
    }
}

void NoticeBar::showListButton() {
    const auto count = notices_.size();
    all_->setText(count > 1 ? tr("A&ll %1 Notices").arg(count) : tr("Fu&ll Text"));
    all_->setVisible(count > 1 || (count == 1 && text_->isCut()));
}

void NoticeBar::list() {
    if (all_->isVisible()) list_->popUp(notices_);
}

}  // namespace klt
