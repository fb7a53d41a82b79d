#include "Application.h"

#include <benchmark/benchmark.h>

#include <QAccessible>
#include <QApplication>

namespace bench {

void needApplication() {
    static int argc = 3;
    static char name[] = "klt-bench", option[] = "-platform", platform[] = "offscreen";
    static char* argv[] = {name, option, platform, nullptr};
    // Not destroyed: nothing may outlive it, and the process ends anyway.
    static auto* const application = new QApplication(argc, argv);
    benchmark::DoNotOptimize(application);
    // The offscreen platform behaves as if a screen reader ran, for which the library counts characters from
    // the text's start at each move.
    QAccessible::setActive(false);
}

}  // namespace bench
