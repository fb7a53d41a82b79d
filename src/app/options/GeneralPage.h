#pragma once

#include "app/options/BoundSettings.h"
#include "app/options/OptionsPage.h"
#include "app/options/OptionsServices.h"
#include "app/options/SpinField.h"

class QCheckBox;
class QGridLayout;

namespace klt {

class Combo;

/// The tab "General": the settings that are numbers and truths, the host's version, and the buttons that
/// enter the editor into the host's file.
class GeneralPage : public OptionsPage {
    Q_OBJECT

public:
    explicit GeneralPage(const OptionsServices& services, QWidget* parent = nullptr);

    bool save() override;

    /// Whether the version that is chosen is "2.2ß".
    bool isHost22() const;
    void focusVersion();

signals:
    void hostChosen(bool is22);
    void resetWanted();

private:
    void addNumbers(QGridLayout& grid);
    void addChecks(QGridLayout& grid);
    void addLineBreaker(QGridLayout& grid);
    QWidget* buildHost();
    SpinField* addNumber(QGridLayout& grid, const SpinField::Row& row, const char* label,
                         const QString& caption);
    void wire();
    void coupleLineBreaker();
    void breakLines(bool on);
    void chooseHost();
    bool saveRecentFiles();

    const OptionsServices services_;
    BoundSettings bound_;
    SpinField* Text1 = nullptr;
    SpinField* Text2 = nullptr;
    SpinField* Text4 = nullptr;
    SpinField* Text5 = nullptr;
    QCheckBox* Check3 = nullptr;
    QCheckBox* Check4 = nullptr;
    Combo* Combo1 = nullptr;
    /// What is on with `Check4`.
    std::vector<QWidget*> lineBreaker_;
    /// What the two fields held when the focus came to the other one.
    int maximumBefore_ = 0, toleranceBefore_ = 0;
    bool isCoupled_ = false;
};

}  // namespace klt
