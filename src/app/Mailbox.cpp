#include "app/Mailbox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <mutex>
#include <utility>

namespace klt {
namespace {

struct Letter : QEvent {
    explicit Letter(std::function<void()> itsWork) : QEvent(User), work(std::move(itsWork)) {}
    std::function<void()> work;
};

/// Gets what was left in the thread that made it; what it has not got goes with it.
class Reader : public QObject {
public:
    bool event(QEvent* event) override {
        const auto* letter = dynamic_cast<const Letter*>(event);
        if (letter) letter->work();
        return letter || QObject::event(event);
    }
};

}  // namespace

struct Mailbox::Box {
    std::mutex mutex;
    /// Null from the mailbox's end on.
    std::unique_ptr<QObject> reader = std::make_unique<Reader>();
};

Mailbox::Mailbox() : box_(std::make_shared<Box>()) {}

Mailbox::~Mailbox() {
    const std::lock_guard guard(box_->mutex);
    box_->reader.reset();
}

Mailbox::Post Mailbox::post() const {
    return [box = box_](std::function<void()> work) {
        const std::lock_guard guard(box->mutex);
        if (box->reader) QCoreApplication::postEvent(box->reader.get(), new Letter(std::move(work)));
    };
}

}  // namespace klt
