#include "cli/SourcePicture.h"

#include <algorithm>
#include <optional>

#include "text/ShownText.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kCut = "...";
constexpr size_t kTab = 8;
// Marks take no columns, and there may be any number of them on one character.
constexpr size_t kBytesOfColumn = 16;

class LineWindow {
public:
    LineWindow(std::string_view text, size_t lineStart, size_t caret, size_t columns)
        : text_(text), lineStart_(lineStart), columns_(columns - 1) {
        choose(caret);
    }

    SourcePicture draw(size_t runStart, size_t runEnd, size_t caret) const;

private:
    /// A character of the line, and the columns that it takes at a column.
    struct Cell {
        char32_t code;
        size_t bytes, columns;
    };
    Cell cellAt(size_t offset, size_t column) const;
    bool isEnd(size_t offset) const { return offset >= text_.size() || text_.substr(offset, 2) == "\r\n"; }

    void choose(size_t caret);
    struct Reach {
        size_t end, columns;
    };
    /// How far the columns reach.
    Reach reach(size_t start, size_t columns) const;
    size_t back(size_t caret, size_t columns) const;

    std::string_view text_;
    size_t lineStart_;
    // All but one, in which a caret behind the line may stand.
    size_t columns_;
    size_t start_ = 0, end_ = 0;
};

LineWindow::Cell LineWindow::cellAt(size_t offset, size_t column) const {
    const auto character = characterAt(text_, offset);
    if (character.code == '\t') return {' ', 1, kTab - column % kTab};
    const auto shown = shownCharacter(character.code);
    return {shown.code, character.length, static_cast<size_t>(std::max(shown.columns, 0))};
}

LineWindow::Reach LineWindow::reach(size_t start, size_t columns) const {
    const auto lastByte = start + columns * kBytesOfColumn;
    size_t at = start, column = 0;
    while (!isEnd(at) && at < lastByte) {
        const auto cell = cellAt(at, column);
        if (column + cell.columns > columns) break;
        column += cell.columns;
        at += cell.bytes;
    }
    return {at, column};
}

size_t LineWindow::back(size_t caret, size_t columns) const {
    const auto farthest = caret - std::min(caret - lineStart_, columns * kBytesOfColumn);
    auto at = caret;
    size_t column = 0;
    while (at > farthest) {
        const auto previous = previousCharacter(text_, at);
        // A tab is never wider than at column 0.
        column += cellAt(previous, 0).columns;
        if (column > columns || previous < farthest) break;
        at = previous;
    }
    // A mark stays with its character.
    while (at > lineStart_ && at < caret && cellAt(at, 0).columns == 0) at += cellAt(at, 0).bytes;
    return at;
}

void LineWindow::choose(size_t caret) {
    const auto behind = reach(caret, columns_ / 2);
    const auto rest = isEnd(behind.end) ? behind.columns : columns_ / 2;
    start_ = isEnd(reach(lineStart_, columns_).end) ? lineStart_ : back(caret, columns_ - kCut.size() - rest);
    const auto room = columns_ - (start_ > lineStart_ ? kCut.size() : 0);
    end_ = reach(start_, room).end;
    if (!isEnd(end_)) end_ = reach(start_, room - kCut.size()).end;
}

SourcePicture LineWindow::draw(size_t runStart, size_t runEnd, size_t caret) const {
    SourcePicture picture;
    if (start_ > lineStart_) picture.line = kCut;
    size_t column = picture.line.size(), lastColumn = column;
    const auto cutColumns = column;
    const auto mark = [&](size_t from, size_t to, char with) {
        picture.marks.resize(std::max(picture.marks.size(), to), ' ');
        std::fill(picture.marks.begin() + static_cast<std::ptrdiff_t>(from),
                  picture.marks.begin() + static_cast<std::ptrdiff_t>(to), with);
    };
    std::optional<size_t> caretColumn;
    for (auto at = start_; at < end_;) {
        const auto cell = cellAt(at, column - cutColumns);
        if (cell.columns > 0) lastColumn = column;
        if (!caretColumn && caret < at + cell.bytes) caretColumn = lastColumn;
        if (cell.code == ' ')
            picture.line.append(cell.columns, ' ');
        else
            appendCharacter(picture.line, cell.code);
        column += cell.columns;
        if (runStart < at + cell.bytes && at < runEnd) mark(lastColumn, column, '~');
        at += cell.bytes;
    }
    if (!isEnd(end_)) picture.line += kCut;
    const auto place = caretColumn.value_or(column);
    mark(place, place + 1, '^');
    return picture;
}

}  // namespace

SourcePicture pictureOf(std::string_view text, size_t lineStart, TextRange run, size_t caret,
                        size_t columns) {
    return LineWindow(text, lineStart, caret, columns)
        .draw(static_cast<size_t>(std::max<Position>(run.start, 0)), static_cast<size_t>(run.end), caret);
}

}  // namespace klt
