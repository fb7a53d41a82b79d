// The wizards' windows over long documents, and the dialog of options.

#include <benchmark/benchmark.h>

#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <vector>

#include "OpenEditor.h"
#include "forms/WizardForm.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

/// From the command to the painted dialog, and out of it again. False where none has come up.
bool openAndReject(OpenEditor& open, const char* command) {
    bool isSeen = false;
    QTimer::singleShot(0, qApp, [&isSeen] {
        auto* const form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (form == nullptr) return;
        form->repaint();
        isSeen = true;
        form->reject();
    });
    open.editor().MenuClick(command);
    return isSeen;
}

void openAndCancelWizard(benchmark::State& state, const char* command) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) {
        open.box().SetSelStart(open.box().Find("[ADS]", 0));
        open.box().SetSelStart(open.box().LineIndex(open.box().GetLineFromChar(open.box().SelStart()) + 2));
        if (!openAndReject(open, command)) return state.SkipWithError("the wizard has not come up");
    }
}
BENCHMARK_CAPTURE(openAndCancelWizard, Ad, "I1")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Skill, "I2")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Spell, "I3")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Stat, "I4")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Mod, "I7")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Group, "I6")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Bonus, "I5")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Package, "I9")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Author, "I8")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openAndCancelWizard, Edit, "E6")->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();

void openOptions(benchmark::State& state, const char* command) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state)
        if (!openAndReject(open, command)) return state.SkipWithError("the dialog has not come up");
}
BENCHMARK_CAPTURE(openOptions, General, "T1")->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openOptions, Paths, "T2")->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openOptions, Authors, "T3")->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(openOptions, Format, "T4")->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A wizard over the document, not modal.
class OpenForm {
public:
    OpenForm(OpenEditor& open, const WizardTable& table)
        : form_(makeWizard(table, {.target = [&open] { return &open.box(); }}), open.editor().aids.services(),
                &open.editor().mainWindow()) {
        form_.setModal(false);
        form_.show();
        QApplication::processEvents();
    }
    Wizard& wizard() { return form_.wizard(); }
    void showState() { form_.showState(); }
    RichTextBox& field(const char* name) { return form_.field(name); }
    QPushButton& button(const char* name) { return *form_.findChild<QPushButton*>(name); }
    QPushButton& done() {
        const auto buttons = form_.findChildren<QPushButton*>();
        return **std::ranges::find(buttons, "&Done!", &QPushButton::text);
    }

private:
    WizardForm form_;
};

/// A letter and its deletion, each checked and painted.
void typeInAField(benchmark::State& state, const WizardTable& table, const char* name) {
    OpenEditor open(state);
    OpenForm form(open, table);
    RichTextBox& field = form.field(name);
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
BENCHMARK_CAPTURE(typeInAField, Ad, kAdWizard, "rtbItemNeeds")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(typeInAField, Skill, kSkillWizard, "rtbItemNeeds")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(typeInAField, Spell, kSpellWizard, "SpellPrereq")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(typeInAField, Stat, kStatWizard, "StatBaseValue")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(typeInAField, Mod, kModWizard, "ItemUpto")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(typeInAField, Group, kGroupWizard, "ItemName")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(typeInAField, Bonus, kBonusWizard, "FullItemLine")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(typeInAField, Package, kPackWizard, "Message")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

/// One more line in a package's box of as many, coloured and painted.
void addToPackage(benchmark::State& state) {
    OpenEditor open(state);
    OpenForm form(open, kPackWizard);
    std::string lines;
    for (int i = 0; i < state.range(1); ++i) lines += "ADD=SK:Rowing (Guild) .AT. 12pts\r\n";
    RichTextBox& box = form.field("FullPackage");
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        box.SetText(lines);
        form.field("Message").SetText("Welcome aboard.");
        state.ResumeTiming();
        form.button("Command13").click();
        box.viewport()->repaint();
    }
    if (box.Length() <= static_cast<Position>(lines.size())) state.SkipWithError("no line was added");
}
BENCHMARK(addToPackage)->Args({1, 1'000})->Unit(benchmark::kMillisecond)->UseRealTime();

/// A new line written by the button; `fields` are the required ones, filled each time.
void pressDone(benchmark::State& state, const WizardTable& table, const std::vector<const char*>& fields) {
    OpenEditor open(state);
    OpenForm form(open, table);
    Wizard& wizard = form.wizard();
    if (!table.places.front().option.empty()) wizard.click(table.places.front().option, kOn);
    const auto length = open.box().Length();
    for ([[maybe_unused]] auto _ : state) {
        for (const char* name : fields) wizard.state.setText(name, "Mental 5");
        form.showState();
        form.done().click();
        QApplication::processEvents();
    }
    if (open.box().Length() < length + 10 * state.iterations()) state.SkipWithError("no line was written");
}
using Fields = std::vector<const char*>;
BENCHMARK_CAPTURE(pressDone, Ad, kAdWizard, Fields{"rtbItemName", "rtbItemCost", "cmbAdCat"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pressDone, Skill, kSkillWizard, Fields{"rtbItemName", "cmbItemType", "cmbItemClass"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pressDone, Spell, kSpellWizard, Fields{"SpellName", "SpellCollege"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pressDone, Stat, kStatWizard, Fields{"StatName"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pressDone, Group, kGroupWizard, Fields{"GroupName", "FullGroup"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pressDone, Bonus, kBonusWizard, Fields{"FullBonusLine", "FullBonus"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pressDone, Package, kPackWizard, Fields{"PackName", "PackCat", "FullPackage"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pressDone, Mod, kModWizard, Fields{"ModName", "ModValue", "ModGroup"})
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace klt
