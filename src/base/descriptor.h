#pragma once

#include <unistd.h>
#include <utility>

namespace quillery {

/// Owns an open file descriptor of the system.
class Descriptor {
public:
  Descriptor() = default;
  /// Takes over `descriptor`, which may be -1 for none.
  explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
  Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~Descriptor() { close(); }

  /// -1 for none.
  int get() const { return descriptor_; }

  /// False, with errno set, when the system could not close it, which may mean lost data.
  bool close() {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 || ::close(descriptor) == 0;
  }

private:
  int descriptor_ = -1;
};

} // namespace quillery
