#include "app/dialogs/frmTip.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "app/dialogs/Picture.h"
#include "app/dialogs/Tips.h"
#include "settings/Catalogue.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr int kLastTip = static_cast<int>(kTipTexts.size()) - 1;
constexpr int kCharactersInALine = 44;
constexpr int kGap = 16;

int storedTip(Store& store) {
    const auto tip = readSetting(store, settings::kCurrentTip);
    return tip < 0 || tip > std::numeric_limits<std::uint8_t>::max() ? 0 : tip;
}

}  // namespace

frmTip::frmTip(Store& store, QWidget* owner)
    : QDialog(owner),
      store_(store),
      lblHeading_(named<QLabel>("lblHeading", "Did you know...")),
      lblTipText_(named<QLabel>("lblTipText")),
      chkLoadTipsAtStartup_(named<QCheckBox>("chkLoadTipsAtStartup", "&Show Tips at Startup")),
      cmdPreviousTip_(named<QPushButton>("cmdPreviousTip", "&Previous Tip")),
      cmdNextTip_(named<QPushButton>("cmdNextTip", "&Next Tip")),
      cmdOK_(named<QPushButton>("cmdOK", "OK")),
      current_(storedTip(store)) {
    setObjectName("frmTip");
    setWindowTitle("Tip of the Day");
    buildLayout();
    chkLoadTipsAtStartup_->setChecked(tipsAreWanted(store));
    connect(cmdNextTip_, &QPushButton::clicked, this,
            [this] { step(current_ >= kLastTip ? 0 : current_ + 1); });
    connect(cmdPreviousTip_, &QPushButton::clicked, this,
            [this] { step(current_ == 0 ? kLastTip : current_ - 1); });
    connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
    DisplayCurrentTip();
}

void frmTip::buildLayout() {
    QFont large = lblHeading_->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.4);
    lblHeading_->setFont(large);
    lblTipText_->setTextFormat(Qt::PlainText);
    lblTipText_->setWordWrap(true);
    lblTipText_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const int width = kCharactersInALine * fontMetrics().averageCharWidth();
    lblTipText_->setMinimumSize(width, textHeight(width));

    auto* paper = new QFrame;
    paper->setFrameShape(QFrame::StyledPanel);
    paper->setBackgroundRole(QPalette::Base);
    paper->setAutoFillBackground(true);
    auto* texts = new QVBoxLayout;
    texts->addWidget(lblHeading_);
    texts->addSpacing(kGap / 2);
    texts->addWidget(lblTipText_, 1);
    auto* inside = new QHBoxLayout(paper);
    inside->addWidget(makeEmblem("Picture1"), 0, Qt::AlignTop);
    inside->addSpacing(kGap);
    inside->addLayout(texts, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(chkLoadTipsAtStartup_);
    buttons->addStretch();
    for (auto* button : {cmdPreviousTip_, cmdNextTip_, cmdOK_}) buttons->addWidget(button);
    auto* all = new QVBoxLayout(this);
    all->addWidget(paper, 1);
    all->addLayout(buttons);
    // A button can be the default one only once its dialog holds it.
    cmdOK_->setDefault(true);
    cmdOK_->setFocus();
}

int frmTip::textHeight(int width) const {
    int height = 0;
    for (const auto text : kTipTexts) {
        const QRect needed = fontMetrics().boundingRect({0, 0, width, 0}, Qt::TextWordWrap, toQString(text));
        height = std::max(height, needed.height());
    }
    return height;
}

void frmTip::step(int tip) {
    current_ = tip;
    DisplayCurrentTip();
}

void frmTip::DisplayCurrentTip() {
    lblTipText_->setText(current_ > kLastTip ? QString()
                                             : toQString(kTipTexts.at(static_cast<size_t>(current_))));
}

void frmTip::done(int result) {
    store_.together([this] {
        return writeSetting(store_, settings::kShowTips, chkLoadTipsAtStartup_->isChecked() ? 1 : 0) &&
               writeSetting(store_, settings::kCurrentTip, current_);
    });
    QDialog::done(result);
}

bool tipsAreWanted(Store& store) {
    return readSetting(store, settings::kShowTips) == 1;
}

}  // namespace klt
