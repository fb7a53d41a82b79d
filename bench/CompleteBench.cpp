// The list of Ctrl+Space, with names of a long document.

#include <benchmark/benchmark.h>

#include <QAction>

#include "OpenEditor.h"

namespace klt {
namespace {

void press(QWidget& widget, Qt::Key key, const QString& text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
    QApplication::processEvents();
}

QWidget* openList(OpenEditor& open) {
    open.editor().mainWindow().findChild<QAction*>("Complete")->trigger();
    QApplication::processEvents();
    return QApplication::activePopupWidget();
}

/// Puts the beginning of a name where it is wanted, in the middle of the document.
void typeName(OpenEditor& open, std::string_view typed) {
    open.box().SetSelText("\r\n[ADS]\r\nBench, 5, needs(SK:" + std::string(typed) + ")\r\n");
    open.box().SetSelStart(open.box().SelStart() - 3);
    QApplication::processEvents();
}

/// From the key to the painted list, right behind an edit. The first argument is the document's size, the
/// second whether a letter is typed of the name.
void completeNames(benchmark::State& state) {
    OpenEditor open(state);
    typeName(open, state.range(1) == 0 ? "" : "C");
    for ([[maybe_unused]] auto _ : state) {
        auto* const list = openList(open);
        if (list == nullptr) return state.SkipWithError("the list has not come up");
        state.PauseTiming();
        press(*list, Qt::Key_Escape, {});
        press(open.box(), Qt::Key_B, "b");
        press(open.box(), Qt::Key_Backspace, {});
        state.ResumeTiming();
    }
}
BENCHMARK(completeNames)
    ->Args({10, 0})
    ->Args({50, 0})
    ->Args({50, 1})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// A letter that narrows the list, and its deletion.
void narrowNames(benchmark::State& state) {
    OpenEditor open(state);
    typeName(open, "C");
    auto* const list = openList(open);
    if (list == nullptr) return state.SkipWithError("the list has not come up");
    for ([[maybe_unused]] auto _ : state) {
        press(*list, Qt::Key_R, "r");
        press(*list, Qt::Key_Backspace, {});
    }
    press(*list, Qt::Key_Escape, {});
}
BENCHMARK(narrowNames)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A word of the vocabulary, for which no document is read but the line.
void completeWords(benchmark::State& state) {
    OpenEditor open(state);
    open.box().SetSelText("\r\n[ADS]\r\nBench, 5, ne\r\n");
    open.box().SetSelStart(open.box().SelStart() - 2);
    for ([[maybe_unused]] auto _ : state) {
        auto* const list = openList(open);
        if (list == nullptr) return state.SkipWithError("the list has not come up");
        state.PauseTiming();
        press(*list, Qt::Key_Escape, {});
        state.ResumeTiming();
    }
}
BENCHMARK(completeWords)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace klt
