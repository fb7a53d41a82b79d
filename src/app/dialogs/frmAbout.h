#pragma once

#include <QDialog>
#include <QTimer>

namespace klt {

class Picture;
class Store;

/// Tells the version and the maker's addresses. In a run in which the opening window's picture was clicked
/// its emblem is one that moves.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    explicit frmAbout(Store& store, QWidget* owner = nullptr);

private:
    QLayout* buildTexts();
    QLayout* buildButtons();
    /// The emblem, or the picture that moves.
    Picture* makePicture(Store& store);
    void showThanks();
    void tick();

    Picture* picEasterEgg_ = nullptr;
    QTimer timer1_;
    int frame_ = 1;
};

}  // namespace klt
