#include "app/dialogs/frmAbout.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "app/dialogs/Addresses.h"
#include "app/dialogs/LinkLabel.h"
#include "app/dialogs/Picture.h"
#include "app/dialogs/frmThanks.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "settings/MakerProfile.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr int kTickMilliseconds = 50;
constexpr int kGap = 16;
constexpr std::string_view kMails[] = {kMakerFirstAddress, kMakerAddress};

}  // namespace

frmAbout::frmAbout(Store& store, QWidget* owner) : QDialog(owner) {
    setObjectName("frmAbout");
    timer1_.setObjectName("Timer1");
    timer1_.setParent(this);
    timer1_.setInterval(kTickMilliseconds);
    connect(&timer1_, &QTimer::timeout, this, &frmAbout::tick);
    auto* upper = new QHBoxLayout;
    upper->addWidget(makePicture(store), 0, Qt::AlignTop);
    upper->addSpacing(kGap);
    upper->addLayout(buildTexts(), 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(upper);
    all->addStretch(1);
    all->addLayout(buildButtons());
    // A button can be the default one only once its dialog holds it.
    auto* ok = findChild<QPushButton*>("cmdOK");
    ok->setDefault(true);
    ok->setFocus();
}

Picture* frmAbout::makePicture(Store& store) {
    if (readSetting(store, settings::kAboutBoxEasterEgg) != settings::kEasterEggEnabled)
        return makeEmblem("picLogo");
    picEasterEgg_ = makeDragon("picEasterEgg");
    connect(picEasterEgg_, &Picture::clicked, this,
            [this] { timer1_.isActive() ? timer1_.stop() : timer1_.start(); });
    return picEasterEgg_;
}

void frmAbout::tick() {
    frame_ = frame_ % kDragonFrames + 1;
    picEasterEgg_->setFrame(frame_);
}

QLayout* frmAbout::buildTexts() {
    auto* version = named<QLabel>("lblVersion", "KLT Editor " + toQString(kVersionText));
    QFont bold = version->font();
    bold.setBold(true);
    version->setFont(bold);
    setWindowTitle(version->text());
    auto* column = new QVBoxLayout;
    column->addWidget(version);
    column->addWidget(named<QLabel>("lblPurpose", "Makes and checks data files for TVM."));
    column->addWidget(named<QLabel>("lblLicence", "Free software: GNU GPL, version 3 or later."));
    column->addSpacing(kGap);
    int index = 0;
    for (const auto address : kMails) {
        auto* mail = named<LinkLabel>("lblMail", toQString(address));
        mail->setObjectName(QString("lblMail(%1)").arg(index++));
        mail->setAccessibleDescription("Opens your mail program");
        connect(mail, &LinkLabel::clicked, this, [mail] { mailTo(mail->text()); });
        column->addWidget(mail, 0, Qt::AlignLeft);
    }
    column->addStretch(1);
    return column;
}

QLayout* frmAbout::buildButtons() {
    auto* thanks = named<QPushButton>("cmdThanks", "&Thanks...");
    auto* ok = named<QPushButton>("cmdOK", "OK");
    connect(thanks, &QPushButton::clicked, this, &frmAbout::showThanks);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(thanks);
    row->addWidget(ok);
    return row;
}

void frmAbout::showThanks() {
    // On the heap, since closing this window destroys it.
    auto* thanks = new frmThanks(this);
    thanks->setAttribute(Qt::WA_DeleteOnClose);
    thanks->exec();
}

}  // namespace klt
