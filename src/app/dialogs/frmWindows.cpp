#include "app/dialogs/frmWindows.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/documents/OpenForms.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"

namespace klt {

frmWindows::frmWindows(const OpenForms& forms, QWidget* owner)
    : QDialog(owner),
      lstDataFiles_(named<QListWidget>("lstDataFiles")),
      documents_(forms.documents().begin(), forms.documents().end()) {
    setObjectName("frmWindows");
    setWindowTitle("More Data Files");
    for (const auto& document : documents_) {
        auto* item = new QListWidgetItem(toQString(document->Caption()), lstDataFiles_);
        item->setToolTip(item->text());
    }
    buildLayout();
    // Nothing is chosen yet, but the arrow keys go on from the active one.
    const auto active = std::find(documents_.begin(), documents_.end(), forms.active());
    lstDataFiles_->setCurrentRow(static_cast<int>(active - documents_.begin()),
                                 QItemSelectionModel::NoUpdate);
}

void frmWindows::buildLayout() {
    constexpr QSize kListSize(420, 220);
    lstDataFiles_->setMinimumSize(kListSize);
    // The end of a path tells more than its start.
    lstDataFiles_->setTextElideMode(Qt::ElideLeft);
    lstDataFiles_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* label = named<QLabel>("Label1", "Data &files:");
    label->setBuddy(lstDataFiles_);
    lstDataFiles_->setAccessibleName("Data files");
    auto* done = named<QPushButton>("cmdDone", "&Done!");
    auto* cancel = named<QPushButton>("cmdCancel", "Cancel");
    done->setEnabled(false);
    connect(lstDataFiles_, &QListWidget::itemSelectionChanged, done,
            [this, done] { done->setEnabled(!lstDataFiles_->selectedItems().isEmpty()); });
    connect(lstDataFiles_, &QListWidget::itemDoubleClicked, this, &frmWindows::choose);
    connect(done, &QPushButton::clicked, this, &frmWindows::choose);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(done);
    buttons->addWidget(cancel);
    auto* all = new QVBoxLayout(this);
    all->addWidget(label);
    all->addWidget(lstDataFiles_, 1);
    all->addLayout(buttons);
    // A button can be the default one only once its dialog holds it.
    done->setDefault(true);
    lstDataFiles_->setFocus();
}

void frmWindows::choose() {
    const auto selected = lstDataFiles_->selectedItems();
    if (selected.isEmpty()) return;
    chosen_ = documents_.at(static_cast<size_t>(lstDataFiles_->row(selected.front())));
    accept();
}

}  // namespace klt
