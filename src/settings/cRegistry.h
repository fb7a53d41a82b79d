#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "settings/RegistryValue.h"
#include "settings/Store.h"

namespace klt {

/// An error that an operation of `cRegistry` raises.
struct RegistryError {
    std::uint32_t number = 0;
    /// The executable's name + ".cRegistry".
    std::string source;
    std::string text;
};

/// What an operation of `cRegistry` answers: its truth value, or the error that it raises.
struct RegistryOutcome {
    bool value = false;
    std::optional<RegistryError> error;
    explicit operator bool() const { return value && !error; }
};

/// What `CreateEXEAssociation` is told. A menu text that is empty stands for the usual one.
struct EXEAssociation {
    std::string_view ExePath;
    std::string_view ClassName;
    std::string_view ClassDescription;
    std::string_view Association;
    std::string_view OpenMenuText = {};
    bool SupportPrint = false;
    std::string_view PrintMenuText = {};
    bool SupportNew = false;
    std::string_view NewMenuText = {};
    bool SupportInstall = false;
    std::string_view InstallMenuText = {};
    /// -1: no icon.
    std::int32_t DefaultIconIndex = -1;
};

/// The road to any key under any root: a caller sets `ClassKey`, `SectionKey` and `ValueKey`, then calls.
class cRegistry {
public:
    explicit cRegistry(Store& store) : store_(store) {}

    bool KeyExists();
    RegistryOutcome CreateKey();
    /// Removes the key with all below it.
    RegistryOutcome DeleteKey();
    RegistryOutcome DeleteValue();
    /// What is stored, by its type; `Default` when nothing can be read.
    RegistryValue Value();
    /// Writes by `ValueType`. A value that doesn't fit the type 4, 5 or an unknown one is passed over without
    /// an error; bytes are written without their last two.
    RegistryOutcome Value(const RegistryValue& value);
    /// Fills `names`, and `count` with their number. True whatever was found.
    bool EnumerateValues(std::vector<std::string>& names, std::int32_t& count);
    bool EnumerateSections(std::vector<std::string>& names, std::int32_t& count);
    /// Stops at the first error.
    RegistryOutcome CreateEXEAssociation(const EXEAssociation& association);
    /// `items` come in threes: name, text, command.
    RegistryOutcome CreateAdditionalEXEAssociations(std::string_view ClassName,
                                                    std::span<const std::string_view> items);

    std::int32_t ValueType() const { return valueType_; }
    void ValueType(std::int32_t type) { valueType_ = type; }
    std::int32_t ClassKey() const { return classKey_; }
    void ClassKey(std::int32_t root) { classKey_ = root; }
    const std::string& SectionKey() const { return sectionKey_; }
    void SectionKey(std::string_view path) { sectionKey_ = path; }
    const std::string& ValueKey() const { return valueKey_; }
    void ValueKey(std::string_view name) { valueKey_ = name; }
    const RegistryValue& Default() const { return default_; }
    void Default(RegistryValue value) { default_ = std::move(value); }

    /// The store behind, for a caller who writes several values together.
    Store& store() { return store_; }

private:
    NodePath node() const { return {classKey_, sectionKey_}; }
    RegistryOutcome writeFailed() const;
    RegistryOutcome writeDefault(std::string_view section, std::string_view text);
    void put(const RegistryValue& value);

    Store& store_;
    std::int32_t classKey_ = 0;
    std::string sectionKey_;
    std::string valueKey_;
    RegistryValue lastValue_;
    RegistryValue default_;
    std::int32_t valueType_ = 0;
};

}  // namespace klt
