// A coloured document in its window: the pass on command, a key and a move of the caret, each until painted.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <filesystem>
#include <fstream>

#include "Application.h"
#include "SampleText.h"
#include "app/Editor.h"
#include "app/frmKLTEditor.h"
#include "settings/Store.h"

namespace klt {
namespace {

namespace fs = std::filesystem;

/// An editor over an empty store with one document of so many megabytes open and coloured.
class OpenEditor {
public:
    explicit OpenEditor(const benchmark::State& state)
        : folder_(fs::temp_directory_path() / ("klt-bench-colour-" + std::to_string(getpid()))) {
        bench::needApplication();
        fs::create_directories(folder_);
        setenv("XDG_CONFIG_HOME", folder_.c_str(), 1);
        const fs::path file = folder_ / "sample.klt";
        std::ofstream(file, std::ios::binary)
            << bench::sampleText(static_cast<size_t>(state.range(0)) * 1'000'000);
        store_ = std::make_unique<Store>();
        editor_ = std::make_unique<Editor>(*store_, nullptr, "");
        editor_->documents.openFiles({file.string()});
        box().SetSelStart(box().LineIndex(box().LineCount() / 2));
        box().ScrollCaret();
        QApplication::processEvents();
    }
    ~OpenEditor() {
        editor_.reset();
        fs::remove_all(folder_);
    }
    OpenEditor(const OpenEditor&) = delete;
    OpenEditor& operator=(const OpenEditor&) = delete;

    Editor& editor() { return *editor_; }
    RichTextBox& box() { return *editor_->mainWindow().ActiveForm()->RichTextBox1; }
    void press(int key, const QString& text = {}) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QApplication::sendEvent(&box(), &event);
        }
        QApplication::processEvents();
    }

private:
    fs::path folder_;
    std::unique_ptr<Store> store_;
    std::unique_ptr<Editor> editor_;
};

void checkOnCommand(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) {
        open.editor().MenuClick("T6");
        QApplication::processEvents();
    }
}
BENCHMARK(checkOnCommand)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void typeInTheMiddle(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) open.press(Qt::Key_X, "x");
}
BENCHMARK(typeInTheMiddle)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void firstKeyInTheMiddle(benchmark::State& state) {
    OpenEditor open(state);
    for ([[maybe_unused]] auto _ : state) {
        open.press(Qt::Key_X, "x");
        state.PauseTiming();
        open.box().SetSelStart(open.box().Length());
        open.box().SetSelText("x");
        open.box().SetSelStart(open.box().LineIndex(open.box().LineCount() / 2));
        open.box().ScrollCaret();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(firstKeyInTheMiddle)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void moveTheCaret(benchmark::State& state) {
    OpenEditor open(state);
    size_t round = 0;
    for ([[maybe_unused]] auto _ : state) open.press(++round % 20 < 10 ? Qt::Key_Down : Qt::Key_Up);
}
BENCHMARK(moveTheCaret)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The middle of one line of a megabyte.
void moveInALongLine(benchmark::State& state) {
    OpenEditor open(state);
    std::string line = "[ADS]\r\nSea Legs, 5, gives(+1 to SK:Boating";
    while (line.size() < 1'000'000) line += ", +1 to SK:Boating";
    open.box().SetText(line + ")");
    open.editor().MenuClick("T6");
    open.box().SetSelStart(500'000);
    open.box().ScrollCaret();
    QApplication::processEvents();
    for ([[maybe_unused]] auto _ : state) open.press(Qt::Key_Right);
}
BENCHMARK(moveInALongLine)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace klt
