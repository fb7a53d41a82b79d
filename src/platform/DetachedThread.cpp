#include "platform/DetachedThread.h"

#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace klt {

Failure startDetached(std::function<void()> work) {
    const auto guarded = [work = std::move(work)] {
        try {
            work();
        } catch (const std::bad_alloc&) {
        }
    };
    try {
        std::thread(guarded).detach();
    } catch (const std::system_error& error) {
        return systemFailure(error.code().value());
    }
    return std::nullopt;
}

}  // namespace klt
