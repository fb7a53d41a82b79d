#pragma once

#include <array>
#include <string_view>

#include "app/options/OptionsPage.h"
#include "app/options/OptionsServices.h"
#include "language/StyleCategory.h"

class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace klt {

class Combo;

/// How each category of text looks. What is changed is stored at once, and documents show it at their next
/// pass.
class FormatPage : public OptionsPage {
    Q_OBJECT

public:
    explicit FormatPage(const OptionsServices& services, QWidget* parent = nullptr);

    /// Nothing is left to be stored.
    bool save() override { return true; }

private:
    void fillColours();
    QWidget* buildSample();
    QWidget* buildFrame();
    void buildLayout();
    void wire();

    StyleCategory category() const;
    /// Shows what is stored of the chosen category.
    void showRow();
    void write(std::string_view key, std::string_view value);

    OptionsServices services_;
    QListWidget* vbCodeColors_;
    std::array<QCheckBox*, 2> chkEffects_;
    Combo* excmbColor_;
    QLabel* Label5_;
    QFrame* Picture2_;
    QLabel* lblInfo_;
    QPushButton* Command9_;
};

}  // namespace klt
