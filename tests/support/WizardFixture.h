#pragma once

#include <QAbstractButton>
#include <QMenu>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "forms/WizardForm.h"
#include "support/EditorFixture.h"

namespace klt {

/// Wizards in the running program.
class WizardFixture : public EditorFixture {
protected:
    /// Lets `work` press keys in the wizard that opens next, and leaves it.
    void inNextWizard(const std::function<void()>& work) {
        answerNext<WizardForm>([this, work](WizardForm& form) {
            WizardForm* const outer = std::exchange(form_, &form);
            activate(form);
            work();
            if (form.isVisible()) key(Qt::Key_Escape);
            form_ = outer;
        });
    }
    void inWizard(const char* command, const std::function<void()>& work) {
        inNextWizard(work);
        run(command);
    }
    /// The Advantage wizard for a new line.
    void inWizard(const std::function<void()>& work) { inWizard("I1", work); }
    void key(Qt::Key which, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(form_->focusWidget(), which, with);
    }
    void keys(const char* text) { QTest::keyClicks(form_->focusWidget(), text); }
    std::string focus() { return form_->focusWidget()->objectName().toStdString(); }
    /// Types into the fields one after another, from the one that has the focus; "" leaves a field as it is.
    void tabThrough(const std::vector<const char*>& texts) {
        for (const char* const& text : texts) {
            if (&text != &texts.front()) key(Qt::Key_Tab);
            keys(text);
        }
    }
    template <typename Widget>
    Widget& the(const char* name) {
        return *form_->findChild<Widget*>(name);
    }
    void type(const char* control, const char* text) { QTest::keyClicks(&the<QWidget>(control), text); }
    void press(const char* button) { QTest::mouseClick(&the<QAbstractButton>(button), Qt::LeftButton); }
    void done() { press("cmdOK"); }
    /// Clicks with the right button, and lets `work` press keys in the menu that opens.
    static void inPopup(QWidget& at, const std::function<void(QMenu&)>& work) {
        QTest::mouseClick(&at, Qt::RightButton, {}, QPoint(2, 2));
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(popup, nullptr);
        work(*popup);
    }
    /// The keys of a popup's items.
    static QString itemsOf(const QMenu& popup) {
        QString items;
        for (const auto* item : popup.actions())
            items += (item->isSeparator() ? "-" : item->objectName().section('.', 1)) + ' ';
        return items;
    }
    std::string text(const char* field) { return std::string(the<RichTextBox>(field).Text()); }

    WizardForm* form_ = nullptr;
};

}  // namespace klt
