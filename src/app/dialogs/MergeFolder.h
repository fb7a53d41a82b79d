#pragma once

#include <string>

namespace klt {

class Store;
class frmKLTEditor;

/// The folder that is proposed for a merged file: that of the active document's file (null: no document);
/// else the data files' own, where files can be made in it and it is not the program's; else the user's
/// documents, a folder that may not exist yet.
std::string mergeFolder(Store& store, const frmKLTEditor* active);

}  // namespace klt
