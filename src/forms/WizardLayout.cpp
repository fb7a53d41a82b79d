#include "forms/WizardLayout.h"

#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStylePainter>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <map>
#include <utility>

#include "forms/FittingArea.h"
#include "ui/QtStrings.h"
#include "wizards/Wizard.h"

namespace klt {
namespace {

constexpr size_t kMostInOneColumn = 4;
constexpr int kMarksInARow = 4;

/// The lines of one frame.
class FrameLayout {
public:
    FrameLayout(QGroupBox& box, const WizardControls& controls)
        : controls_(controls), grid_(*new QGridLayout(&box)) {
        grid_.setColumnStretch(kField, 1);
    }

    void add(const WizardControl& control) {
        const bool isMark = control.row.kind == ControlKind::Option || control.row.kind == ControlKind::Check;
        if (isMark) {
            // Checks and options are no one group.
            if (control.row.kind != markKind_) marks_ = nullptr;
            markKind_ = control.row.kind;
            addMark(control.widget);
        } else if (control.row.kind == ControlKind::Button && control.row.use == ButtonUse::Own) {
            addOwnButton(control.widget);
        } else if (control.row.kind == ControlKind::Button) {
            addButton(control);
        } else if (control.row.kind == ControlKind::TextBox) {
            addBox(control);
        } else {
            addField(control);
        }
    }

    /// In a frame that is higher than its lines they stand at its top.
    void end() {
        if (!hasBox_) grid_.setRowStretch(line_ + 1, 1);
    }

private:
    enum Column { kBefore, kField, kBehind, kButton, kColumns };

    void addMark(QWidget& mark) {
        if (marks_ == nullptr || marks_->count() == kMarksInARow + 1) {
            buttons_ = nullptr;
            marks_ = new QHBoxLayout;
            marks_->addStretch();
            grid_.addLayout(marks_, ++line_, kBefore, 1, kColumns);
        }
        marks_->insertWidget(marks_->count() - 1, &mark);
    }

    /// Those that follow each other share a line.
    void addOwnButton(QWidget& button) {
        marks_ = nullptr;
        if (buttons_ == nullptr) {
            buttons_ = new QHBoxLayout;
            buttons_->addStretch();
            grid_.addLayout(buttons_, ++line_, kBefore, 1, kColumns);
        }
        buttons_->addWidget(&button);
    }

    /// With its label above it.
    void addBox(const WizardControl& control) {
        startLine();
        if (!control.row.label.empty()) grid_.addWidget(control.before, line_++, kBefore, 1, kColumns);
        grid_.addWidget(&control.widget, line_, kBefore, 1, kColumns);
        grid_.setRowStretch(line_, 1);
        hasBox_ = true;
    }

    void addField(const WizardControl& control) {
        startLine();
        field_ = control.row.name;
        // Where nothing stands in front or behind, a control takes that place too.
        const bool hasLabel = !control.row.label.empty() || !control.row.labelName.empty();
        const int first = hasLabel ? kField : kBefore;
        const int last = hasAid(control) || !labelBehind(control.row).empty() ? kField : kButton;
        if (hasLabel) grid_.addWidget(control.before, line_, kBefore);
        grid_.addWidget(&control.widget, line_, first, 1, last - first + 1);
        if (last == kField) grid_.addWidget(control.behind, line_, kBehind);
    }

    bool hasAid(const WizardControl& control) const {
        return std::ranges::any_of(controls_.controls, [&control](const WizardControl& each) {
            return each.row.field == control.row.name;
        });
    }

    /// A button that writes into the field in front of it stands in its line.
    void addButton(const WizardControl& control) {
        if (control.row.field.empty() || control.row.field != field_) startLine();
        grid_.addWidget(&control.widget, line_, kButton);
    }

    void startLine() {
        marks_ = nullptr;
        buttons_ = nullptr;
        ++line_;
    }

    const WizardControls& controls_;
    QGridLayout& grid_;
    QHBoxLayout* marks_ = nullptr;
    QHBoxLayout* buttons_ = nullptr;
    ControlKind markKind_ = ControlKind::Option;
    std::string_view field_ = {};
    int line_ = -1;
    bool hasBox_ = false;
};

/// The frames of the form itself or of one tab, without those that never show: they would leave holes.
QLayout* pageLayout(const Wizard& wizard, const WizardControls& controls, std::string_view tab) {
    std::vector<QGroupBox*> boxes;
    for (const WizardFrame& frame : controls.frames)
        if (frame.row.tab == tab && wizard.canShow(frame.row.name)) boxes.push_back(&frame.box);
    // On a tab frames come and go, which would leave holes.
    const int columns = tab.empty() && boxes.size() > kMostInOneColumn ? 2 : 1;
    auto* grid = new QGridLayout;
    for (int column = 0; column < columns; ++column) grid->setColumnStretch(column, 1);
    for (size_t i = 0; i < boxes.size(); ++i) {
        const int place = static_cast<int>(i);
        const bool isLastAlone = i + 1 == boxes.size() && place % columns == 0;
        grid->addWidget(boxes[i], place / columns, place % columns, 1, isLastAlone ? columns : 1);
    }
    const bool hasBox = std::ranges::any_of(controls.controls, [tab](const WizardControl& each) {
        return each.row.kind == ControlKind::TextBox && each.frame->tab == tab;
    });
    if (!tab.empty() && !hasBox) grid->setRowStretch(grid->rowCount(), 1);
    return grid;
}

/// The fields of different frames begin at one place.
void alignLabels(const WizardControls& controls) {
    int width = 0;
    for (const WizardControl& control : controls.controls)
        if (control.before != nullptr) width = std::max(width, control.before->sizeHint().width());
    for (const WizardControl& control : controls.controls)
        if (control.before != nullptr) control.before->setMinimumWidth(width);
}

QTabWidget* makeTabs(QDialog& form, const Wizard& wizard, const WizardControls& controls) {
    QTabWidget* tabs = nullptr;
    std::string_view last;
    for (const WizardFrame& frame : controls.frames) {
        if (frame.row.tab.empty() || frame.row.tab == last) continue;
        last = frame.row.tab;
        if (tabs == nullptr) tabs = new QTabWidget(&form);
        tabs->setObjectName("vbTabControl1");
        // All of them are to be seen.
        tabs->setUsesScrollButtons(false);
        auto* page = new QWidget(tabs);
        page->setObjectName(QString("Picture1(%1)").arg(tabs->count()));
        page->setLayout(pageLayout(wizard, controls, last));
        tabs->addTab(page, literally(last));
    }
    return tabs;
}

/// The bar of the tabs comes in front of what stands on them.
void orderTabs(const WizardControls& controls, QTabWidget& tabs) {
    QWidget* last = nullptr;
    bool isBarPlaced = false;
    const auto follow = [&last](QWidget& next) {
        if (last != nullptr) QWidget::setTabOrder(last, &next);
        last = &next;
    };
    for (const WizardControl& control : controls.controls) {
        if (control.frame != nullptr && !control.frame->tab.empty() && !std::exchange(isBarPlaced, true))
            follow(tabs);
        follow(control.widget);
    }
}

QLayout* makeButtons(const WizardControls& controls) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (const WizardControl& control : controls.controls)
        if (control.row.frame.empty()) row->addWidget(&control.widget);
    return row;
}

/// One line that stays as long as the form. However long it is, it has no say in the form's width.
class NoteLine : public QLabel {
public:
    NoteLine(std::string_view text, QWidget* parent) : QLabel(toQString(text), parent) {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        setToolTip(Qt::convertFromPlainText(this->text()));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        painter.drawItemText(rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                             foregroundRole());
    }
};

QLabel* makeNote(QDialog& form, std::string_view text) {
    auto* note = new NoteLine(text, &form);
    note->setObjectName("LineLoss");
    return note;
}

}  // namespace

void layOut(QDialog& form, const Wizard& wizard, const WizardControls& controls) {
    std::map<std::string_view, FrameLayout> layouts;
    for (const WizardFrame& frame : controls.frames) layouts.try_emplace(frame.row.name, frame.box, controls);
    for (const WizardControl& control : controls.controls)
        if (!control.row.frame.empty()) layouts.at(control.row.frame).add(control);
    for (auto& [name, layout] : layouts) layout.end();
    alignLabels(controls);

    auto* area = new FittingArea(&form);
    auto* content = new QWidget(area);
    auto* frames = new QVBoxLayout(content);
    frames->setContentsMargins(0, 0, 0, 0);
    frames->addLayout(pageLayout(wizard, controls, {}));
    if (auto* tabs = makeTabs(form, wizard, controls)) {
        frames->addWidget(tabs, 1);
        orderTabs(controls, *tabs);
    }
    frames->addStretch();
    area->setWidget(content);

    auto* column = new QVBoxLayout(&form);
    column->addWidget(area, 1);
    if (!wizard.loss().empty()) column->addWidget(makeNote(form, wizard.loss()));
    column->addLayout(makeButtons(controls));
}

}  // namespace klt
