#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <filesystem>
#include <fstream>
#include <memory>

#include "Application.h"
#include "SampleText.h"
#include "app/Editor.h"
#include "app/documents/frmKLTEditor.h"
#include "settings/Store.h"

namespace klt {

/// An editor over an empty store with one document of so many megabytes open and coloured.
class OpenEditor {
public:
    explicit OpenEditor(const benchmark::State& state)
        : folder_(std::filesystem::temp_directory_path() / ("klt-bench-colour-" + std::to_string(getpid()))) {
        bench::needApplication();
        std::filesystem::create_directories(folder_);
        for (const auto* variable : {"XDG_CONFIG_HOME", "XDG_STATE_HOME"})
            setenv(variable, folder_.c_str(), 1);
        const std::filesystem::path file = folder_ / "sample.klt";
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
        std::filesystem::remove_all(folder_);
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
    std::filesystem::path folder_;
    std::unique_ptr<Store> store_;
    std::unique_ptr<Editor> editor_;
};

}  // namespace klt
