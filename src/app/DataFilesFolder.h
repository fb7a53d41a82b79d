#pragma once

#include <string>

#include "app/ProgramFolder.h"

namespace klt {

class Store;

/// Whether files can be made in a folder. Tried by making one: permission bits don't tell, least of all for
/// the administrator.
bool takesNewFiles(const std::string& folder);

/// The user's documents, a folder that may not exist yet.
std::string documentsFolder();

/// Where data files are looked for as long as nobody has chosen: in the program's own folder; where nothing
/// can be written there in the user's documents, or at home where there are none.
std::string defaultDataFilesFolder(const std::string& program = programFolder());
/// The stored folder of the data files, whether or not it exists; else the default.
std::string dataFilesFolder(Store& store);

}  // namespace klt
