#include "app/options/OptionsPage.h"

#include "platform/ProgramNames.h"
#include "ui/MessageBox.h"

namespace klt {

bool storedOrTold(QWidget& owner, bool isStored) {
    if (!isStored) MessageBox(&owner, "The settings could not be stored.", MessageIcon::Exclamation, kTitle);
    return isStored;
}

}  // namespace klt
