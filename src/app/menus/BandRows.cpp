#include "app/menus/BandRows.h"

#include <algorithm>
#include <tuple>

namespace klt {
namespace {

constexpr char kNextRow = '/';
constexpr char kSameRow = ' ';
constexpr std::string_view kSeparators = "/ ";

}  // namespace

BandRows rowsByPlaces(const std::array<QPoint, kToolbarRows.size()>& places) {
    BandRows rows;
    for (std::size_t bar = 0; bar < rows.size(); ++bar) rows[bar].bar = bar;
    const auto key = [&places](const BandPlace& it) {
        return std::tuple(places[it.bar].y(), places[it.bar].x(), it.bar);
    };
    std::sort(rows.begin(), rows.end(),
              [&key](const BandPlace& one, const BandPlace& other) { return key(one) < key(other); });
    for (std::size_t n = 0; n < rows.size(); ++n)
        rows[n].beginsRow = n == 0 || places[rows[n].bar].y() > places[rows[n - 1].bar].y();
    return rows;
}

std::string toText(const BandRows& rows) {
    std::string text;
    for (const BandPlace& it : rows) {
        if (!text.empty()) text += it.beginsRow ? kNextRow : kSameRow;
        text += kToolbarRows[it.bar].band;
    }
    return text;
}

std::optional<BandRows> rowsFrom(std::string_view text) {
    BandRows rows;
    std::size_t count = 0;
    for (std::size_t start = 0; start <= text.size(); ++count) {
        const auto end = std::min(text.find_first_of(kSeparators, start), text.size());
        const auto bar = barOf(text.substr(start, end - start));
        const auto isNamed = [&](const BandPlace& it) { return it.bar == bar; };
        if (!bar || std::any_of(rows.begin(), rows.begin() + count, isNamed)) return std::nullopt;
        rows[count] = {*bar, start == 0 || text[start - 1] == kNextRow};
        start = end + 1;
    }
    if (count < rows.size()) return std::nullopt;
    return rows;
}

}  // namespace klt
