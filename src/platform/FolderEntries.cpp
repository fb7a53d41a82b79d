#include "platform/FolderEntries.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "text/Unicode.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

/// As the folder spells it, what has to be asked left out.
struct Entries {
    FolderEntries told;
    std::vector<fs::path> links;
};

Entries readEntries(const std::string& folder) {
    Entries entries;
    std::error_code error, unknown;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->is_symlink(unknown)) {
            entries.links.push_back(entry->path());
        } else {
            auto& names = entry->is_directory(unknown) ? entries.told.folders : entries.told.files;
            names.push_back(entry->path().filename().string());
        }
    }
    if (error) entries.told.error = error.message();
    entries.told.isNoFolder = error == std::errc::not_a_directory;
    return entries;
}

void sort(FolderEntries& entries) {
    std::ranges::sort(entries.folders, precedes);
    std::ranges::sort(entries.files, precedes);
}

}  // namespace

bool precedes(std::string_view left, std::string_view right) {
    const bool isHidden = left.starts_with('.');
    if (isHidden != right.starts_with('.')) return !isHidden;
    size_t here = 0, there = 0;
    while (here < left.size() && there < right.size()) {
        const auto a = characterAt(left, here), b = characterAt(right, there);
        if (foldCase(a.code) != foldCase(b.code)) return foldCase(a.code) < foldCase(b.code);
        here += a.length;
        there += b.length;
    }
    const bool endsFirst = here == left.size();
    return endsFirst != (there == right.size()) ? endsFirst : left < right;
}

void listFolder(const std::string& folder, const std::function<void(const FolderEntries&)>& found) {
    auto [told, links] = readEntries(folder);
    sort(told);
    told.isWhole = links.empty();
    found(told);
    if (told.isWhole) return;
    for (const auto& link : links) {
        std::error_code unknown;
        auto& names = fs::is_directory(link, unknown) ? told.folders : told.files;
        names.push_back(link.filename().string());
    }
    sort(told);
    told.isWhole = true;
    found(told);
}

}  // namespace klt
