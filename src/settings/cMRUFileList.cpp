#include "settings/cMRUFileList.h"

#include <algorithm>
#include <utility>

#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kMaxCount = "MaxCount";
constexpr std::string_view kCount = "Count";
constexpr std::int32_t kUsualCapacity = 4;
// A larger stored number is cut down to this: anybody may write into the store.
constexpr std::int32_t kMostLoaded = 1000;

std::string entryName(std::int32_t index) {
    return "RecentFile" + std::to_string(index);
}

RegistryValue readValue(cRegistry& registry, std::string_view name, std::int32_t type) {
    registry.ValueKey(name);
    registry.ValueType(type);
    return registry.Value();
}

void writeValue(cRegistry& registry, std::string_view name, std::int32_t type, const RegistryValue& value) {
    registry.ValueKey(name);
    registry.ValueType(type);
    registry.Value(value);
}

}  // namespace

std::string recentFilesPath() {
    return std::string(kSettingsFolder).append("\\").append(kSettingsApplication).append("\\MRU");
}

cRegistry recentFilesRegistry(Store& store) {
    cRegistry registry(store);
    registry.ClassKey(HKEY_CURRENT_USER);
    registry.SectionKey(recentFilesPath());
    return registry;
}

void cMRUFileList::MaxFileCount(std::int32_t value) {
    maxFileCount_ = value;
    const auto room = static_cast<size_t>(std::max(value, 0));
    if (files_.size() > room) files_.resize(room);
}

std::int32_t cMRUFileList::held() const {
    return std::max(std::min(fileCount_, maxFileCount_), 0);
}

std::string cMRUFileList::file(std::int32_t index) const {
    if (index < 1 || static_cast<size_t>(index) > files_.size()) return {};
    return files_[static_cast<size_t>(index) - 1];
}

std::string& cMRUFileList::entry(std::int32_t index) {
    const auto count = static_cast<size_t>(index);
    if (files_.size() < count) files_.resize(count);
    return files_[count - 1];
}

std::string cMRUFileList::MenuCaption(std::int32_t index) const {
    return "&" + std::to_string(index) + " " + file(index);
}

void cMRUFileList::AddFile(std::string_view name) {
    fileCount_ = held();
    std::string added(name);
    std::int32_t index = 1;
    for (; index <= fileCount_; ++index) {
        entry(index) = upperCase(entry(index));
        added = upperCase(added);
        if (entry(index) == added) break;
    }
    if (index > fileCount_ && fileCount_ < maxFileCount_) ++fileCount_;
    if (fileCount_ == 0) return;
    // A new one in a full list takes the room of the oldest.
    index = std::min(index, fileCount_);
    entry(index) = std::move(added);
    std::rotate(files_.begin(), files_.begin() + index - 1, files_.begin() + index);
}

bool cMRUFileList::Save(cRegistry& registry) const {
    registry.store().together([&] {
        writeValue(registry, kMaxCount, REG_DWORD, maxFileCount_);
        writeValue(registry, kCount, REG_DWORD, fileCount_);
        for (std::int32_t index = 1; index <= held(); ++index)
            writeValue(registry, entryName(index), REG_SZ, file(index));
        return true;
    });
    return true;
}

bool cMRUFileList::Load(cRegistry& registry) {
    registry.ValueKey(kMaxCount);
    if (!registry.KeyExists()) return true;
    // A capacity that reads empty or 0 leaves the one that start-up has set.
    if (const auto capacity = asNumber(readValue(registry, kMaxCount, REG_DWORD))) MaxFileCount(capacity);
    if (maxFileCount_ <= 0) return true;
    fileCount_ = std::clamp(asNumber(readValue(registry, kCount, REG_DWORD)), 0, kMostLoaded);
    for (std::int32_t index = 1; index <= held(); ++index)
        entry(index) = asText(readValue(registry, entryName(index), REG_SZ));
    return true;
}

std::int32_t cMRUFileList::storedCapacity(cRegistry& registry) {
    const auto capacity = asNumber(readValue(registry, kMaxCount, REG_DWORD));
    return capacity == 0 ? kUsualCapacity : capacity;
}

}  // namespace klt
