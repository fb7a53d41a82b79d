#include "ui/TextFormats.h"

#include <QFont>

namespace klt {
namespace {

// Metric twins stand in where the fonts themselves are missing.
TextFont withTwin(const char* family, const char* twin, int twips) {
    const auto name = QString::fromLatin1(family);
    if (QFont::substitutes(name).isEmpty()) QFont::insertSubstitution(name, QString::fromLatin1(twin));
    return {name, twips};
}

}  // namespace

TextFont documentFont() {
    return withTwin("Courier New", "Liberation Mono", 200);
}

TextFont fieldFont() {
    return withTwin("MS Sans Serif", "Liberation Sans", 180);
}

}  // namespace klt
