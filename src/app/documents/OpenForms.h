#pragma once

#include <vector>

namespace klt {

class frmKLTEditor;

/// The documents that are open, in the order in which they were made, and which of them is active: the last
/// one activated and not yet closed, whatever the desktop says.
class OpenForms {
public:
    void add(frmKLTEditor& document);
    void remove(const frmKLTEditor& document);
    /// True if another document was active.
    bool activate(frmKLTEditor& document);

    /// Null where no document is open.
    frmKLTEditor* active() const { return byActivation_.empty() ? nullptr : byActivation_.back(); }
    const std::vector<frmKLTEditor*>& documents() const { return documents_; }
    bool contains(const frmKLTEditor* document) const;
    /// The main window counts as one.
    int count() const { return static_cast<int>(documents_.size()) + 1; }

private:
    std::vector<frmKLTEditor*> documents_;
    std::vector<frmKLTEditor*> byActivation_;
};

}  // namespace klt
