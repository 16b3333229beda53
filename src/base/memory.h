#pragma once

namespace quillery {

/// Gives memory that was freed back to the system, after something large has gone: the allocator
/// would keep most of it for what may come.
void releaseFreedMemory();

} // namespace quillery
