#include "base/memory.h"

#include <malloc.h>

namespace quillery {

void releaseFreedMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

} // namespace quillery
