#pragma once

#include <cstddef>
#include <limits>

namespace quillery::test {

/// Which calls of the operating system go wrong. The test program stands between the code and the
/// C library for the calls that read and write files and start threads.
struct SystemFaultPlan {
  /// The call to fail, counted from 1 among all of these calls; 0 for none.
  int failNth = 0;
  /// All after it fail too.
  bool goesOn = false;
  /// Only calls of this name are counted ("pwrite"; "create" for an open that makes a file).
  const char* only = nullptr;
  int code = 0;
  /// No file can be made in any folder.
  bool foldersClosed = false;
  /// Most bytes that one read or write moves.
  std::size_t transferLimit = std::numeric_limits<std::size_t>::max();
};

/// Carries the plan out for the calling thread while it lives.
class SystemFaults {
public:
  explicit SystemFaults(const SystemFaultPlan& plan);
  ~SystemFaults();
  SystemFaults(const SystemFaults&) = delete;
  SystemFaults& operator=(const SystemFaults&) = delete;

  /// The name of the call that failed; null when there were not so many.
  const char* struck() const { return struck_; }

  // For the calls themselves.
  bool strikes(const char* call);
  bool foldersClosed() const { return plan_.foldersClosed; }
  std::size_t transferLimit() const { return plan_.transferLimit; }

private:
  SystemFaultPlan plan_;
  int counted_ = 0;
  const char* struck_ = nullptr;
};

} // namespace quillery::test
