#include "app/documents/OpenForms.h"

#include <algorithm>

namespace klt {

void OpenForms::add(frmKLTEditor& document) {
    documents_.push_back(&document);
}

void OpenForms::remove(const frmKLTEditor& document) {
    std::erase(documents_, &document);
    std::erase(byActivation_, &document);
}

bool OpenForms::activate(frmKLTEditor& document) {
    if (active() == &document) return false;
    std::erase(byActivation_, &document);
    byActivation_.push_back(&document);
    return true;
}

bool OpenForms::contains(const frmKLTEditor* document) const {
    return std::find(documents_.begin(), documents_.end(), document) != documents_.end();
}

}  // namespace klt
