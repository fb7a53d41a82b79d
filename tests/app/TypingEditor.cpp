// An editor into whose three documents somebody types, until the process ends: what the kills hit. Each word
// typed is a line of output: document, number, and when it was in, in ms of the steady clock.

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/Editor.h"
#include "app/documents/frmKLTEditor.h"
#include "app/recovery/UnchosenEnds.h"
#include "settings/Store.h"

using namespace klt;

namespace {

void type(RichTextBox& box, const std::string& word) {
    for (const char letter : word) {
        QKeyEvent key(QEvent::KeyPress, letter, Qt::NoModifier, QString(QChar(letter)));
        QApplication::sendEvent(&box, &key);
    }
}

long long now() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

/// usage: typing-editor FILE FILE. A signal SIGUSR1 ends it as the library does that has lost the display.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Store store;
    Editor editor(store, nullptr, "");
    const UnchosenEnds ends([&editor] { editor.keepAllTexts(); });
    editor.documents.openFiles({argv[1], argv[2]});
    editor.documents.New();
    const auto documents = editor.mainWindow().forms().documents();
    for (auto* document : documents) document->RichTextBox1->SetSelStart(document->RichTextBox1->Length());

    int number = 0;
    QTimer steps;
    QObject::connect(&steps, &QTimer::timeout, [&] {
        const auto index = static_cast<size_t>(number) % documents.size();
        type(*documents[index]->RichTextBox1, std::to_string(number) + " ");
        std::printf("%zu %d %lld\n", index, number++, now());
        std::fflush(stdout);
    });
    steps.start(std::chrono::milliseconds(10));
    static bool isDisplayLost = false;
    std::signal(SIGUSR1, [](int) { isDisplayLost = true; });
    QObject::connect(&steps, &QTimer::timeout, [] {
        if (isDisplayLost) std::exit(1);  // NOLINT(concurrency-mt-unsafe)
    });
    return QApplication::exec();
}
