#include "support/system_faults.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace quillery::test {
namespace {

thread_local SystemFaults* armed = nullptr;

bool strikes(const char* call) {
  return armed && armed->strikes(call);
}

std::size_t limited(std::size_t size) {
  return armed ? std::min(size, armed->transferLimit()) : size;
}

} // namespace

SystemFaults::SystemFaults(const SystemFaultPlan& plan) : plan_(plan) {
  armed = this;
}

SystemFaults::~SystemFaults() {
  armed = nullptr;
}

bool SystemFaults::strikes(const char* call) {
  if (plan_.only && std::strcmp(plan_.only, call) != 0) return false;
  if (struck_ && !plan_.goesOn) return false;
  if (!struck_ && ++counted_ != plan_.failNth) return false;
  struck_ = call;
  errno = plan_.code;
  return true;
}

} // namespace quillery::test

using quillery::test::armed;
using quillery::test::limited;
using quillery::test::strikes;

// The same function further down the line: the C library's, or a sanitizer's before it.
#define NEXT(function)                                                                             \
  static const auto next = reinterpret_cast<decltype(&::function)>(dlsym(RTLD_NEXT, #function))
// A call that fails with -1 and a code in errno, or with the code itself.
#define FAULTY_OR(failure, result, function, parameters, ...)                                      \
  result function parameters {                                                                     \
    NEXT(function);                                                                                \
    return strikes(#function) ? (failure) : next(__VA_ARGS__);                                     \
  }
#define FAULTY(...) FAULTY_OR(-1, __VA_ARGS__)

extern "C" {

int open(const char* path, int flags, ...) {
  NEXT(open);
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
    if (armed && armed->foldersClosed()) return errno = EACCES, -1;
  }
  return strikes((flags & O_CREAT) != 0 ? "create" : "open") ? -1 : next(path, flags, mode);
}

// Like the kernel, which lets go of the descriptor whatever it answers.
int close(int descriptor) {
  NEXT(close);
  const int result = next(descriptor);
  return strikes("close") ? -1 : result;
}

FAULTY(ssize_t, read, (int file, void* out, size_t size), file, out, limited(size))
FAULTY(ssize_t, pwrite, (int file, const void* from, size_t size, off_t at), file, from,
       limited(size), at)
FAULTY(int, fsync, (int file), file)
FAULTY(int, stat, (const char* path, struct stat* out) noexcept, path, out)
FAULTY(int, fstat, (int file, struct stat* out) noexcept, file, out)
FAULTY(int, access, (const char* path, int mode) noexcept, path, mode)
FAULTY(int, fchmod, (int file, mode_t mode) noexcept, file, mode)
FAULTY(int, fchown, (int file, uid_t user, gid_t group) noexcept, file, user, group)
FAULTY(ssize_t, listxattr, (const char* path, char* list, size_t size) noexcept, path, list, size)
FAULTY(ssize_t, flistxattr, (int file, char* list, size_t size) noexcept, file, list, size)
FAULTY(ssize_t, getxattr, (const char* path, const char* name, void* value, size_t size) noexcept,
       path, name, value, size)
FAULTY(ssize_t, fgetxattr, (int file, const char* name, void* value, size_t size) noexcept, file,
       name, value, size)
FAULTY(int, fsetxattr,
       (int file, const char* name, const void* value, size_t size, int flags) noexcept, file, name,
       value, size, flags)
FAULTY(int, fremovexattr, (int file, const char* name) noexcept, file, name)
FAULTY(int, ftruncate, (int file, off_t size) noexcept, file, size)
FAULTY(int, rename, (const char* from, const char* to) noexcept, from, to)
FAULTY_OR(errno, int, posix_fallocate, (int file, off_t at, off_t size), file, at, size)
FAULTY_OR(errno, int, pthread_create,
          (pthread_t * thread, const pthread_attr_t* attributes, void* (*start)(void*),
           void* argument) noexcept,
          thread, attributes, start, argument)

} // extern "C"
