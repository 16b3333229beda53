#pragma once

#include "base/file.h"

#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace quillery::test {

/// Bytes as if they had been read from a file.
inline FileBytes fileBytesOf(std::string_view content) {
  static const int file = memfd_create("bytes", MFD_CLOEXEC);
  FileBytes bytes;
  if (ftruncate(file, 0) != 0 || pwrite(file, content.data(), content.size(), 0) < 0 ||
      !readFile("/proc/self/fd/" + std::to_string(file), bytes))
    std::abort();
  return bytes;
}

} // namespace quillery::test
