#pragma once

#include <string>
#include <string_view>

/// The system's calls for files as the folder's own code uses them: interrupted ones go on, and each gives 0
/// or the error number.
namespace klt {

/// Writes all of `bytes` from `offset` on. A file-size limit gives EFBIG and no signal.
int writeAll(int file, std::string_view bytes, size_t offset = 0);
/// Brings a file's bytes to the disk.
int flush(int file);
/// Brings a folder's entries to the disk. 0 also where a folder can't be opened or flushed at all.
int flushFolder(const std::string& folder);
/// Renames a file, giving EEXIST where something has the new name already. The folder is left to be flushed.
int renameToFree(const std::string& from, const std::string& to);

/// The folder part of a path, without its last "/"; "/" and "." where there is no more.
std::string folderOf(const std::string& path);
/// The path that a write to `path` means: symbolic links followed, whether or not the last one leads
/// anywhere, and the folder spelled without any. A circle of links ends at a link.
std::string linkTarget(const std::string& path);

}  // namespace klt
