#include "forms/WizardControls.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <algorithm>

#include "forms/CheckWizardField.h"
#include "forms/LineColours.h"
#include "forms/WizardCombo.h"
#include "forms/WizardServices.h"
#include "ui/CloseParenthesis.h"
#include "ui/CompletionPopup.h"
#include "ui/FieldPopup.h"
#include "ui/QtStrings.h"
#include "ui/RichTextBox.h"
#include "ui/modKLTSyntaxHighlighter.h"
#include "wizards/FieldHelp.h"
#include "wizards/WizardState.h"

namespace klt {
namespace {

constexpr int kFieldWidth = 160;

/// Makes the widget of one row.
class Maker {
public:
    Maker(QWidget& form, const WizardTable& table, WizardState& state, const WizardServices& services)
        : form_(form), table_(table), state_(state), services_(services) {}

    QWidget& widget(const ControlRow& row, QWidget& parent) {
        QWidget& made = bare(row, parent);
        made.setObjectName(toQString(row.name));
        return made;
    }

private:
    QWidget& bare(const ControlRow& row, QWidget& parent) {
        switch (row.kind) {
            case ControlKind::TextField:
            case ControlKind::PlainField:
                return field(row, parent);
            case ControlKind::TextBox:
                return box(row, parent);
            case ControlKind::CategoryCombo:
            case ControlKind::AutoCombo:
            case ControlKind::FixedCombo:
            case ControlKind::List:
                return combo(row, parent);
            case ControlKind::Option:
                return *new QRadioButton(toQString(row.label), &parent);
            case ControlKind::Check:
                return *new QCheckBox(toQString(row.label), &parent);
            case ControlKind::Button:
                break;
        }
        return button(row, parent);
    }

    QWidget& field(const ControlRow& row, QWidget& parent) {
        auto& made = *new RichTextBox(RichTextBox::Kind::Field, &parent);
        made.setMinimumWidth(kFieldWidth);
        made.setWhatsThis(toQString(fieldHelp(row)));
        addFieldPopup(made);
        if (!row.sections.empty()) return lines(made, row);
        if (row.kind == ControlKind::TextField) {
            makeWizardField(made, std::string(row.tag), services_.highlighter, services_.store);
            completeValue(made, row);
        } else {
            services_.highlighter.SetFieldFormat(made);
        }
        return keepText(made, row);
    }

    QWidget& box(const ControlRow& row, QWidget& parent) {
        auto& made = *new RichTextBox(RichTextBox::Kind::Preview, &parent);
        made.setWhatsThis(toQString(fieldHelp(row)));
        // The box of collected lines gets its popup from the form.
        if (row.name != table_.box) addFieldPopup(made);
        if (!row.sections.empty()) return lines(made, row);
        services_.highlighter.SetFieldFormat(made);
        return keepText(made, row);
    }

    QWidget& lines(RichTextBox& made, const ControlRow& row) {
        services_.highlighter.SetPreviewFormat(made);
        pairTypedParentheses(made, services_.store);
        keepColoured(made, row, table_, state_, services_.highlighter);
        made.setLocked(row.isReadOnly);
        if (!row.isReadOnly) completeLines(made, row);
        return keepText(made, row);
    }

    void completeValue(RichTextBox& made, const ControlRow& row) {
        addCompletion(
            made,
            [tag = fieldTag(row.tag)](std::string_view text, size_t caret) {
                return placeInField(text, caret, tag);
            },
            services_.openTexts);
    }

    /// Collected lines are read as those of the section into which they go, not always as they are coloured.
    void completeLines(RichTextBox& made, const ControlRow& row) {
        const bool isCollected = row.name == table_.box;
        addCompletion(
            made,
            [&row, &table = table_, &state = state_, isCollected](std::string_view text, size_t caret) {
                const auto section = isCollected ? table.places.front().section : sectionOfLines(row, state);
                return placeInLines(text, caret, sectionOf(section));
            },
            services_.openTexts);
    }

    /// Behind the check, which puts the case of words right.
    QWidget& keepText(RichTextBox& made, const ControlRow& row) {
        QObject::connect(&made, &RichTextBox::Change, &form_,
                         [&state = state_, &made, name = row.name] { state.setText(name, made.Text()); });
        return made;
    }

    QWidget& combo(const ControlRow& row, QWidget& parent) {
        auto& made = *new WizardCombo(row, state_.control(row.name), services_.store,
                                      services_.SuppressCaretUpdate, &parent);
        made.setWhatsThis(toQString(fieldHelp(row)));
        return made;
    }

    static QWidget& button(const ControlRow& row, QWidget& parent) {
        auto& made = *new QPushButton(toQString(row.label), &parent);
        made.setDefault(row.use == ButtonUse::Done);
        return made;
    }

    QWidget& form_;
    const WizardTable& table_;
    WizardState& state_;
    const WizardServices& services_;
};

QLabel& makeLabel(std::string_view text, QWidget& parent) {
    auto& label = *new QLabel(literally(text), &parent);
    label.setTextFormat(Qt::PlainText);
    label.setVisible(!text.empty());
    return label;
}

bool takesLabel(ControlKind kind) {
    return kind != ControlKind::Option && kind != ControlKind::Check && kind != ControlKind::Button;
}

/// What a screen reader calls it: the caption of its frame, else its tab, and its label unless that says no
/// more.
QString spokenName(const ControlRow& row, const FrameRow& frame, std::string_view caption,
                   std::string_view label) {
    const QString words = toQString(std::string(label).append(labelBehind(row))).simplified();
    const QString place = toQString(caption.empty() ? frame.tab : caption);
    return words.isEmpty() ? place : place + ": " + words;
}

/// What takes no typing is shown all the same.
void showText(RichTextBox& box, const std::string& text, bool isReadOnly) {
    if (box.Text() == text) return;
    box.setLocked(false);
    box.SetText(text);
    box.setLocked(isReadOnly);
}

/// An option is turned off as well: by itself one of a group stays on.
void showMark(QAbstractButton& button, bool isOn) {
    if (button.isChecked() == isOn) return;
    const QSignalBlocker quiet(&button);
    const bool isExclusive = button.autoExclusive();
    button.setAutoExclusive(isExclusive && isOn);
    button.setChecked(isOn);
    button.setAutoExclusive(isExclusive);
}

void showValue(const WizardControl& control, const ControlState& state) {
    QWidget& widget = control.widget;
    if (auto* box = qobject_cast<RichTextBox*>(&widget))
        return showText(*box, state.text, control.row.isReadOnly);
    if (auto* combo = qobject_cast<WizardCombo*>(&widget)) return combo->showState();
    auto* button = qobject_cast<QAbstractButton*>(&widget);
    if (button != nullptr && button->isCheckable()) showMark(*button, state.state == kOn);
}

void showControl(const WizardControl& control, const ControlState& state) {
    showValue(control, state);
    control.widget.setEnabled(state.isEnabled);
    control.widget.setVisible(state.isVisible);
    if (control.before == nullptr) return;
    const bool hasLabel = state.isVisible && !state.label.empty();
    control.before->setText(literally(state.label));
    control.before->setVisible(hasLabel);
    control.behind->setVisible(hasLabel && !labelBehind(control.row).empty());
}

}  // namespace

WizardControls makeControls(QWidget& form, const WizardTable& table, WizardState& state,
                            const WizardServices& services) {
    WizardControls made;
    for (const FrameRow& row : table.frames) {
        auto& box = *new QGroupBox(literally(row.caption), &form);
        box.setObjectName(toQString(row.name));
        made.frames.push_back({row, box});
    }
    Maker maker(form, table, state, services);
    for (const ControlRow& row : table.controls) {
        const auto frame = std::ranges::find_if(
            made.frames, [&row](const WizardFrame& each) { return each.row.name == row.frame; });
        const bool isInFrame = frame != made.frames.end();
        QWidget& parent = isInFrame ? frame->box : form;
        const FrameRow* const frameRow = isInFrame ? &frame->row : nullptr;
        if (takesLabel(row.kind)) {
            QLabel& before = makeLabel(row.label, parent);
            QWidget& widget = maker.widget(row, parent);
            before.setBuddy(&widget);
            before.setObjectName(toQString(row.labelName));
            made.controls.push_back({row, widget, frameRow, &before, &makeLabel(labelBehind(row), parent)});
        } else {
            made.controls.push_back({row, maker.widget(row, parent), frameRow});
        }
    }
    return made;
}

void showState(const WizardControls& controls, const WizardState& state) {
    // Hide before showing: with both visible for a moment the form would grow, and stay so.
    for (size_t i = 0; i < controls.controls.size(); ++i)
        if (!state.controls()[i].isVisible) controls.controls[i].widget.hide();
    for (size_t i = 0; i < controls.controls.size(); ++i) {
        const WizardControl& control = controls.controls[i];
        showControl(control, state.controls()[i]);
        if (control.frame == nullptr) continue;
        const auto& caption = state.frame(control.row.frame).caption;
        control.widget.setAccessibleName(
            spokenName(control.row, *control.frame, caption, state.controls()[i].label));
    }
    // A frame that appears is as large as what it shows by then.
    for (size_t i = 0; i < controls.frames.size(); ++i) {
        const FrameState& frame = state.frames()[i];
        controls.frames[i].box.setTitle(literally(frame.caption));
        controls.frames[i].box.setEnabled(frame.isEnabled);
        controls.frames[i].box.setVisible(frame.isVisible);
    }
}

}  // namespace klt
