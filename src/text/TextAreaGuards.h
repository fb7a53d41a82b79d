#pragma once

#include "text/TextArea.h"

namespace klt {

/// While one stands, changes and selection changes of the area raise no notification, then or later.
class NotificationMask {
public:
    explicit NotificationMask(TextArea& area) : area_(area) { area_.MaskNotifications(true); }
    ~NotificationMask() { area_.MaskNotifications(false); }
    NotificationMask(const NotificationMask&) = delete;
    NotificationMask& operator=(const NotificationMask&) = delete;

private:
    TextArea& area_;
};

/// While one stands, the area is not repainted.
class RedrawFreeze {
public:
    explicit RedrawFreeze(TextArea& area) : area_(area) { area_.Freeze(true); }
    ~RedrawFreeze() { area_.Freeze(false); }
    RedrawFreeze(const RedrawFreeze&) = delete;
    RedrawFreeze& operator=(const RedrawFreeze&) = delete;

private:
    TextArea& area_;
};

/// The edits made while one stands are undone as one.
class UndoGroup {
public:
    explicit UndoGroup(TextArea& area) : area_(area) { area_.GroupUndo(true); }
    ~UndoGroup() { area_.GroupUndo(false); }
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

private:
    TextArea& area_;
};

}  // namespace klt
