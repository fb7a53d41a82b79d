#pragma once

#include <QDialog>
#include <QString>
#include <string_view>

#include "text/TextArea.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace klt {

/// Keeps the user informed during a pass. Closing it hides it; the pass goes on.
class frmKLTChecker : public QDialog {
    Q_OBJECT

public:
    explicit frmKLTChecker(QWidget* owner);

    void SetLblCaptions(std::string_view section, std::string_view subsection);
    /// The bar runs from 1 to `max`, the document's lines.
    void SetProgressInfo(Position max);
    void StepIt(Position position);

signals:
    /// The user wants to watch the document, or no longer.
    void lockToggled(bool locked);

private:
    void toggleLock();

    QLabel* lblCurrSection_;
    QLabel* lblCurrSubSection_;
    QProgressBar* vbProgressBar1_;
    QLabel* Label8_;
    QPushButton* cmdToggleLock_;
};

}  // namespace klt
