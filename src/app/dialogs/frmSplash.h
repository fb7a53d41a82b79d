#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;

namespace klt {

class Store;

/// Stands in front of all while the program starts. It takes no keys, and a dialog that comes up goes in
/// front of it.
class frmSplash : public QFrame {
    Q_OBJECT

public:
    /// `store` must outlive it.
    explicit frmSplash(Store& store);

protected:
    bool event(QEvent* event) override;

private:
    void stayOnTop(bool on);
    /// What a click on the picture brings out in the about box, for this run.
    void enableDragon();

    Store& store_;
    QLabel* lblDragon_;
    QTimer timer1_;
};

}  // namespace klt
