#include "settings/HostEntries.h"

#include <algorithm>
#include <utility>

#include "text/Ascii.h"
#include "text/TextSearch.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kAddOns = "Addons";
constexpr std::string_view kToolbar = "Toolbits";
constexpr std::string_view kNewKey = "TVM Data File Editor";
constexpr std::string_view kSpacer = "space";
constexpr std::string_view kBar = "|";
constexpr std::string_view kExecutable = ".exe";
constexpr std::string_view kInFront = "/\\:\" ";
constexpr std::string_view kBehind = "\" |";

bool endsName(std::string_view rest) {
    if (equalIgnoringAsciiCase(rest.substr(0, kExecutable.size()), kExecutable))
        rest.remove_prefix(kExecutable.size());
    return rest.empty() || kBehind.find(rest[0]) != kBehind.npos;
}

// Whether the value holds the executable's name as a whole, not as a part of another name.
bool namesWhole(std::string_view value, const TextSearch& name) {
    bool isFound = false;
    for (auto at = name.next(value); at.start >= 0 && !isFound; at = name.next(value, at.start + 1)) {
        const auto start = static_cast<size_t>(at.start);
        const auto rest = value.substr(static_cast<size_t>(at.end));
        const bool begins = start == 0 || kInFront.find(value[start - 1]) != kInFront.npos;
        isFound = begins && endsName(rest);
    }
    return isFound;
}

bool hasKey(const std::vector<IniRow>& rows, std::string_view key) {
    return std::any_of(rows.begin(), rows.end(),
                       [key](const IniRow& row) { return equalIgnoringCase(row.key, key); });
}

std::string spacerKey(const std::vector<IniRow>& rows) {
    for (size_t number = rows.size() + 1;; ++number) {
        auto key = std::string(kSpacer).append(std::to_string(number));
        if (!hasKey(rows, key)) return key;
    }
}

std::string runAddOn(std::string_view addOn) {
    return std::string("RunAddon(").append(addOn).append(")");
}

HostResult enter(modINIStuff& ini, const HostChange& change) {
    for (const auto& [key, value] : change.puts)
        if (auto error = ini.IniPutValue(key, value)) return {change.isUpdate, std::move(error)};
    return {change.isUpdate, ini.IniFlush()};
}

}  // namespace

const IniRow* findEntry(const std::vector<IniRow>& rows, const HostProgram& program, std::string_view addOn) {
    const TextSearch name(program.name, false);
    const TextSearch call(addOn.empty() ? std::string() : runAddOn(addOn), false);
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const IniRow& row) {
        return call.next(row.value).start >= 0 || namesWhole(row.value, name);
    });
    return found == rows.end() ? nullptr : &*found;
}

HostChange addOnChange(const std::vector<IniRow>& addOns, const HostProgram& program) {
    const auto* entry = findEntry(addOns, program);
    return {{{entry != nullptr ? entry->key : std::string(kNewKey), program.command}}, entry != nullptr};
}

HostChange toolbarChange(const std::vector<IniRow>& addOns, const std::vector<IniRow>& toolbar,
                         const HostProgram& program) {
    const auto* addOn = findEntry(addOns, program);
    const std::string addOnKey = addOn != nullptr ? addOn->key : "";
    const auto valueOf = [&](std::string command) { return command.append(kBar).append(program.bitmap); };
    if (const auto* entry = findEntry(toolbar, program, addOnKey))
        return {{{entry->key, valueOf(addOnKey.empty() ? program.command : runAddOn(addOnKey))}}, true};
    return {{{spacerKey(toolbar), std::string(kBar)}, {std::string(kNewKey), valueOf(program.command)}},
            false};
}

HostResult addToAddOns(const std::string& file, const HostProgram& program) {
    modINIStuff ini;
    ini.RegisterIni(kAddOns, file);
    auto addOns = ini.IniGetSection();
    if (addOns.error) return {false, std::move(addOns.error)};
    return enter(ini, addOnChange(addOns.rows, program));
}

HostResult addToToolbar(const std::string& file, const HostProgram& program) {
    modINIStuff ini;
    ini.RegisterIni(kAddOns, file);
    auto addOns = ini.IniGetSection();
    if (addOns.error) return {false, std::move(addOns.error)};
    ini.RegisterIni(kToolbar, file);
    auto toolbar = ini.IniGetSection();
    if (toolbar.error) return {false, std::move(toolbar.error)};
    return enter(ini, toolbarChange(addOns.rows, toolbar.rows, program));
}

}  // namespace klt
