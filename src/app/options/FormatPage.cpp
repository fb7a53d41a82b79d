#include "app/options/FormatPage.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

#include "app/options/ColourIcon.h"
#include "settings/Conversions.h"
#include "settings/EditorFormat.h"
#include "ui/Combo.h"
#include "ui/FieldLabel.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"
#include "ui/StyleTable.h"
#include "ui/TextFormats.h"

namespace klt {
namespace {

/// What a colour is called where it can't be seen, by its index.
constexpr std::array kColourNames = {
    "black",  "dark blue", "dark green", "dark cyan", "dark red", "dark magenta", "dark yellow",
    "silver", "grey",      "blue",       "green",     "cyan",     "red",          "magenta",
    "yellow", "lavender",  "orange",     "azure",     "violet",
};

constexpr std::array<std::string_view, 2> kEffects = {"Bold", "Italic"};

QColor colourOf(Rgb rgb) {
    return {rgb.red, rgb.green, rgb.blue};
}

QString descriptionOf(size_t category) {
    return QString(kStyleDefaults.at(category).description).remove('\r');
}

}  // namespace

FormatPage::FormatPage(const OptionsServices& services, QWidget* parent)
    : OptionsPage(parent),
      services_(services),
      vbCodeColors_(named<QListWidget>("vbCodeColors")),
      chkEffects_{named<QCheckBox>("chkEffects(0)", "&Bold"), named<QCheckBox>("chkEffects(1)", "&Italic")},
      excmbColor_(named<Combo>("excmbColor", TypedText::None)),
      Label5_(named<QLabel>("Label5", "Sample Text")),
      Picture2_(named<QFrame>("Picture2")),
      lblInfo_(named<QLabel>("lblInfo")),
      Command9_(named<QPushButton>("Command9", "&Reset defaults")) {
    setObjectName("FormatPage");
    for (const auto category : kStyleCategoryNames) vbCodeColors_->addItem(toQString(category));
    fillColours();
    buildLayout();
    wire();
    vbCodeColors_->setCurrentRow(0);
}

void FormatPage::fillColours() {
    const int height = fontMetrics().height();
    excmbColor_->setIconSize({2 * height, height});
    for (size_t index = 0; index < kColourNames.size(); ++index) {
        const auto entry = QString("%1").arg(index, 2, 10, QChar('0'));
        const int row = static_cast<int>(index);
        excmbColor_->addItem(colourIcon(colourOf(ColourIndexToRgb(row))), entry);
        excmbColor_->setItemData(row, entry + ", " + kColourNames.at(index), Qt::AccessibleTextRole);
    }
}

QWidget* FormatPage::buildSample() {
    auto* frame = new QGroupBox("Sample");
    // As the documents' own paper, whatever the desktop's palette.
    QPalette paper = Picture2_->palette();
    paper.setColor(QPalette::Window, Qt::white);
    Picture2_->setPalette(paper);
    Picture2_->setAutoFillBackground(true);
    Picture2_->setFrameShape(QFrame::StyledPanel);
    Label5_->setAlignment(Qt::AlignCenter);
    auto* inside = new QVBoxLayout(Picture2_);
    inside->addWidget(Label5_);
    auto* around = new QVBoxLayout(frame);
    around->addWidget(Picture2_);
    return frame;
}

QWidget* FormatPage::buildFrame() {
    auto* frame = new QGroupBox("Data File &Styles");
    vbCodeColors_->setAccessibleName("Data File Styles");
    vbCodeColors_->setMinimumHeight(static_cast<int>(kStyleCategoryNames.size()) *
                                        vbCodeColors_->sizeHintForRow(0) +
                                    2 * vbCodeColors_->frameWidth());
    vbCodeColors_->setMinimumWidth(vbCodeColors_->sizeHintForColumn(0) + 2 * fontMetrics().height());
    auto* colour = fieldLabel("&Text Color:", *excmbColor_);
    auto* sides = new QHBoxLayout(frame);
    auto* controls = new QVBoxLayout;
    for (auto* effect : chkEffects_) controls->addWidget(effect);
    controls->addSpacing(fontMetrics().height() / 2);
    controls->addWidget(colour);
    controls->addWidget(excmbColor_);
    controls->addSpacing(fontMetrics().height() / 2);
    controls->addWidget(buildSample());
    controls->addStretch();
    controls->addWidget(Command9_);
    sides->addWidget(vbCodeColors_, 3);
    sides->addLayout(controls, 2);
    return frame;
}

void FormatPage::buildLayout() {
    constexpr int kCharactersInALine = 70;
    const QRect line(0, 0, kCharactersInALine * fontMetrics().averageCharWidth(), 0);
    int height = 0;
    for (size_t category = 0; category < kStyleDefaults.size(); ++category)
        height = std::max(
            height, fontMetrics().boundingRect(line, Qt::TextWordWrap, descriptionOf(category)).height());
    lblInfo_->setTextFormat(Qt::PlainText);
    lblInfo_->setWordWrap(true);
    lblInfo_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblInfo_->setMinimumSize(line.width(), height);
    auto* all = new QVBoxLayout(this);
    all->addWidget(buildFrame(), 1);
    all->addWidget(lblInfo_);
}

void FormatPage::wire() {
    connect(vbCodeColors_, &QListWidget::currentRowChanged, this, &FormatPage::showRow);
    for (size_t effect = 0; effect < kEffects.size(); ++effect)
        connect(chkEffects_.at(effect), &QCheckBox::clicked, this,
                [this, effect](bool isOn) { write(kEffects.at(effect), truthText(isOn)); });
    connect(excmbColor_, &Combo::activated, this,
            [this](int index) { write("Color", std::to_string(index)); });
    connect(Command9_, &QPushButton::clicked, this, [this] {
        const bool isStored = services_.store.together([this] {
            resetEditorFormat(services_.store);
            return true;
        });
        showRow();
        storedOrTold(*this, isStored);
    });
}

StyleCategory FormatPage::category() const {
    return static_cast<StyleCategory>(vbCodeColors_->currentRow());
}

void FormatPage::showRow() {
    lblInfo_->setText(descriptionOf(static_cast<size_t>(category())));
    const auto stored = readStyle(services_.styles, category());
    chkEffects_[0]->setChecked(stored.bold);
    chkEffects_[1]->setChecked(stored.italic);
    const bool isOfTable = stored.colourIndex >= 0 && stored.colourIndex < excmbColor_->count();
    excmbColor_->setCurrentIndex(isOfTable ? stored.colourIndex : -1);
    excmbColor_->setAccessibleDescription(isOfTable ? kColourNames.at(static_cast<size_t>(stored.colourIndex))
                                                    : kColourNames.front());

    const auto textFont = documentFont();
    constexpr int kTwipsPerPoint = 20;
    QFont font(textFont.family, textFont.twips / kTwipsPerPoint);
    font.setBold(stored.bold);
    font.setItalic(stored.italic);
    Label5_->setFont(font);
    QPalette ink = Label5_->palette();
    ink.setColor(QPalette::WindowText, colourOf(stored.style().colour));
    Label5_->setPalette(ink);
}

void FormatPage::write(std::string_view key, std::string_view value) {
    const bool isStored = services_.styles.SaveSetting(styleCategoryName(category()), key, value);
    showRow();
    storedOrTold(*this, isStored);
}

}  // namespace klt
