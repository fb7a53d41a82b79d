#pragma once

namespace bench {

/// Widgets want an application; an offscreen one needs no display, and leaves the environment as it is.
void needApplication();

}  // namespace bench
