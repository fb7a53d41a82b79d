#pragma once

#include <QDialog>
#include <vector>

#include "app/options/OptionsServices.h"

class QPushButton;
class QTabWidget;

namespace klt {

class FittingArea;
class GeneralPage;
class OptionsPage;

/// The tabs of the dialog, in their order.
enum class OptionsTab : unsigned char { General, Paths, Authors, Format };

/// The one dialog for all settings. `Apply` is enabled while there is something to store.
class frmOptions : public QDialog {
    Q_OBJECT

public:
    /// The result after a reset: the dialog is to be shown anew, on its first tab.
    static constexpr int kReopen = 2;

    explicit frmOptions(OptionsServices services, QWidget* owner = nullptr);

    void showTab(OptionsTab tab);
    /// Gives the focus to the list of the host's versions, and shows it where the screen is too small for
    /// all.
    void focusVersion();

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <typename Page>
    Page& addPage(const char* caption);
    void buildButtons();
    void takeEnter(bool own);
    void apply();
    void finish();
    void tabChanged();
    void resetAll();
    bool saveFirstTabs();

    const OptionsServices services_;
    FittingArea* area_;
    QTabWidget* vbTabControl1;
    QPushButton *Apply, *Cancelbttn, *Done;
    std::vector<OptionsPage*> pages_;
    GeneralPage* general_ = nullptr;
    /// A field inside has Enter and Escape.
    bool fieldTakesEnter_ = false;
};

}  // namespace klt
