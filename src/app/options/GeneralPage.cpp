#include "app/options/GeneralPage.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <algorithm>

#include "app/options/HostButtons.h"
#include "settings/cMRUFileList.h"
#include "ui/Combo.h"
#include "ui/FieldLabel.h"
#include "ui/Named.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

enum Column { kLabel, kField, kBehind, kRest };

constexpr SpinField::Row kRecentFiles{
    "Text1", "VScroll1", 10, 1, "You are not allowed to have more than 9 MRU files.", false};
constexpr SpinField::Row kNested{"Text2", "VScroll2", 100, 0,
                                 "You're not allowed to have more than 100 nested @Functions."};
constexpr SpinField::Row kMaximum{"Text4", "VScroll4", 200, 0,
                                  "Seriously, breaking lines after that much characters is meaningless..."};
constexpr SpinField::Row kTolerance{"Text5", "VScroll5", 20, 0, "Sorry, you're not cleared for this much."};

struct CheckRow {
    const char* name;
    const char* caption;
    const TruthSetting& setting;
    int line;
    int column;
};
constexpr CheckRow kChecks[] = {
    {"Check1", "Use &AutoComplete", settings::kAutoComplete, 0, 0},
    {"Check2", "Automatically Match &Parenthesis", settings::kMatchParenthesis, 1, 0},
    {"Check3", "Show &Status Bar", settings::kShowStatusBar, 2, 0},
    {"Check5", "Check &Syntax when loading the file", settings::kAutoSyntaxCheck, 0, 1},
    {"Check6", "Check &Syntax in Wizards", settings::kWizardSyntaxCheck, 1, 1},
};

}  // namespace

GeneralPage::GeneralPage(const OptionsServices& services, QWidget* parent)
    : OptionsPage(parent), services_(services), bound_(services.store) {
    auto* frame = named<QGroupBox>("frmGeneral", "General");
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(kRest, 1);
    addNumbers(*grid);
    addChecks(*grid);
    addLineBreaker(*grid);
    auto* all = new QVBoxLayout(this);
    all->addWidget(frame);
    all->addWidget(buildHost());
    auto* reset = named<QPushButton>("Command4", "Reset All Settings");
    all->addWidget(reset, 0, Qt::AlignRight);
    all->addStretch();
    connect(reset, &QPushButton::clicked, this, &GeneralPage::resetWanted);
    wire();
}

SpinField* GeneralPage::addNumber(QGridLayout& grid, const SpinField::Row& row, const char* label,
                                  const QString& caption) {
    const int line = grid.rowCount();
    auto* before = named<QLabel>(label, caption);
    auto* number = new SpinField(row);
    before->setBuddy(&number->field());
    number->setAccessibleName(spokenCaption(caption));
    grid.addWidget(before, line, kLabel);
    grid.addWidget(number, line, kField);
    connect(number, &SpinField::edited, this, &GeneralPage::changed);
    return number;
}

void GeneralPage::addNumbers(QGridLayout& grid) {
    Text1 = addNumber(grid, kRecentFiles, "lblMaxFileCount", "Number of files in &MRU list:");
    Text2 = addNumber(grid, kNested, "lblMaximumNested", "Maximum Nested &@Functions:");
    Text1->setValue(services_.recentFiles.MaxFileCount());
    bound_.bind(*Text2, settings::kMaximumNested);
}

void GeneralPage::addChecks(QGridLayout& grid) {
    constexpr int kGap = 24;
    auto* checks = new QGridLayout;
    checks->setHorizontalSpacing(kGap);
    grid.addLayout(checks, grid.rowCount(), kLabel, 1, kRest + 1, Qt::AlignLeft);
    for (const CheckRow& row : kChecks) {
        auto* check = named<QCheckBox>(row.name, row.caption);
        checks->addWidget(check, row.line, row.column);
        bound_.bind(*check, row.setting);
        connect(check, &QCheckBox::toggled, this, &GeneralPage::changed);
        if (&row.setting == &settings::kShowStatusBar) Check3 = check;
    }
}

void GeneralPage::addLineBreaker(QGridLayout& grid) {
    Check4 = named<QCheckBox>("Check4", "&Break Lines Automatically");
    grid.addWidget(Check4, grid.rowCount(), kLabel, 1, kRest + 1, Qt::AlignLeft);
    const auto add = [&](const SpinField::Row& row, const char* label, const QString& caption,
                         const char* behindLabel, const QString& behind) {
        auto* number = addNumber(grid, row, label, caption);
        auto* unit = named<QLabel>(behindLabel, behind);
        number->setAccessibleName(spokenCaption(caption) + " (" + behind + ")");
        const int line = grid.rowCount() - 1;
        grid.addWidget(unit, line, kBehind);
        lineBreaker_.insert(lineBreaker_.end(), {grid.itemAtPosition(line, kLabel)->widget(), number, unit});
        return number;
    };
    Text4 =
        add(kMaximum, "lblMaximumLength", "&If the line is greater than:", "lblMaximumUnit", "characters");
    Text5 = add(kTolerance, "lblTolerance", "Break &up to:", "lblToleranceUnit", "characters before that");
    bound_.bind(*Text4, settings::kLineBreakerMaximum);
    bound_.bind(*Text5, settings::kLineBreakerTolerance);
}

QWidget* GeneralPage::buildHost() {
    constexpr int kCharactersShown = 8;
    auto* frame = named<QGroupBox>("frmTVMRelated", "TVM Related");
    auto* grid = new QGridLayout(frame);
    auto* label = named<QLabel>("lblTVMVersion", "TVM &Version:");
    Combo1 = named<Combo>("Combo1", TypedText::None);
    for (const auto version : settings::kTvmVersions) Combo1->addItem(toQString(version));
    Combo1->setMinimumContentsLength(kCharactersShown);
    Combo1->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    label->setBuddy(Combo1);
    Combo1->setAccessibleName(spokenCaption(label->text()));
    bound_.bind(*Combo1, settings::kTvmVersion);
    grid->addWidget(label, 0, 0);
    grid->addWidget(Combo1, 0, 1);
    grid->setColumnStretch(2, 1);
    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const char* name, const char* caption, const HostList& list) {
        auto* button = named<QPushButton>(name, caption);
        buttons->addWidget(button);
        button->setEnabled(isHost22());
        connect(this, &GeneralPage::hostChosen, button, &QWidget::setEnabled);
        connect(button, &QPushButton::clicked, this,
                [this, &list] { enterIntoHost(*window(), services_.store, list); });
    };
    addButton("Command7", "Add KLT Editor to Add-Ons menu", kHostAddOns);
    addButton("Command8", "Add KLT Editor to the Toolbar", kHostToolbar);
    buttons->addStretch();
    grid->addLayout(buttons, 1, 0, 1, 3);
    return frame;
}

void GeneralPage::wire() {
    // What is stored may go against the rules.
    const bool breaks = Text4->value() > 0;
    Text4->setValue(std::max(Text4->value(), Text5->value()));
    Check4->setChecked(breaks);
    if (!breaks) breakLines(false);
    connect(Check4, &QCheckBox::toggled, this, [this](bool on) {
        breakLines(on);
        emit changed();
    });
    connect(Combo1, &Combo::activated, this, &GeneralPage::chooseHost);
    coupleLineBreaker();
}

void GeneralPage::coupleLineBreaker() {
    isCoupled_ = true;
    connect(&Text4->field(), &NumberEdit::entered, this, [this] { toleranceBefore_ = Text5->value(); });
    connect(&Text5->field(), &NumberEdit::entered, this, [this] { maximumBefore_ = Text4->value(); });
    connect(Text4, &SpinField::valueChanged, this, [this](int maximum) {
        if (!isCoupled_) return;
        if (maximum == 0) return Check4->setChecked(false);
        Text5->setValue(std::min(maximum, Text4->field().isEntered() ? toleranceBefore_ : Text5->value()));
    });
    connect(Text5, &SpinField::valueChanged, this, [this](int tolerance) {
        if (!isCoupled_) return;
        Text4->setValue(std::max(tolerance, Text5->field().isEntered() ? maximumBefore_ : Text4->value()));
    });
}

void GeneralPage::breakLines(bool on) {
    const QScopedValueRollback apart(isCoupled_, false);
    if (!on && (Text4->isAncestorOf(focusWidget()) || Text5->isAncestorOf(focusWidget()))) Check4->setFocus();
    for (QWidget* widget : lineBreaker_) widget->setEnabled(on);
    Text4->setValue(on ? settings::kLineBreakerMaximum.fallback : 0);
    Text5->setValue(on ? settings::kLineBreakerTolerance.fallback : 0);
}

void GeneralPage::chooseHost() {
    emit hostChosen(isHost22());
    emit changed();
}

bool GeneralPage::isHost22() const {
    return Combo1->currentIndex() == 1;
}

void GeneralPage::focusVersion() {
    Combo1->setFocus();
}

bool GeneralPage::save() {
    for (auto* number : {Text1, Text2, Text4, Text5}) number->settle();
    const cMRUFileList before = services_.recentFiles;
    if (!services_.store.together([this] { return saveRecentFiles() && bound_.save(); })) {
        services_.recentFiles = before;
        return storedOrTold(*this, false);
    }
    services_.recentFilesChanged();
    services_.showStatusBar(Check3->isChecked());
    return true;
}

/// Loaded anew: another editor may have added to the list.
bool GeneralPage::saveRecentFiles() {
    auto registry = recentFilesRegistry(services_.store);
    services_.recentFiles.Load(registry);
    services_.recentFiles.MaxFileCount(Text1->value());
    return services_.recentFiles.Save(registry);
}

}  // namespace klt
