#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

namespace klt {

/// A folder that a user often goes to.
struct Place {
    QString name;
    std::string folder;

    bool operator==(const Place&) const = default;
};

/// The folders of this system of a file of bookmarks: a URL a line, behind a blank a name; without one the
/// folder's own.
std::vector<Place> bookmarkedPlaces(std::string_view bookmarks);

/// Home, documents and the bookmarks of the desktop's file dialogs, each folder once. None of them is asked
/// whether it is there.
std::vector<Place> userPlaces();

}  // namespace klt
