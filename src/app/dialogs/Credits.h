#pragma once

#include <array>

namespace klt {

/// One whose published work the program uses.
struct Credit {
    const char* contributor;
    const char* text;     ///< what came from them
    const char* address;  ///< a web address with its scheme, or a mail address
};

/// The window of thanks, in its order: what runs in the program, what it is seen with, what it is made with.
inline constexpr auto kCredits = std::to_array<Credit>({
    {"The Qt Project",
     "Qt 6: windows, menus, dialogs, and the pictures of the buttons. Used under the GNU GPL, version 3.",
     "https://www.qt.io/"},
    {"Riverbank Computing", "QScintilla, which brings Scintilla into Qt. Used under the GNU GPL, version 3.",
     "https://www.riverbankcomputing.com/software/qscintilla/"},
    {"Neil Hodgson and the makers of Scintilla",
     "Scintilla: the text area, and every field that is coloured while one types.",
     "https://www.scintilla.org/"},
    {"The makers of SQLite", "SQLite, the file that the settings are kept in.", "https://www.sqlite.org/"},
    {"The makers of utf8proc", "utf8proc: upper and lower case of letters beyond ASCII.",
     "https://juliastrings.github.io/utf8proc/"},
    {"The makers of CLI11", "CLI11: the arguments of the command line \"klt\".",
     "https://github.com/CLIUtils/CLI11"},
    {"Niels Lohmann", "JSON for Modern C++: the JSON and SARIF reports of \"klt\".",
     "https://json.nlohmann.me/"},
    {"The KDE community", "The Breeze icons of menus and toolbars.",
     "https://invent.kde.org/frameworks/breeze-icons"},
    {"The makers of the Liberation fonts", "The fonts in which data files are shown.",
     "https://github.com/liberationfonts/liberation-fonts"},
    {"The makers of GoogleTest", "GoogleTest and GoogleMock, with which the program is tested.",
     "https://github.com/google/googletest"},
    {"The makers of Benchmark", "Google Benchmark, with which its speed is measured.",
     "https://github.com/google/benchmark"},
    {"The GNU Project", "The compiler GCC.", "https://gcc.gnu.org/"},
    {"The LLVM Project", "Clang and its tools, which format, read and fuzz the source.", "https://llvm.org/"},
    {"Kitware", "CMake, which builds the program.", "https://cmake.org/"},
    {"The makers of Ninja", "Ninja, which runs the build.", "https://ninja-build.org/"},
    {"The makers of ccache", "ccache, which makes a second build short.", "https://ccache.dev/"},
    {"The Debian Project", "The system for which the program is made, and where all of this comes from.",
     "https://www.debian.org/"},
    {"Everybody who writes to us", "Reports of faults, and ideas.", "klt-editor@example.org"},
});

}  // namespace klt
