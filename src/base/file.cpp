#include "base/file.h"

#include "base/descriptor.h"
#include "base/uuid.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace quillery {
namespace {

namespace fs = std::filesystem;

std::string reasonFor(int code) {
  return std::generic_category().message(code);
}

std::string notRegular(const struct stat& info) {
  return S_ISDIR(info.st_mode) ? "Is a folder, not a file" : "Is not a regular file";
}

// All of `content` at `offset`; an errno value, 0 for success.
int writeAll(int descriptor, std::string_view content, std::size_t offset) {
  while (!content.empty()) {
    const ssize_t count =
        pwrite(descriptor, content.data(), content.size(), static_cast<off_t>(offset));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count < 0 ? errno : ENOSPC;
    offset += static_cast<std::size_t>(count);
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int flush(int descriptor) {
  return fsync(descriptor) == 0 ? 0 : errno;
}

int flushFolder(const fs::path& folder) {
  const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.get() < 0) return 0; // a folder that may be written but not read
  const int code = flush(descriptor.get());
  return code == EINVAL || code == ENOTSUP ? 0 : code; // not every file system can
}

// The file that `path` names once links are followed, also when that file is not there yet.
fs::path resolveLinks(fs::path path) {
  constexpr int kMostLinks = 40; // as many as the kernel follows
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const fs::path next = fs::read_symlink(path, error);
    if (error) break;
    path = next.is_absolute() ? next : path.parent_path() / next;
  }
  return path;
}

fs::path folderOf(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

} // namespace

std::string FileError::description() const {
  return path.string() + ": " + reason;
}

void FileBytes::reserve(std::size_t capacity) {
  if (capacity <= capacity_) return;
  auto larger = std::make_unique_for_overwrite<char[]>(capacity + kPadding);
  if (size_ > 0) std::memcpy(larger.get(), data_.get(), size_);
  data_ = std::move(larger);
  capacity_ = capacity;
}

Result<void, FileError> readFile(const fs::path& path, FileBytes& bytes) {
  bytes.size_ = 0;
  // Without O_NONBLOCK, opening a pipe waits for somebody to write into it.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat info {};
  if (file.get() < 0 || fstat(file.get(), &info) != 0)
    return Failure{FileError{path, reasonFor(errno)}};
  if (!S_ISREG(info.st_mode)) return Failure{FileError{path, notRegular(info)}};

  // One byte more than the size, so that the end of the file shows without a second read.
  bytes.reserve(static_cast<std::size_t>(info.st_size) + 1);
  for (;;) {
    const std::size_t room = bytes.capacity_ - bytes.size_;
    const ssize_t count = read(file.get(), bytes.data_.get() + bytes.size_, room);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return Failure{FileError{path, reasonFor(errno)}};
    bytes.size_ += static_cast<std::size_t>(count);
    if (static_cast<std::size_t>(count) < room) {
      if (count == 0 || bytes.size_ >= static_cast<std::size_t>(info.st_size)) return {};
    } else {
      bytes.reserve(bytes.capacity_ * 2);
    }
  }
}

Failure<FileError> FileReplacement::failure(int code) const {
  return {FileError{path_, reasonFor(code)}};
}

Result<FileReplacement, FileError> FileReplacement::begin(const fs::path& path) {
  FileReplacement replacement;
  replacement.path_ = path;
  replacement.target_ = resolveLinks(path);
  struct stat old {};
  const bool exists = stat(replacement.target_.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return replacement.failure(errno);
  if (exists && !S_ISREG(old.st_mode)) return Failure{FileError{path, notRegular(old)}};
  if (exists && access(replacement.target_.c_str(), W_OK) != 0) return replacement.failure(errno);
  if (exists && old.st_nlink > 1) return replacement;

  replacement.temporary_ =
      folderOf(replacement.target_) / (".quillery-" + Uuid::random().toString() + ".tmp");
  const mode_t mode = exists ? 0600 : 0666;
  replacement.descriptor_ = Descriptor(
      open(replacement.temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
  if (replacement.descriptor_.get() < 0) {
    const int code = errno;
    replacement.temporary_.clear();
    const bool folderClosed = code == EACCES || code == EPERM || code == EROFS;
    if (exists && folderClosed) return replacement;
    return replacement.failure(code);
  }
  if (!exists) return replacement;
  const bool sameOwner = old.st_uid == geteuid() && old.st_gid == getegid();
  if ((sameOwner || fchown(replacement.descriptor_.get(), old.st_uid, old.st_gid) == 0) &&
      fchmod(replacement.descriptor_.get(), old.st_mode & 07777) == 0)
    return replacement;
  // The sibling can't become what the file is: keep the file and write into it.
  replacement.descriptor_.close();
  unlink(replacement.temporary_.c_str());
  replacement.temporary_.clear();
  return replacement;
}

FileReplacement::FileReplacement(FileReplacement&& other) noexcept
    : path_(std::move(other.path_)), target_(std::move(other.target_)),
      temporary_(std::exchange(other.temporary_, {})), descriptor_(std::move(other.descriptor_)),
      written_(other.written_), collected_(std::move(other.collected_)) {}

FileReplacement::~FileReplacement() {
  if (!temporary_.empty()) unlink(temporary_.c_str());
}

Result<void, FileError> FileReplacement::append(std::string_view content) {
  if (temporary_.empty()) {
    collected_ += content;
    return {};
  }
  if (const int code = writeAll(descriptor_.get(), content, written_)) return failure(code);
  // Let the disk begin while the next piece is made, so that the flush at the end is short.
  sync_file_range(descriptor_.get(), static_cast<off_t>(written_),
                  static_cast<off_t>(content.size()), SYNC_FILE_RANGE_WRITE);
  written_ += content.size();
  return {};
}

Result<void, FileError> FileReplacement::commit() {
  if (temporary_.empty()) return commitInPlace();
  if (const int code = flush(descriptor_.get())) return failure(code);
  if (!descriptor_.close()) return failure(errno);
  if (rename(temporary_.c_str(), target_.c_str()) != 0) return failure(errno);
  temporary_.clear();
  if (const int code = flushFolder(folderOf(target_))) return failure(code);
  return {};
}

Result<void, FileError> FileReplacement::commitInPlace() {
  FileBytes old;
  if (auto read = readFile(target_, old); !read) return read;
  const Descriptor file(open(target_.c_str(), O_WRONLY | O_CLOEXEC));
  if (file.get() < 0) return failure(errno);
  // Take the room first: a full disk then shows before a byte of the old content is gone.
  int code = 0;
  if (collected_.size() > old.size()) {
    code = posix_fallocate(file.get(), 0, static_cast<off_t>(collected_.size()));
    if (code == EOPNOTSUPP || code == EINVAL) code = 0;
  }
  if (code == 0) code = writeAll(file.get(), collected_, 0);
  if (code == 0 && ftruncate(file.get(), static_cast<off_t>(collected_.size())) != 0) code = errno;
  if (code == 0) code = flush(file.get());
  if (code == 0) return {};

  writeAll(file.get(), old.view(), 0);
  if (ftruncate(file.get(), static_cast<off_t>(old.size())) == 0) flush(file.get());
  return failure(code);
}

Result<void, FileError> replaceFile(const fs::path& path, std::string_view content) {
  auto replacement = FileReplacement::begin(path);
  if (!replacement) return Failure{replacement.error()};
  if (auto appended = replacement.value().append(content); !appended) return appended;
  return replacement.value().commit();
}

std::string fileUrl(const fs::path& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  std::string url = "file://";
  for (const char c : (error ? path : absolute).string()) {
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                       std::strchr("/-._~", c) != nullptr;
    if (plain && c != '\0') {
      url += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      url += '%';
      url += "0123456789ABCDEF"[byte >> 4];
      url += "0123456789ABCDEF"[byte & 0x0F];
    }
  }
  return url;
}

} // namespace quillery
