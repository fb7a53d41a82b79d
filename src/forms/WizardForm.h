#pragma once

#include <QDialog>
#include <memory>
#include <string_view>

#include "forms/WizardControls.h"
#include "forms/WizardServices.h"
#include "wizards/Wizard.h"

namespace klt {

class RichTextBox;

/// The window of any wizard, made from its table. It decides nothing: the wizard does.
class WizardForm : public QDialog {
    Q_OBJECT

public:
    /// A wizard for a new line fills its lists from the document, whose caret goes to its start; one for
    /// another purpose comes filled. What `services` refers to must outlive the form.
    WizardForm(std::unique_ptr<Wizard> wizard, WizardServices services, QWidget* owner);

    Wizard& wizard() { return *wizard_; }
    /// The field of that name, which must be one of the table's.
    RichTextBox& field(std::string_view name) const;
    /// Whether other windows can be used beside it: one that collects lines and edits those of a document.
    bool isModeless() const;
    /// Where lines are not written yet, comes to the front and asks whether they are to be. False where the
    /// user goes back, or they can't be written.
    bool mayClose();

    /// Brings the controls up to date with the wizard's state, after that was changed by others.
    void showState();

    /// Moves to its place at the first time; a wizard that was opened from one of its kind, to where that
    /// one's title stays in view.
    void setVisible(bool visible) override;
    /// Remembers its place, which is the outermost one's of a kind.
    void done(int result) override;

private:
    void fillLists();
    void wire();
    void wireButton(const WizardControl& control);
    void wireBox(RichTextBox& box);
    void keepLines(bool areLost);
    void click(std::string_view control, int state);
    void changed(std::string_view control);
    void press(std::string_view button);
    void takeBack();
    QWidget& showPage(QWidget& widget);
    void focusOn(std::string_view control);
    bool takesFocus(const QWidget& widget) const;
    void finish();
    void complain(const Complaint& complaint);
    void focusFirst();
    void scrollToPlace() const;
    const WizardForm* outerOfKind() const;
    void moveToPlace();
    QWidget& widget(std::string_view name) const;

    std::unique_ptr<Wizard> wizard_;
    const WizardServices services_;
    WizardControls controls_;
    bool isPlaced_ = false;
    bool isShowing_ = false;
};

/// Finds the box as long as it is there.
AreaLookup lookupOf(RichTextBox& box);

}  // namespace klt
