#pragma once

namespace klt {

/// Big blocks of the whole program come in large pages; to be called once by whoever relies on it, so that
/// the linker takes the allocator that does it. Scintilla's buffers can be reached in no other way, and fresh
/// memory in small pages is most of the time that a long text takes to come in.
void useLargeBlocks();

}  // namespace klt
