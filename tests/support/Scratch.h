#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace klt {

/// A new empty folder, gone with everything in it at the end of the scope.
class ScratchFolder {
public:
    ScratchFolder() : path_((std::filesystem::temp_directory_path() / "klt-test-XXXXXX").string()) {
        if (mkdtemp(path_.data()) == nullptr) ADD_FAILURE() << "no scratch folder in " << path_;
    }
    ~ScratchFolder() {
        std::error_code error;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path_, error))
            if (entry.symlink_status(error).type() == std::filesystem::file_type::directory)
                chmod(entry.path().c_str(), S_IRWXU);
        std::filesystem::remove_all(path_, error);
        if (error) ADD_FAILURE() << path_ << " stays behind: " << error.message();
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

private:
    std::string path_;
};

/// An environment variable with another value, or unset, to the end of the scope.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        set(value);
    }
    ~ScopedVariable() { set(old_); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void set(const std::optional<std::string>& value) const {
        value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
    }
    const char* name_;
    std::optional<std::string> old_;
};

/// The user's folders (home, settings, state, runtime) all inside a scratch folder, to the end of the scope.
class ScratchHome {
public:
    const ScratchFolder& folder() const { return folder_; }
    std::string operator/(std::string_view name) const { return folder_ / name; }

private:
    ScratchFolder folder_;
    ScopedVariable home_{"HOME", folder_.path()};
    ScopedVariable config_{"XDG_CONFIG_HOME", folder_ / "config"};
    ScopedVariable state_{"XDG_STATE_HOME", folder_ / "state"};
    ScopedVariable runtime_{"XDG_RUNTIME_DIR", folder_.path()};
    ScopedVariable data_{"XDG_DATA_HOME", std::nullopt};
    ScopedVariable prefix_{"WINEPREFIX", std::nullopt};
};

inline void writeBytes(const std::string& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.flush();
    EXPECT_TRUE(file.good()) << path;
}

/// All of a file; a failure of the test where it can't be read.
inline std::string readBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
}

/// The permissions, with the set-user, set-group and sticky bits; of a link its own.
inline mode_t modeOf(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(lstat(path.c_str(), &info), 0) << path;
    return info.st_mode & 07777;
}

/// The names in a folder, in order.
inline std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace klt
