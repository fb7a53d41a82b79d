#pragma once

#include <string>
#include <string_view>

#include "settings/HostEntries.h"

class QWidget;

namespace klt {

class Store;

/// One of the host's lists in which the editor can stand.
struct HostList {
    HostResult (*enter)(const std::string& file, const HostProgram& program);
    std::string_view updated;
    std::string_view added;
};

extern const HostList kHostAddOns;
extern const HostList kHostToolbar;

/// Enters the running program into the host's file, in the folder that is stored for it, and tells in a box
/// over `owner` what has become of it.
void enterIntoHost(QWidget& owner, Store& store, const HostList& list);

/// Tells what has become of an entry in `file`.
void tellHostResult(QWidget& owner, const std::string& file, const HostList& list, const HostResult& result);

}  // namespace klt
