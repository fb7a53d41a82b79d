// The wizards' windows over long documents.

#include <benchmark/benchmark.h>

#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

#include "OpenEditor.h"
#include "forms/WizardForm.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

/// From the command to the painted form, and out of it again.
void openAndCancelWizard(benchmark::State& state, const char* command) {
    OpenEditor open(state);
    int seen = 0;
    for ([[maybe_unused]] auto _ : state) {
        open.box().SetSelStart(open.box().Find("[ADS]", 0));
        open.box().SetSelStart(open.box().LineIndex(open.box().GetLineFromChar(open.box().SelStart()) + 2));
        QTimer::singleShot(0, qApp, [&seen] {
            auto* const form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (form == nullptr) return;
            form->repaint();
            ++seen;
            form->reject();
        });
        open.editor().MenuClick(command);
    }
    if (seen != state.iterations()) state.SkipWithError("the wizard has not come up");
}
BENCHMARK_CAPTURE(openAndCancelWizard, New, "I1")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Edit, "E6")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A wizard over the document, not modal.
class OpenForm {
public:
    explicit OpenForm(OpenEditor& open)
        : form_(std::make_unique<Wizard>(kAdWizard,
                                         Opening{OpeningMode::Insert, [&open] { return &open.box(); }}),
                open.editor().aids.services(), &open.editor().mainWindow()) {
        form_.setModal(false);
        form_.show();
        QApplication::processEvents();
    }
    RichTextBox& field(const char* name) { return form_.field(name); }
    template <typename Widget>
    Widget& the(const char* name) {
        return *form_.findChild<Widget*>(name);
    }

private:
    WizardForm form_;
};

/// A letter and its deletion, each checked and painted.
void typeInAField(benchmark::State& state) {
    OpenEditor open(state);
    OpenForm form(open);
    RichTextBox& field = form.field("rtbItemNeeds");
    std::string text = "IQ>=11";
    while (text.size() < 200) text += ", SK:Rowing>=@MAX(8, ST)";
    field.SetText(text);
    for ([[maybe_unused]] auto _ : state) {
        for (const auto& [key, letter] : {std::pair(Qt::Key_X, "x"), std::pair(Qt::Key_Backspace, "")}) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, letter);
            QApplication::sendEvent(&field, &event);
            field.viewport()->repaint();
        }
    }
    if (field.Text() != text) state.SkipWithError("the keys have not arrived");
}
BENCHMARK(typeInAField)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// A new line written by the button.
void pressDone(benchmark::State& state) {
    OpenEditor open(state);
    OpenForm form(open);
    form.the<QAbstractButton>("optAdType").click();
    form.the<QComboBox>("cmbAdCat").setEditText("Mental");
    const auto length = open.box().Length();
    for ([[maybe_unused]] auto _ : state) {
        form.field("rtbItemName").SetText("Sea Legs");
        form.field("rtbItemCost").SetText("5");
        form.the<QAbstractButton>("cmdOK").click();
        QApplication::processEvents();
    }
    if (open.box().Length() < length + 11 * state.iterations()) state.SkipWithError("no line was written");
}
BENCHMARK(pressDone)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace klt
