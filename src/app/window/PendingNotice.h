#pragma once

#include <QString>
#include <functional>
#include <vector>

class QObject;

namespace klt {

/// A button of a notice, which takes the notice away before it acts.
struct NoticeChoice {
    const char* name;
    /// With its access key.
    const char* caption;
    /// May be empty.
    std::function<void()> chosen;
};

/// What the bar tells until the user takes one of its choices.
struct PendingNotice {
    int id;
    QString text;
    std::vector<NoticeChoice> choices;
    /// The document that it is about; may be null.
    const QObject* about;
};

}  // namespace klt
