#include "app/dialogs/frmSplash.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include "app/dialogs/Picture.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr int kShownMilliseconds = 2000;

QLabel* enlarged(QLabel* label, double factor) {
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * factor);
    label->setFont(font);
    return label;
}

}  // namespace

frmSplash::frmSplash(Store& store)
    : QFrame(nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      store_(store),
      lblDragon_(named<QLabel>("lblDragon")) {
    setObjectName("frmSplash");
    setWindowTitle("KLT Editor");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFrameShape(QFrame::StyledPanel);
    setCursor(Qt::WaitCursor);
    auto* texts = new QVBoxLayout;
    texts->addWidget(enlarged(named<QLabel>("lblTitle", "KLT Editor"), 2));
    texts->addWidget(named<QLabel>("lblVersion", toQString(kVersionText)));
    texts->addWidget(lblDragon_);
    texts->addStretch();
    auto* row = new QHBoxLayout(this);
    auto* dragon = makeDragon("Picture1");
    for (auto* picture : {dragon, makeEmblem("Picture2")}) row->addWidget(picture);
    row->addLayout(texts);
    timer1_.setSingleShot(true);
    timer1_.setInterval(kShownMilliseconds);
    connect(&timer1_, &QTimer::timeout, lblDragon_, &QLabel::clear);
    connect(dragon, &Picture::clicked, this, &frmSplash::enableDragon);
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

void frmSplash::enableDragon() {
    writeSetting(store_, settings::kAboutBoxEasterEgg, settings::kEasterEggEnabled);
    lblDragon_->setText("Dragon Enabled...");
    timer1_.start();
}

void frmSplash::stayOnTop(bool on) {
    windowHandle()->setFlag(Qt::WindowStaysOnTopHint, on);
    on ? raise() : lower();
}

bool frmSplash::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
        stayOnTop(event->type() == QEvent::WindowUnblocked);
    return QFrame::event(event);
}

}  // namespace klt
