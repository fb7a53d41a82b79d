#pragma once

#include <set>
#include <string>
#include <vector>

#include "ui/Combo.h"
#include "wizards/WizardTable.h"

namespace klt {

class Store;
struct ControlState;

/// A combo of a wizard: a face of its state. What is typed goes into the state at once; what the list brings
/// is told by `activated`.
class WizardCombo : public Combo {
    Q_OBJECT

public:
    /// The row says whether it completes what is typed, keeps it, and pairs parentheses. While `isSuppressed`
    /// it does not complete. What it is given must outlive it.
    WizardCombo(const ControlRow& row, ControlState& state, Store& store, const bool& isSuppressed,
                QWidget* parent);

    /// Shows what the state holds.
    void showState();
    /// What leaving the combo does: in a combo that keeps its entries, the text becomes an item.
    void commit();
    /// The list is as wide as its longest item.
    void showPopup() override;

signals:
    /// The state has changed by typing, by a completion, or as the combo was left.
    void stateChanged();

protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void complete();
    /// Keys, wheel and list go on from the item that is chosen: from none where another text was typed over
    /// it.
    void leaveOldItem();

    const ControlRow& row_;
    ControlState& state_;
    Store& store_;
    const bool& isSuppressed_;
    std::vector<std::string> shown_;
    /// The keys that are down and whose press changed the text; their release completes it.
    std::set<quint32> changingKeys_;
};

}  // namespace klt
