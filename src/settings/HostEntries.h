#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/HostProgram.h"
#include "settings/modINIStuff.h"

/// The editor's entries in the host's file: in its list of add-ons, section "Addons", and in its toolbar,
/// section "Toolbits".
namespace klt {

/// What is to be put into a section for the editor, in this order.
struct HostChange {
    std::vector<IniRow> puts;
    /// There was an entry, and it is the one to be put.
    bool isUpdate = false;
};

/// The first row that is the editor's, or none: one that names its executable, with or without ".exe", in any
/// case, as a whole and not as a part of another name, or that has "RunAddon()" of `addOn`, where that is not
/// empty.
const IniRow* findEntry(const std::vector<IniRow>& rows, const HostProgram& program,
                        std::string_view addOn = {});

HostChange addOnChange(const std::vector<IniRow>& addOns, const HostProgram& program);
/// A new entry carries the command, and stands behind a spacer; an old one refers to the add-on where there
/// is one.
HostChange toolbarChange(const std::vector<IniRow>& addOns, const std::vector<IniRow>& toolbar,
                         const HostProgram& program);

struct HostResult {
    /// There was an entry, which was brought up to date; else one was added.
    bool isUpdate = false;
    /// The file could not be read or written, and is as it was.
    Failure error;
};

/// Enters the program into the host's file, which is made where its folder has none.
HostResult addToAddOns(const std::string& file, const HostProgram& program);
HostResult addToToolbar(const std::string& file, const HostProgram& program);

}  // namespace klt
