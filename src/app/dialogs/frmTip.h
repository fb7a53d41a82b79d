#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;

namespace klt {

class Store;

/// Shows one tip after the other, beginning with the one at which the user left, and remembers where it was
/// closed and whether a start shall show it.
class frmTip : public QDialog {
    Q_OBJECT

public:
    /// `store` must outlive it.
    explicit frmTip(Store& store, QWidget* owner = nullptr);

    void done(int result) override;

private:
    void buildLayout();
    void step(int tip);
    void DisplayCurrentTip();
    /// What the longest tip needs, so that no step moves the buttons.
    int textHeight(int width) const;

    Store& store_;
    QLabel *lblHeading_, *lblTipText_;
    QCheckBox* chkLoadTipsAtStartup_;
    QPushButton *cmdPreviousTip_, *cmdNextTip_, *cmdOK_;
    /// One without a text may have been stored.
    int current_;
};

/// Whether a start shows the tips.
bool tipsAreWanted(Store& store);

}  // namespace klt
