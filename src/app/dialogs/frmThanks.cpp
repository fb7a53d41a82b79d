#include "app/dialogs/frmThanks.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

#include "app/dialogs/Addresses.h"
#include "app/dialogs/Credits.h"
#include "ui/FieldLabel.h"
#include "ui/Named.h"

namespace klt {
namespace {}  // namespace

frmThanks::frmThanks(QWidget* owner)
    : QDialog(owner),
      lstContributor_(named<QListWidget>("lstContributor")),
      lstURL_(named<QListWidget>("lstURL")),
      lblDescription_(named<QLabel>("lblDescription")),
      cmdMailTo_(named<QPushButton>("cmdMailTo", "&Go to Address")),
      cmdOK_(named<QPushButton>("cmdOK", "OK")) {
    setObjectName("frmThanks");
    setWindowTitle("Thanks");
    fill();
    buildLayout();
    connect(lstContributor_, &QListWidget::currentRowChanged, this, &frmThanks::showContributor);
    // Also where the current one is clicked again, after another address was chosen.
    connect(lstContributor_, &QListWidget::itemClicked, this,
            [this] { showContributor(lstContributor_->currentRow()); });
    connect(lstURL_, &QListWidget::itemClicked, this, &frmThanks::openSelected);
    connect(cmdMailTo_, &QPushButton::clicked, this, &frmThanks::openSelected);
    connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
    lstContributor_->setCurrentRow(0);
    lstContributor_->setFocus();
}

void frmThanks::fill() {
    for (const Credit& credit : kCredits) {
        lstContributor_->addItem(credit.contributor);
        lstURL_->addItem(credit.address);
    }
}

void frmThanks::buildLayout() {
    constexpr int kRowsShown = 10;
    for (auto* list : {lstContributor_, lstURL_}) {
        const int scrollBar = list->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        list->setMinimumWidth(list->sizeHintForColumn(0) + scrollBar + 4 * list->frameWidth());
        list->setMinimumHeight(kRowsShown * list->sizeHintForRow(0) + 2 * list->frameWidth());
    }
    lblDescription_->setTextFormat(Qt::PlainText);
    lblDescription_->setWordWrap(true);
    lblDescription_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblDescription_->setMinimumHeight(textHeight(lstContributor_->minimumWidth() + lstURL_->minimumWidth()));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdMailTo_);
    buttons->addWidget(cmdOK_);
    auto* contributors = fieldLabel("&Contributors:", *lstContributor_);
    auto* addresses = fieldLabel("&Addresses:", *lstURL_);
    contributors->setObjectName("Label1");
    addresses->setObjectName("Label2");
    auto* grid = new QGridLayout(this);
    grid->addWidget(contributors, 0, 0);
    grid->addWidget(addresses, 0, 1);
    grid->addWidget(lstContributor_, 1, 0);
    grid->addWidget(lstURL_, 1, 1);
    grid->addWidget(lblDescription_, 2, 0, 1, 2);
    grid->addLayout(buttons, 3, 0, 1, 2);
    grid->setRowStretch(1, 1);
    // A button can be the default one only once its dialog holds it.
    cmdOK_->setDefault(true);
}

int frmThanks::textHeight(int width) const {
    int height = 0;
    for (const Credit& credit : kCredits) {
        const QRect needed = fontMetrics().boundingRect({0, 0, width, 0}, Qt::TextWordWrap, credit.text);
        height = std::max(height, needed.height());
    }
    return height;
}

void frmThanks::showContributor(int row) {
    lblDescription_->setText(kCredits.at(static_cast<size_t>(row)).text);
    lstURL_->setCurrentRow(row);
}

void frmThanks::openSelected() {
    if (const auto* item = lstURL_->currentItem()) openAddress(item->text());
}

}  // namespace klt
