#include "app/recovery/LeftTexts.h"

#include <QDateTime>
#include <QLocale>

#include "app/window/NoticeBar.h"

namespace klt {
namespace {

std::string spell(time_t time) {
    return QLocale::c().toString(QDateTime::fromSecsSinceEpoch(time), "d MMMM yyyy, HH:mm").toStdString();
}

}  // namespace

std::string describe(const std::vector<LeftText>& texts) {
    const auto first = spell(texts.front().when), last = spell(texts.back().when);
    std::string told = texts.size() == 1
                           ? "A text that was not saved is kept, from "
                           : std::to_string(texts.size()) + " texts that were not saved are kept, from ";
    told += first;
    if (first != last) told.append(" to ").append(last);
    return told + ".";
}

void LeftTexts::offer(NoticeBar& bar) {
    const auto texts = folder_.takeLeft();
    if (texts.empty()) return;
    const auto openAll = [this, texts] {
        queue_.submit(Origin::User, [this, texts] {
            for (const auto& text : texts) open_(text);
        });
    };
    bar.offer(describe(texts),
              {{"NoticeOpen", "&Open", openAll},
               {"NoticeDismiss", "&Dismiss", [this, &bar, texts] { dismissAll(bar, texts); }}});
}

void LeftTexts::dismissAll(NoticeBar& bar, const std::vector<LeftText>& texts) {
    for (const auto& text : texts)
        if (const auto failure = folder_.dismiss(text.path))
            bar.tell(text.path + " could not be put away: " + *failure);
}

}  // namespace klt
