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
    /// The list chooses none before a type is chosen.
    std::string_view section() const {
        if (row_.sectionChosenBy.empty()) return row_.sections.front();
        const int chosen = state_.control(row_.sectionChosenBy).state;
        return chosen < 0 ? std::string_view() : row_.sections[static_cast<size_t>(chosen)];
    }

    bool isBeginning() const {
        return std::ranges::any_of(table_.tabs, [this](const LineTab& tab) {
            return tab.full == row_.name && tab.beginning == box_.Text();
        });
    }

    void colour() {
        highlighter_.SetPreviewFormat(box_);
        if (isBeginning()) return;
        highlighter_.state.SetCurrentSection(section());
        highlighter_.ColourRange(box_, 0, box_.Length());
    }

    RichTextBox& box_;
    const ControlRow& row_;
    const WizardTable& table_;
    const WizardState& state_;
    modKLTSyntaxHighlighter& highlighter_;
};

}  // namespace

void keepColoured(RichTextBox& box, const ControlRow& row, const WizardTable& table, const WizardState& state,
                  modKLTSyntaxHighlighter& highlighter) {
    new LineColours(box, row, table, state, highlighter);
}

}  // namespace klt
