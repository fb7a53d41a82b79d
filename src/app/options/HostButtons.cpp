#include "app/options/HostButtons.h"

#include <QtGlobal>

#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "settings/HostFolder.h"
#include "ui/MessageBox.h"

namespace klt {
namespace {

constexpr std::string_view kNoFolder =
    "You'll have to specify the TVM.INI path in the Program Paths tab before you're able to use this button.";
constexpr std::string_view kNoProgram = "The system does not tell where the program stands";
constexpr std::string_view kLogicError = "IniFile Logic Error";

}  // namespace

const HostList kHostAddOns = {
    addToAddOns,
    "The TVM.INI file already contained an entry for KLT Editor in the Add-Ons menu, and this entry has been "
    "updated to contain the correct information.",
    "The TVM.INI file did not contain an entry for KLT Editor in the Add-Ons menu, so this entry has been "
    "added and modified to contain the correct information."};
const HostList kHostToolbar = {
    addToToolbar,
    "The TVM.INI file already contained an entry for KLT Editor in the toolbar, and this entry has been "
    "modified to contain the correct information.",
    "The TVM.INI file did not contain an entry for KLT Editor in the toolbar, so this entry has been added "
    "and modified to contain the correct information."};

void enterIntoHost(QWidget& owner, Store& store, const HostList& list) {
    const auto folder = readSetting(store, settings::kTvmIniPath);
    if (folder.empty()) {
        MessageBox(&owner, kNoFolder, MessageIcon::Information, kTitle);
        return;
    }
    const auto file = hostFileIn(folder);
    const auto program = runningProgram();
    const auto result = program.empty()
                            ? HostResult{false, std::string(kNoProgram)}
                            : list.enter(file, hostProgram(program, file, qgetenv("PATH").toStdString()));
    tellHostResult(owner, file, list, result);
}

void tellHostResult(QWidget& owner, const std::string& file, const HostList& list, const HostResult& result) {
    if (!result.error) {
        MessageBox(&owner, result.isUpdate ? list.updated : list.added, MessageIcon::Information, kTitle);
    } else if (*result.error == kIniNotRegistered) {
        MessageBox(&owner, *result.error, MessageIcon::Critical, kLogicError);
    } else {
        MessageBox(&owner, "KLT Editor could not be entered into " + file + ": " + *result.error,
                   MessageIcon::Exclamation, kTitle);
    }
}

}  // namespace klt
