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

ssize_t read(int descriptor, void* out, size_t size) {
  NEXT(read);
  return strikes("read") ? -1 : next(descriptor, out, limited(size));
}

ssize_t pwrite(int descriptor, const void* from, size_t size, off_t offset) {
  NEXT(pwrite);
  return strikes("pwrite") ? -1 : next(descriptor, from, limited(size), offset);
}

int fsync(int descriptor) {
  NEXT(fsync);
  return strikes("fsync") ? -1 : next(descriptor);
}

int posix_fallocate(int descriptor, off_t offset, off_t size) {
  NEXT(posix_fallocate);
  return strikes("posix_fallocate") ? errno : next(descriptor, offset, size);
}

int stat(const char* path, struct stat* out) noexcept {
  NEXT(stat);
  return strikes("stat") ? -1 : next(path, out);
}

int fstat(int descriptor, struct stat* out) noexcept {
  NEXT(fstat);
  return strikes("fstat") ? -1 : next(descriptor, out);
}

int access(const char* path, int mode) noexcept {
  NEXT(access);
  return strikes("access") ? -1 : next(path, mode);
}

int fchmod(int descriptor, mode_t mode) noexcept {
  NEXT(fchmod);
  return strikes("fchmod") ? -1 : next(descriptor, mode);
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
  NEXT(fchown);
  return strikes("fchown") ? -1 : next(descriptor, owner, group);
}

ssize_t listxattr(const char* path, char* list, size_t size) noexcept {
  NEXT(listxattr);
  return strikes("listxattr") ? -1 : next(path, list, size);
}

ssize_t flistxattr(int descriptor, char* list, size_t size) noexcept {
  NEXT(flistxattr);
  return strikes("flistxattr") ? -1 : next(descriptor, list, size);
}

ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept {
  NEXT(getxattr);
  return strikes("getxattr") ? -1 : next(path, name, value, size);
}

ssize_t fgetxattr(int descriptor, const char* name, void* value, size_t size) noexcept {
  NEXT(fgetxattr);
  return strikes("fgetxattr") ? -1 : next(descriptor, name, value, size);
}

int fsetxattr(int descriptor, const char* name, const void* value, size_t size,
              int flags) noexcept {
  NEXT(fsetxattr);
  return strikes("fsetxattr") ? -1 : next(descriptor, name, value, size, flags);
}

int fremovexattr(int descriptor, const char* name) noexcept {
  NEXT(fremovexattr);
  return strikes("fremovexattr") ? -1 : next(descriptor, name);
}

int ftruncate(int descriptor, off_t size) noexcept {
  NEXT(ftruncate);
  return strikes("ftruncate") ? -1 : next(descriptor, size);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                   void* argument) noexcept {
  NEXT(pthread_create);
  return strikes("pthread_create") ? errno : next(thread, attributes, start, argument);
}

int rename(const char* from, const char* to) noexcept {
  NEXT(rename);
  return strikes("rename") ? -1 : next(from, to);
}

} // extern "C"
