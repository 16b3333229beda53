#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace quillery::test {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the run, so that the fuzzer keeps the input.
inline void require(bool promise, const char* what) {
  if (promise) return;
  std::fprintf(stderr, "Broken promise: %s\n", what);
  std::abort();
}

} // namespace quillery::test
