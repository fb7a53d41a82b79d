#include "app/options/AuthorsPage.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "app/dialogs/Addresses.h"
#include "app/options/AuthorCells.h"
#include "app/options/OptionsServices.h"
#include "platform/ProgramNames.h"
#include "ui/FieldPopup.h"
#include "ui/MessageBox.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr int kNameColumn = 0;
constexpr int kFirstAddressColumn = 1;
constexpr auto kWholeRow = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
constexpr std::string_view kResetQuestion =
    "This will delete all author profiles and reset installation defaults!\r\n"
    "Are you sure you want to continue?";

std::string textAt(const QTableWidget& grid, int row, int column) {
    return grid.item(row, column)->text().toStdString();
}

}  // namespace

AuthorsPage::AuthorsPage(const OptionsServices& services, QWidget* parent)
    : OptionsPage(parent),
      store_(services.store),
      vbAuthorList_(named<QTableWidget>("vbAuthorList")),
      txtEdit_(named<CellEdit>("txtEdit", vbAuthorList_->viewport())),
      cells_(new AuthorCells(*txtEdit_, vbAuthorList_)),
      Command1_(named<QPushButton>("Command1", "&Add Author")),
      Command2_(named<QPushButton>("Command2", "D&elete Author")),
      Command5_(named<QPushButton>("Command5", "Set as &Default")),
      Command6_(named<QPushButton>("Command6", "&Reset Defaults")) {
    setObjectName("AuthorsPage");
    buildGrid();
    auto* all = new QVBoxLayout(this);
    all->addWidget(vbAuthorList_, 1);
    all->addLayout(buildButtons());
    fill(readAuthorList(store_));
    wire();
}

void AuthorsPage::buildGrid() {
    constexpr int kCharactersShown = 84;
    constexpr int kRowsShown = 10;
    auto& grid = *vbAuthorList_;
    const QFontMetrics metrics = grid.fontMetrics();
    grid.setAccessibleName("Author profiles");
    grid.setColumnCount(static_cast<int>(kFirstAddressColumn + kAddressKeys.size()));
    grid.setHorizontalHeaderLabels({"Name", "E-Mail #1", "E-Mail #2", "E-Mail #3"});
    grid.horizontalHeader()->setHighlightSections(false);
    grid.horizontalHeader()->setStretchLastSection(true);
    grid.verticalHeader()->hide();
    grid.verticalHeader()->setDefaultSectionSize(metrics.height() * 3 / 2);
    grid.setMinimumSize(kCharactersShown * metrics.averageCharWidth(), kRowsShown * metrics.height() * 3 / 2);
    grid.setSelectionBehavior(QAbstractItemView::SelectRows);
    grid.setSelectionMode(QAbstractItemView::SingleSelection);
    grid.setEditTriggers(QAbstractItemView::EditKeyPressed);
    grid.setWordWrap(false);
    // Outside a cell's line Tab leads on to the buttons.
    grid.setTabKeyNavigation(false);
    grid.setItemDelegate(cells_);
    txtEdit_->setAccessibleName("Author profile");
    txtEdit_->setFrame(false);
    txtEdit_->setMaxLength(std::numeric_limits<int>::max());
    txtEdit_->hide();
    addFieldPopup(*txtEdit_, mailTo);
}

QLayout* AuthorsPage::buildButtons() {
    auto* buttons = new QHBoxLayout;
    for (auto* button : {Command1_, Command2_, Command5_}) buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(Command6_);
    return buttons;
}

void AuthorsPage::wire() {
    connect(vbAuthorList_, &QTableWidget::cellClicked, this,
            [this](int row, int column) { vbAuthorList_->editItem(vbAuthorList_->item(row, column)); });
    connect(txtEdit_, &CellEdit::textEdited, this, &AuthorsPage::changed);
    connect(txtEdit_, &CellEdit::shown, this, [this](bool isShown) {
        // By a key it opens also where the row is not selected yet.
        if (isShown) vbAuthorList_->selectionModel()->select(vbAuthorList_->currentIndex(), kWholeRow);
        emit takesEnter(isShown);
    });
    connect(Command1_, &QPushButton::clicked, this, &AuthorsPage::addAuthor);
    connect(Command2_, &QPushButton::clicked, this, &AuthorsPage::deleteAuthor);
    connect(Command5_, &QPushButton::clicked, this, &AuthorsPage::setDefault);
    connect(Command6_, &QPushButton::clicked, this, &AuthorsPage::reset);
}

void AuthorsPage::fill(const AuthorList& list) {
    vbAuthorList_->setRowCount(0);
    for (const auto& profile : list.profiles) addRow(profile);
    fitColumns();
    if (list.last >= 0) mark(list.last);
    loaded_ = list.profiles;
}

/// As wide as what stands in them, but no long text pushes the others out of view.
void AuthorsPage::fitColumns() {
    constexpr int kCharactersShown = 28;
    const int most = kCharactersShown * vbAuthorList_->fontMetrics().averageCharWidth();
    vbAuthorList_->resizeColumnsToContents();
    for (int column = 0; column < vbAuthorList_->columnCount(); ++column)
        vbAuthorList_->setColumnWidth(column, std::min(vbAuthorList_->columnWidth(column), most));
}

void AuthorsPage::addRow(const AuthorProfile& profile) {
    const int row = vbAuthorList_->rowCount();
    vbAuthorList_->insertRow(row);
    vbAuthorList_->setItem(row, kNameColumn, new QTableWidgetItem(toQString(profile.name)));
    int column = kFirstAddressColumn;
    for (const auto& address : profile.addresses)
        vbAuthorList_->setItem(row, column++, new QTableWidgetItem(toQString(address)));
}

AuthorList AuthorsPage::shownList() const {
    AuthorList list;
    for (int row = 0; row < vbAuthorList_->rowCount(); ++row) {
        auto& profile = list.profiles.emplace_back();
        profile.name = textAt(*vbAuthorList_, row, kNameColumn);
        int column = kFirstAddressColumn;
        for (auto& address : profile.addresses) address = textAt(*vbAuthorList_, row, column++);
        if (isMarkedCell(*vbAuthorList_->item(row, kNameColumn))) list.last = row;
    }
    return list;
}

int AuthorsPage::selectedRow() const {
    const auto rows = vbAuthorList_->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void AuthorsPage::mark(int row) {
    for (int other = 0; other < vbAuthorList_->rowCount(); ++other)
        markCell(*vbAuthorList_->item(other, kNameColumn), other == row);
}

void AuthorsPage::tell(std::string_view text) {
    MessageBox(this, text, MessageIcon::Exclamation, kTitle);
}

void AuthorsPage::addAuthor() {
    addRow({.name = "New Author", .addresses = {}});
    auto* name = vbAuthorList_->item(vbAuthorList_->rowCount() - 1, kNameColumn);
    vbAuthorList_->setCurrentItem(name);
    vbAuthorList_->editItem(name);
    emit changed();
}

void AuthorsPage::deleteAuthor() {
    const int row = selectedRow();
    if (row < 0) return tell("Must select an author to delete!");
    vbAuthorList_->removeRow(row);
    emit changed();
}

void AuthorsPage::setDefault() {
    const int row = selectedRow();
    if (row < 0) return tell("Must select an author to be default!");
    mark(row);
    emit changed();
}

void AuthorsPage::reset() {
    const auto answer = MessageBox(this, kResetQuestion, MessageIcon::Exclamation, kTitle,
                                   QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes) return;
    if (!storedOrTold(*this, resetAuthorProfiles(store_))) return;
    fill(readAuthorList(store_));
    emit settled();
}

bool AuthorsPage::save() {
    cells_->finishEditing();
    const auto stored = storeAuthorList(store_, shownList(), loaded_);
    if (!stored) return storedOrTold(*this, false);
    const int row = vbAuthorList_->currentRow(), column = vbAuthorList_->currentColumn();
    const bool isSelected = selectedRow() >= 0;
    fill(*stored);
    vbAuthorList_->setCurrentCell(row, column, isSelected ? kWholeRow : QItemSelectionModel::NoUpdate);
    return true;
}

}  // namespace klt
