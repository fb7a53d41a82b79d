#include "settings/cRegistry.h"

#include <errno.h>

#include <algorithm>
#include <utility>

#include "settings/Conversions.h"
#include "text/Ascii.h"

namespace klt {

namespace {

constexpr std::uint32_t kFailed = 26001;
constexpr std::uint32_t kBadAssociation = 0x800469AC;

RegistryOutcome raise(std::uint32_t number, std::string text) {
    return {false, RegistryError{number, std::string(program_invocation_short_name) + ".cRegistry",
                                 std::move(text)}};
}

/// A "%" and another one with at least one character between them and the first.
bool holdsReference(std::string_view text) {
    const auto first = text.find('%');
    return first != std::string_view::npos && text.find('%', first + 2) != std::string_view::npos;
}

std::string quoted(std::string_view path) {
    std::string text(trimBlanks(path));
    if (!text.starts_with('"')) text.insert(0, 1, '"');
    if (!text.ends_with('"')) text += '"';
    return text;
}

std::string orUsual(std::string_view text, std::string_view usual) {
    return std::string(text.empty() ? usual : text);
}

}  // namespace

bool cRegistry::KeyExists() {
    return store_.hasKey(node());
}

RegistryOutcome cRegistry::CreateKey() {
    if (store_.makeKey(node())) return {true, {}};
    return raise(kFailed, "Failed to create registry Key: '" + sectionKey_);
}

RegistryOutcome cRegistry::DeleteKey() {
    if (store_.removeKey(node())) return {true, {}};
    return raise(kFailed, "Failed to delete registry Key: '" + std::to_string(classKey_) + "',Section: '" +
                              sectionKey_);
}

RegistryOutcome cRegistry::DeleteValue() {
    const auto where = std::to_string(classKey_) + "',Section: '" + sectionKey_;
    if (!store_.hasKey(node())) return raise(kFailed, "Failed to open key '" + where + "' for delete access");
    if (store_.removeValue(node(), valueKey_)) return {true, {}};
    return raise(kFailed, "Failed to delete registry Key: '" + where + "',Key: '" + valueKey_);
}

RegistryValue cRegistry::Value() {
    const auto stored = store_.read(node(), valueKey_);
    return stored ? fromStored(*stored, default_) : default_;
}

RegistryOutcome cRegistry::Value(const RegistryValue& value) {
    const bool isWrongBytes = valueType_ == REG_BINARY && !std::holds_alternative<Bytes>(value);
    bool opened = false;
    store_.together([&] {
        opened = store_.makeKey(node());
        if (opened && !isWrongBytes) put(value);
        return opened;
    });
    if (!opened) return writeFailed();
    if (isWrongBytes) return raise(kFailed, {});
    // Whatever became of the value itself: that stops no caller.
    lastValue_ = value;
    return {true, {}};
}

/// Writes a value in the form of the current type; nothing where it does not fit the type.
void cRegistry::put(const RegistryValue& value) {
    const auto write = [this](const StoredValue& stored) { store_.write(node(), valueKey_, stored); };
    if (valueType_ == REG_SZ || valueType_ == REG_EXPAND_SZ) {
        auto text = asText(value);
        const auto type = holdsReference(text) ? REG_EXPAND_SZ : REG_SZ;
        write({type, std::move(text)});
    } else if (valueType_ == REG_BINARY) {
        const auto& bytes = std::get<Bytes>(value);
        // The system counts the bytes of an array two short.
        if (bytes.size() >= 2) write({REG_BINARY, Bytes(bytes.begin(), bytes.end() - 2)});
    } else if (valueType_ == REG_DWORD || valueType_ == REG_DWORD_BIG_ENDIAN) {
        if (std::holds_alternative<std::int16_t>(value) || std::holds_alternative<std::int32_t>(value))
            write({REG_DWORD, std::int64_t{asNumber(value)}});
    }
}

/// Names the value that was written last, not the one that failed.
RegistryOutcome cRegistry::writeFailed() const {
    return raise(kFailed, "Failed to set registry value Key: '" + std::to_string(classKey_) + "',Section: '" +
                              sectionKey_ + "',Key: '" + valueKey_ + "' to value: '" + asText(lastValue_) +
                              "'");
}

bool cRegistry::EnumerateValues(std::vector<std::string>& names, std::int32_t& count) {
    names = store_.valueNames(node());
    count = static_cast<std::int32_t>(names.size());
    return true;
}

bool cRegistry::EnumerateSections(std::vector<std::string>& names, std::int32_t& count) {
    names = store_.keyNames(node());
    for (auto& name : names) name.resize(std::min(name.size(), name.find('\0')));
    count = static_cast<std::int32_t>(names.size());
    return true;
}

RegistryOutcome cRegistry::writeDefault(std::string_view section, std::string_view text) {
    SectionKey(section);
    ValueKey({});
    ValueType(REG_SZ);
    return Value(std::string(text));
}

RegistryOutcome cRegistry::CreateEXEAssociation(const EXEAssociation& association) {
    const auto program = quoted(association.ExePath);
    const std::string name(association.ClassName);
    const auto argument = [&](std::string_view option) { return program + std::string(option) + " \"%1\""; };
    ClassKey(HKEY_CLASSES_ROOT);
    std::vector<std::pair<std::string, std::string>> defaults = {
        {"." + std::string(association.Association), name},
        {name, std::string(association.ClassDescription)}};
    const auto addVerb = [&](const char* verb, std::string text, std::string_view option) {
        const auto key = name + "\\shell\\" + verb;
        defaults.emplace_back(key, std::move(text));
        defaults.emplace_back(key + "\\command", argument(option));
    };
    addVerb("open", orUsual(association.OpenMenuText, "&Open"), "");
    if (association.SupportPrint) addVerb("print", orUsual(association.PrintMenuText, "&Print"), " /p");
    if (association.SupportInstall)
        addVerb("add",
                orUsual(association.InstallMenuText, "&Install " + std::string(association.Association)),
                " /a");
    if (association.SupportNew) addVerb("new", orUsual(association.NewMenuText, "&New"), " /n");
    if (association.DefaultIconIndex > -1)
        defaults.emplace_back(name + "\\DefaultIcon",
                              program + "," + std::to_string(association.DefaultIconIndex));
    for (const auto& [section, text] : defaults)
        if (auto outcome = writeDefault(section, text); outcome.error) return outcome;
    return {true, {}};
}

RegistryOutcome cRegistry::CreateAdditionalEXEAssociations(std::string_view ClassName,
                                                           std::span<const std::string_view> items) {
    if (items.size() % 3 != 0)
        return raise(kBadAssociation,
                     "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected "
                     "Name/Text/Command");
    SectionKey(ClassName);
    if (!KeyExists())
        return raise(kBadAssociation,
                     "Error - attempt to create additional associations before class defined.");
    for (size_t item = 0; item < items.size(); item += 3) {
        const auto key = std::string(ClassName) + "\\shell\\" + std::string(items[item]);
        if (auto outcome = writeDefault(key, items[item + 1]); outcome.error) return outcome;
        if (auto outcome = writeDefault(key + "\\command", items[item + 2]); outcome.error) return outcome;
    }
    return {true, {}};
}

}  // namespace klt
