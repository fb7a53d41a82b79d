#pragma once

#include <string>
#include <vector>

#include "app/documents/TextView.h"
#include "text/Encoding.h"

namespace klt {

class frmKLTEditor;

/// A document's text as it stood, colours included.
class KeptText {
public:
    explicit KeptText(const frmKLTEditor& document);
    /// Puts the text back, which counts as an edit. Throws `std::bad_alloc` with nothing changed.
    void bringBackTo(frmKLTEditor& document) const;

private:
    std::string text_;
    std::string styles_;
    std::vector<TextRange> protected_;
    Encoding encoding_;
    TextView view_;
};

}  // namespace klt
