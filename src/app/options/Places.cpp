#include "app/options/Places.h"

#include <QByteArray>
#include <algorithm>

#include "app/DataFilesFolder.h"
#include "platform/FileReader.h"
#include "platform/Paths.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr std::string_view kBookmarks = "/gtk-3.0/bookmarks";
constexpr size_t kLargestBookmarks = size_t{1} << 20;

/// Empty where the URL is of another system.
std::string localFolder(std::string_view url) {
    // The bytes of the name, which need not be UTF-8.
    constexpr std::string_view kScheme = "file://";
    if (!url.starts_with(std::string(kScheme) + "/")) return {};
    url.remove_prefix(kScheme.size());
    const QByteArray encoded(url.data(), static_cast<qsizetype>(url.size()));
    auto folder = QByteArray::fromPercentEncoding(encoded).toStdString();
    while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
    return folder;
}

void addOnce(std::vector<Place>& places, Place place) {
    const bool isThere =
        std::ranges::any_of(places, [&](const Place& other) { return other.folder == place.folder; });
    if (!isThere && !place.folder.empty()) places.push_back(std::move(place));
}

}  // namespace

std::vector<Place> bookmarkedPlaces(std::string_view bookmarks) {
    std::vector<Place> places;
    while (!bookmarks.empty()) {
        const auto line = bookmarks.substr(0, bookmarks.find('\n'));
        bookmarks.remove_prefix(std::min(line.size() + 1, bookmarks.size()));
        const auto blank = std::min(line.find(' '), line.size());
        const auto folder = localFolder(line.substr(0, blank));
        if (folder.empty()) continue;
        const auto name = toQString(line.substr(blank)).trimmed();
        const auto own = folder == "/" ? folder : FileName(folder);
        addOnce(places, {name.isEmpty() ? fromPath(own) : name, folder});
    }
    return places;
}

std::vector<Place> userPlaces() {
    std::vector<Place> places;
    addOnce(places, {"Home", homeFolder()});
    addOnce(places, {"Documents", documentsFolder()});
    const auto file = userFolder("XDG_CONFIG_HOME", "/.config").append(kBookmarks);
    for (auto& place : bookmarkedPlaces(readFile(file, kLargestBookmarks).bytes))
        addOnce(places, std::move(place));
    return places;
}

}  // namespace klt
