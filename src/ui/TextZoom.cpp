#include "ui/TextZoom.h"

#include <utility>

namespace klt {

TextZoom& TextZoom::of(Of which) {
    static TextZoom ofDocuments, ofFields;
    return which == Of::Documents ? ofDocuments : ofFields;
}

void TextZoom::set(int points) {
    if (std::exchange(points_, points) != points) emit changed(points);
}

}  // namespace klt
