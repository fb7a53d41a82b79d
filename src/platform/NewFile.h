#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/Descriptor.h"

namespace klt {

/// A file being written under an unguessable hidden name, which takes its real name when it is whole, and
/// goes away with this object if that never happens. It is locked meanwhile, so that those that a killed
/// process left can be told from it. Errors are the system's numbers.
class NewFile {
public:
    /// Takes away what was left in the folder, too.
    NewFile(std::string folder, mode_t mode);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Why there is no file; 0 where there is one.
    int error() const { return error_; }
    int number() const { return file_.number(); }
    /// The open file, which from now on is the caller's to close.
    Descriptor release() { return std::move(file_); }
    /// Writes the whole content and compares the size that came of it. To be flushed before it takes its
    /// name.
    int write(std::string_view bytes);
    /// Takes the name `path`, in the same folder, from whatever file has it, and flushes the folder.
    int replace(const std::string& path);
    /// Takes the name `path`, giving EEXIST where something has it already, and flushes the folder.
    int publish(const std::string& path);
    /// Whether it has its name, though the folder may not have been flushed.
    bool isNamed() const { return isNamed_; }

private:
    bool make(mode_t mode);
    bool lock() const;
    int named();

    std::string folder_;
    std::string path_;
    Descriptor file_;
    int error_ = 0;
    bool isOurs_ = false;
    bool isNamed_ = false;
};

/// Takes away the hidden files in the folder that killed processes left. Where files can't be locked all
/// stay: another process may be writing them.
void removeLeftFiles(const std::string& folder);

/// Sixteen hexadecimal digits that nobody can guess.
std::string unguessableName();

}  // namespace klt
