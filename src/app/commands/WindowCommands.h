#pragma once

namespace klt {

class Store;
class frmKLTEditor;
class frmMDIKLTEditor;

/// Activates document `number`, from 1 in the order in which they were made, and restores it where it is
/// minimised. A number that no document has does nothing.
void activateDocument(frmMDIKLTEditor& window, int number);
/// The same for that document; one that has closed does nothing.
void activateDocument(frmMDIKLTEditor& window, frmKLTEditor& document);
/// Activates the document `steps` behind the active one in that order, around the ends.
void activateNeighbour(frmMDIKLTEditor& window, int steps);

/// Turns the setting over by which the checker shows its window.
void toggleCheckerWindow(frmMDIKLTEditor& window, Store& store);
/// Shows or hides band "A1" or "A2" of the bars.
void toggleBand(frmMDIKLTEditor& window, const char* band);

}  // namespace klt
