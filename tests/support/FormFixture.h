#pragma once

#include <QPointer>

#include "support/EditorFixture.h"

namespace klt {

/// A form in the running program, worked with by keys and clicks. Its controls are found by name.
class FormFixture : public EditorFixture {
protected:
    /// What is worked with from now on.
    void show(QWidget& form) {
        form_ = &form;
        form.show();
        activate(form);
    }
    /// `work` works with the next form of the class that comes up, and Escape closes it where it is still up.
    template <typename Form>
    void meet(const std::function<void()>& work) {
        answerNext<Form>([this, work](Form& form) {
            show(form);
            work();
            if (isUp()) QTest::keyClick(form_, Qt::Key_Escape);
        });
    }
    bool isUp() const { return form_ && form_->isVisible(); }
    template <typename Control = QWidget>
    Control& control(const char* name) {
        return *form_->findChild<Control*>(name);
    }
    QLineEdit& field(const char* name) { return control<QLineEdit>(name); }
    std::string text(const char* name) { return field(name).text().toStdString(); }

    /// Clicks where a check box has its mark.
    void press(const char* name) {
        auto& pressed = control(name);
        QTest::mouseClick(&pressed, Qt::LeftButton, {}, {8, pressed.height() / 2});
    }
    /// An item of a list, a tree or a table, of which not all may be in view.
    template <typename View, typename Item>
    static void pressItem(View& view, Item* item) {
        view.scrollToItem(item);
        const QRect inView = view.visualItemRect(item) & view.viewport()->rect();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, inView.center());
    }
    /// Types into what has the focus: "\t" goes on to the next, "\r" is Enter, "\x1b" Escape.
    void keys(const char* typed) {
        for (; *typed != '\0'; ++typed) QTest::keyClick(form_->window()->focusWidget(), *typed);
    }
    void keys(Qt::Key which) { QTest::keyClick(form_->window()->focusWidget(), which); }
    /// Types over what stands in the field.
    void enter(const char* name, const char* typed) {
        field(name).setFocus();
        field(name).selectAll();
        keys(typed);
    }

    QPointer<QWidget> form_;
};

}  // namespace klt
