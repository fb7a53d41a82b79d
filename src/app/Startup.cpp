#include "app/Startup.h"

#include <malloc.h>

#include <QApplication>
#include <QThreadPool>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <thread>
#include <tuple>

#include "app/Editor.h"
#include "app/commands/OptionCommands.h"
#include "app/dialogs/ShowDialog.h"
#include "app/dialogs/frmTip.h"
#include "app/recovery/UnchosenEnds.h"
#include "app/window/ProgramIcon.h"
#include "platform/CommandLine.h"
#include "platform/DrivePaths.h"
#include "platform/HandOver.h"
#include "platform/Instances.h"
#include "platform/MemoryRoom.h"
#include "platform/Paths.h"
#include "platform/ProgramNames.h"
#include "settings/Store.h"
#include "ui/MessageBox.h"

namespace klt {
namespace {

constexpr std::string_view kHelp =
    "usage: klteditor [/d:DIRECTORY/] [FILE...]\n"
    "Edits data files. Where an editor runs already, the files are opened there.\n"
    "\n"
    "  /d:DIRECTORY/  a FILE may refer to the directory as /d:/\n"
    "  --help         show this and end\n"
    "  --version      show the version and end\n";

void letEventsRun() {
    QCoreApplication::processEvents();
}

void showError(int number, std::string_view source, std::string_view description) {
    MessageBox(nullptr, std::to_string(number).append(": ").append(source).append("\n\n").append(description),
               MessageIcon::None, kTitle);
}

/// An event that memory runs out under is given up: it must not go on through the libraries that brought it.
class Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        bool isTaken = true;
        tryStep([&] { isTaken = QApplication::notify(receiver, event); });
        return isTaken;
    }
};

/// Where address space is short threads must not eat it up, nor be waited for though they could not be made.
void tameThreads() {
    // Each further arena would reserve 64 MB of address space.
    mallopt(M_ARENA_MAX, 1);
    // Painting hands large areas to another thread: it is made while there is memory, and kept.
    constexpr unsigned kStack = 256U << 10;
    QThreadPool& pool = *QThreadPool::globalInstance();
    pool.setStackSize(kStack);
    pool.setExpiryTimeout(-1);
    pool.setMaxThreadCount(1);
    pool.start([] {});
}

void showTipsAtStartup(Editor& editor) {
    if (tipsAreWanted(editor.store())) showDialog<frmTip>(editor.store(), editor.mainWindow());
}

void setUpApplication() {
    QApplication::setApplicationName("klteditor");
    QApplication::setDesktopFileName("klteditor");
    // The program ends when the main window has been taken down, not with the last dialog.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());
}

}  // namespace

std::optional<std::string> answerTo(const std::vector<std::string>& arguments) {
    for (const auto& argument : arguments) {
        if (argument == "--help") return std::string(kHelp);
        if (argument == "--version") return std::string("klteditor ").append(kAppVersion).append("\n");
    }
    return std::nullopt;
}

bool handOverToEarlierInstance(Instances& instances, const std::string& commandLine) {
    if (!instances.earlierInstanceExists()) return false;
    const auto window = waitForPreviousInstance(
        instances, [](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); });
    if (window && ActivatePreviousInstance(*window, commandLine) == HandOver::delivered) return true;
    // The other process may have died meanwhile: then its lock is free for us.
    std::ignore = instances.earlierInstanceExists();
    return false;
}

void reportingErrors(const std::function<void()>& step) {
    try {
        step();
    } catch (const std::system_error& error) {
        showError(error.code().value(), error.code().category().name(), error.what());
    } catch (const std::bad_alloc& error) {
        releaseReserve();
        fitsMemory([&] { showError(0, "klteditor", error.what()); });
    } catch (const std::exception& error) {
        showError(0, "klteditor", error.what());
    }
}

void startUp(Editor& editor, const std::string& commandLine) {
    modVariables& variables = editor.variables;
    variables.AppVersion = kAppVersion;
    variables.AppIsActive = false;
    {
        const CommandQueue::Opening opening(editor.queue);
        const RaisedFlag loading(variables.LoadingDocuments);
        // Not before the opening has begun, which keeps clicks back from what was up before it.
        reportingErrors([&] { editor.showSplash(); });
        reportingErrors(letEventsRun);
        reportingErrors([&] {
            if (commandLine.empty()) {
                editor.documents.OpenDocument("", true);
            } else {
                editor.ParseCommandLine();
            }
        });
        // A command line may name no file.
        reportingErrors([&] { editor.mainWindow(); });
        reportingErrors(letEventsRun);
    }
    reportingErrors(letEventsRun);
    editor.closeSplash();
    for (int i = 0; i < 2; ++i) reportingErrors(letEventsRun);
    if (editor.isOver()) return;
    reportingErrors([&] { showTipsAtStartup(editor); });
    if (editor.isOver()) return;
    reportingErrors([&] { demandVersion(editor); });
    for (int i = 0; i < 2; ++i) reportingErrors(letEventsRun);
    if (editor.isOver()) return;
    variables.StartupComplete = true;
    variables.AppIsActive = true;
}

int Main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (const auto answer = answerTo(arguments)) {
        std::fputs(answer->c_str(), stdout);
        return 0;
    }
    std::error_code noFolder;
    const std::string commandLine = buildCommandLine(fromDrivePaths(arguments, winePrefix()),
                                                     std::filesystem::current_path(noFolder).string());
    Instances instances(runtimeFolder());
    if (handOverToEarlierInstance(instances, commandLine)) return 0;

    // The arguments are all ours, a file may be called "-style".
    int own = 1;
    tameThreads();
    Application application(own, argv);
    setUpApplication();
    Store store;
    Editor editor(store, &instances, commandLine);
    const UnchosenEnds ends([&editor] { editor.keepAllTexts(); });
    startUp(editor, commandLine);
    return editor.isOver() ? 0 : QApplication::exec();
}

}  // namespace klt
