#pragma once

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace klt {

/// Names those whose work the program uses, with what came from them and where they are found.
class frmThanks : public QDialog {
    Q_OBJECT

public:
    explicit frmThanks(QWidget* owner = nullptr);

private:
    void fill();
    void buildLayout();
    void showContributor(int row);
    void openSelected();
    int textHeight(int width) const;

    QListWidget *lstContributor_, *lstURL_;
    QLabel* lblDescription_;
    QPushButton *cmdMailTo_, *cmdOK_;
};

}  // namespace klt
