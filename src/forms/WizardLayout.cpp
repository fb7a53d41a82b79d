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

#include "ui/QtStrings.h"
#include "wizards/Wizard.h"

namespace klt {
namespace {

constexpr size_t kMostInOneColumn = 4;
constexpr int kMarksInARow = 4;

/// The lines of one frame.
class FrameLayout {
public:
    explicit FrameLayout(QGroupBox& box) : grid_(*new QGridLayout(&box)) {
        grid_.setColumnStretch(kField, 1);
    }

    void add(const WizardControl& control) {
        const bool isMark = control.row.kind == ControlKind::Option || control.row.kind == ControlKind::Check;
        if (isMark) {
            // Checks and options are no one group.
            if (control.row.kind != markKind_) marks_ = nullptr;
            markKind_ = control.row.kind;
            addMark(control.widget);
        } else if (control.row.kind == ControlKind::Button) {
            addButton(control);
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
            marks_ = new QHBoxLayout;
            marks_->addStretch();
            grid_.addLayout(marks_, ++line_, kBefore, 1, kColumns);
        }
        marks_->insertWidget(marks_->count() - 1, &mark);
    }

    void addField(const WizardControl& control) {
        marks_ = nullptr;
        ++line_;
        field_ = control.row.name;
        // Without a label a control takes its place too.
        const bool hasLabel = !control.row.label.empty() || control.row.kind == ControlKind::TextField;
        if (hasLabel) grid_.addWidget(control.before, line_, kBefore);
        grid_.addWidget(&control.widget, line_, hasLabel ? kField : kBefore, 1, hasLabel ? 1 : 2);
        grid_.addWidget(control.behind, line_, kBehind);
        if (control.row.kind != ControlKind::TextBox) return;
        grid_.setRowStretch(line_, 1);
        hasBox_ = true;
    }

    /// A button that writes into the field in front of it stands in its line.
    void addButton(const WizardControl& control) {
        marks_ = nullptr;
        if (control.row.field.empty() || control.row.field != field_) ++line_;
        grid_.addWidget(&control.widget, line_, kButton);
    }

    QGridLayout& grid_;
    QHBoxLayout* marks_ = nullptr;
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
    const int columns = boxes.size() > kMostInOneColumn ? 2 : 1;
    auto* grid = new QGridLayout;
    for (int column = 0; column < columns; ++column) grid->setColumnStretch(column, 1);
    for (size_t i = 0; i < boxes.size(); ++i) {
        const int place = static_cast<int>(i);
        const bool isLastAlone = i + 1 == boxes.size() && place % columns == 0;
        grid->addWidget(boxes[i], place / columns, place % columns, 1, isLastAlone ? columns : 1);
    }
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
        auto* page = new QWidget(tabs);
        page->setLayout(pageLayout(wizard, controls, last));
        tabs->addTab(page, literally(last));
    }
    return tabs;
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
    for (const WizardFrame& frame : controls.frames) layouts.try_emplace(frame.row.name, frame.box);
    for (const WizardControl& control : controls.controls)
        if (!control.row.frame.empty()) layouts.at(control.row.frame).add(control);
    for (auto& [name, layout] : layouts) layout.end();
    alignLabels(controls);

    auto* column = new QVBoxLayout(&form);
    column->addLayout(pageLayout(wizard, controls, {}));
    if (auto* tabs = makeTabs(form, wizard, controls)) column->addWidget(tabs, 1);
    column->addStretch();
    if (!wizard.loss().empty()) column->addWidget(makeNote(form, wizard.loss()));
    column->addLayout(makeButtons(controls));
}

}  // namespace klt
