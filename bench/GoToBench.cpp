// The field of Ctrl+G over a long document.

#include <benchmark/benchmark.h>

#include <QAction>

#include "OpenEditor.h"

namespace klt {
namespace {

QWidget* openField(OpenEditor& open) {
    open.editor().mainWindow().findChild<QAction*>("GoTo")->trigger();
    QApplication::processEvents();
    return QApplication::activePopupWidget();
}

/// From the key to the painted list.
void openGoTo(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) {
        auto* const field = openField(open);
        if (field == nullptr) return state.SkipWithError("the field has not come up");
        state.PauseTiming();
        field->close();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(openGoTo)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();

void press(QWidget& widget, Qt::Key key, const QString& text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
    QApplication::processEvents();
}

/// A letter that most rows hold, until list and text are painted, and its deletion.
void filterGoTo(benchmark::State& state) {
    OpenEditor open(state);
    auto* const field = openField(open);
    if (field == nullptr) return state.SkipWithError("the field has not come up");
    QWidget& line = *field->focusWidget();
    for ([[maybe_unused]] auto _ : state) {
        press(line, Qt::Key_E, "e");
        press(line, Qt::Key_Backspace, {});
    }
    field->close();
}
BENCHMARK(filterGoTo)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace klt
