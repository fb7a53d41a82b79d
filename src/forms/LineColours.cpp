#include "forms/LineColours.h"

#include <QEvent>
#include <algorithm>

#include "ui/RichTextBox.h"
#include "ui/modKLTSyntaxHighlighter.h"
#include "wizards/WizardState.h"

namespace klt {
namespace {

class LineColours : public QObject {
public:
    LineColours(RichTextBox& box, const ControlRow& row, const WizardTable& table, const WizardState& state,
                modKLTSyntaxHighlighter& highlighter)
        : QObject(&box), box_(box), row_(row), table_(table), state_(state), highlighter_(highlighter) {
        if (row.isColouredAtFocus) {
            box.installEventFilter(this);
        } else {
            connect(&box, &RichTextBox::Change, this, [this] { colour(); });
        }
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) colour();
        return false;
    }

private:
    bool isBeginning() const {
        return std::ranges::any_of(table_.tabs, [this](const LineTab& tab) {
            return tab.full == row_.name && tab.beginning == box_.Text();
        });
    }

    void colour() {
        highlighter_.SetPreviewFormat(box_);
        if (isBeginning()) return;
        highlighter_.state.SetCurrentSection(sectionOfLines(row_, state_));
        highlighter_.ColourRange(box_, 0, box_.Length());
    }

    RichTextBox& box_;
    const ControlRow& row_;
    const WizardTable& table_;
    const WizardState& state_;
    modKLTSyntaxHighlighter& highlighter_;
};

}  // namespace

std::string_view sectionOfLines(const ControlRow& row, const WizardState& state) {
    if (row.sectionChosenBy.empty()) return row.sections.front();
    const int chosen = state.control(row.sectionChosenBy).state;
    return chosen < 0 ? std::string_view() : row.sections[static_cast<size_t>(chosen)];
}

void keepColoured(RichTextBox& box, const ControlRow& row, const WizardTable& table, const WizardState& state,
                  modKLTSyntaxHighlighter& highlighter) {
    new LineColours(box, row, table, state, highlighter);
}

}  // namespace klt
