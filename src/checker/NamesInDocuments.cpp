#include "checker/NamesInDocuments.h"

#include <algorithm>
#include <cstdint>

#include "language/Outline.h"
#include "text/Ascii.h"
#include "text/Unicode.h"

namespace klt {
namespace {

class Beginning {
public:
    explicit Beginning(std::string_view typed)
        : typed_(typed), isAscii_(isAscii(typed)), characters_(countCharacters(typed)) {}

    bool isOf(std::string_view name) const {
        if (isAscii_) return equalIgnoringAsciiCase(name.substr(0, typed_.size()), typed_);
        return equalIgnoringCase(firstCharacters(name, characters_), typed_);
    }

private:
    std::string_view typed_;
    bool isAscii_;
    size_t characters_;
};

/// A name with its first letters in lower case as a number, which decides nearly all comparisons, and the
/// place in which it came.
struct Sorted {
    uint64_t key;
    std::string_view name;
    size_t place;
};

uint64_t keyOf(std::string_view name) {
    uint64_t key = 0;
    for (size_t i = 0; i < sizeof(key); ++i)
        key = key << 8 | static_cast<unsigned char>(i < name.size() ? toLower(name[i]) : '\0');
    return key;
}

bool isSame(const Sorted& left, const Sorted& right) {
    return left.key == right.key && equalIgnoringAsciiCase(left.name, right.name);
}

bool isBefore(const Sorted& left, const Sorted& right) {
    if (left.key != right.key) return left.key < right.key;
    if (isSame(left, right)) return left.place < right.place;
    return std::ranges::lexicographical_compare(left.name, right.name, {}, toLower, toLower);
}

/// Takes any number of names and holds no more than a few times those that are wanted.
class FirstNames {
public:
    explicit FirstNames(size_t count) : count_(count) {}

    void add(std::string_view name) {
        const Sorted entry{keyOf(name), name, place_++};
        if (isFull_ && !isBefore(entry, names_[count_ - 1])) return;
        names_.push_back(entry);
        constexpr size_t kHeld = 16;
        if (names_.size() > kHeld * count_) settle();
    }

    std::vector<std::string_view> take() {
        settle();
        std::vector<std::string_view> all;
        for (const auto& entry : names_) all.push_back(entry.name);
        return all;
    }

private:
    /// Sorts no more than it needs: names that differ in case alone are few.
    void settle() {
        std::vector<Sorted> behind;
        const size_t enough = 2 * count_;
        if (names_.size() > enough) {
            const auto middle = names_.begin() + static_cast<std::ptrdiff_t>(enough);
            std::ranges::nth_element(names_, middle, isBefore);
            behind.assign(middle, names_.end());
            names_.resize(enough);
        }
        sort();
        if (names_.size() < count_ && !behind.empty()) {
            names_.insert(names_.end(), behind.begin(), behind.end());
            sort();
        }
        isFull_ = names_.size() >= count_;
        if (isFull_) names_.resize(count_);
    }
    /// Of those that differ in case alone the one that came first stays.
    void sort() {
        std::ranges::sort(names_, isBefore);
        names_.erase(std::unique(names_.begin(), names_.end(), isSame), names_.end());
    }

    const size_t count_;
    size_t place_ = 0;
    /// Whether the first `count_` are those of all names so far, sorted, but for what stands behind them.
    bool isFull_ = false;
    std::vector<Sorted> names_;
};

}  // namespace

std::vector<std::string_view> namesInDocuments(std::span<const std::string_view> documents,
                                               const PrefixRow& prefix, std::string_view typed,
                                               size_t count) {
    const Beginning beginning(typed);
    FirstNames names(count);
    for (const auto document : documents)
        walkOutline(document, [&](const OutlineEntry& entry) {
            if (!isOfferedBehind(entry, prefix)) return;
            const auto name = entry.name();
            if (!name.empty() && beginning.isOf(name)) names.add(name);
        });
    return names.take();
}

}  // namespace klt
