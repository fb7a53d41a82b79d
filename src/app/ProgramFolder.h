#pragma once

#include <QCoreApplication>
#include <string>

#include "ui/QtStrings.h"

namespace klt {

/// Where the program itself stands.
inline std::string programFolder() {
    return toPath(QCoreApplication::applicationDirPath());
}

}  // namespace klt
