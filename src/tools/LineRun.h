#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>

namespace klt {

/// Lines gathered one by one as one view into the text that they come from. Where something between two of
/// them is left out they are copied into `copies`, which must outlive the views.
class LineRun {
public:
    explicit LineRun(std::deque<std::string>& copies) : copies_(copies) {}

    bool empty() const { return lines_.empty(); }
    size_t size() const { return lines_.size(); }

    /// `lines` end with a line end; none at all is allowed.
    void add(std::string_view lines) {
        if (lines.empty()) return;
        if (empty()) {
            lines_ = lines;
        } else if (lines_.data() + lines_.size() == lines.data()) {
            lines_ = {lines_.data(), lines_.size() + lines.size()};
        } else {
            if (copy_ == nullptr) copy_ = &copies_.emplace_back(lines_);
            lines_ = copy_->append(lines);
        }
    }

    /// What has been gathered; the run is empty then.
    std::string_view take() {
        copy_ = nullptr;
        return std::exchange(lines_, {});
    }

private:
    std::deque<std::string>& copies_;
    std::string_view lines_;
    std::string* copy_ = nullptr;
};

}  // namespace klt
