#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ProgramNames.h"
#include "settings/cRegistry.h"

namespace klt {

/// The section of the recent-files list, by its path below the current user.
std::string recentFilesPath();
/// A registry that is set to that section.
cRegistry recentFilesRegistry(Store& store);

/// The list of recently used files, newest at 1.
class cMRUFileList {
public:
    std::int32_t MaxFileCount() const { return maxFileCount_; }
    /// The capacity. A lower one cuts the entries behind it off, and leaves `FileCount` until the next
    /// `AddFile`.
    void MaxFileCount(std::int32_t value);
    std::int32_t FileCount() const { return fileCount_; }
    /// Entry `index`, from 1; empty where there is none.
    std::string file(std::int32_t index) const;
    /// Whether entry `index` isn't empty. The file system isn't asked.
    bool FileExists(std::int32_t index) const { return !file(index).empty(); }
    std::string MenuCaption(std::int32_t index) const;
    /// Puts a file first. What it is compared with on the way turns to upper case, and so does the name.
    void AddFile(std::string_view name);
    /// Stores the list under the key that `registry` is set to. True whatever came of it.
    bool Save(cRegistry& registry) const;
    /// Takes the list from there; nothing where the key doesn't exist. True whatever came of it.
    bool Load(cRegistry& registry);

    /// The capacity at start-up: "MaxCount" of the key that `registry` is set to, or 4 when that reads empty
    /// or 0.
    static std::int32_t storedCapacity(cRegistry& registry);

private:
    /// How many of the entries count, whatever `FileCount` says.
    std::int32_t held() const;
    std::string& entry(std::int32_t index);

    std::int32_t maxFileCount_ = 0;
    std::int32_t fileCount_ = 0;
    /// Grows with what is put in: a capacity alone takes no room.
    std::vector<std::string> files_;
};

}  // namespace klt
