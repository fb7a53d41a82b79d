#pragma once

namespace klt {

/// A new control under its object name.
template <typename Control, typename... Arguments>
Control* named(const char* name, Arguments... arguments) {
    auto* control = new Control(arguments...);
    control->setObjectName(name);
    return control;
}

}  // namespace klt
