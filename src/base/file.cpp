#include "base/file.h"

#include "base/descriptor.h"
#include "base/file_attributes.h"
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

void flushFolder(const fs::path& folder) {
  const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.get() >= 0) flush(descriptor.get());
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

void FileBytes::reserve(std::size_t capacity) {
  if (capacity <= capacity_) return;
  auto larger = std::make_unique_for_overwrite<char[]>(capacity + kPadding);
  if (size_ > 0) std::memcpy(larger.get(), data_.get(), size_);
  data_ = std::move(larger);
  capacity_ = capacity;
}

Result<void, Problem> readFile(const fs::path& path, FileBytes& bytes) {
  bytes.size_ = 0;
  // Without O_NONBLOCK, opening a pipe waits for somebody to write into it.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat info {};
  if (file.get() < 0 || fstat(file.get(), &info) != 0)
    return Failure{Problem{path.string(), reasonFor(errno)}};
  if (!S_ISREG(info.st_mode)) return Failure{Problem{path.string(), notRegular(info)}};

  // One byte more than the size, so that the end of the file shows without a second read.
  bytes.reserve(static_cast<std::size_t>(info.st_size) + 1);
  for (;;) {
    const std::size_t room = bytes.capacity_ - bytes.size_;
    const ssize_t count = read(file.get(), bytes.data_.get() + bytes.size_, room);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return Failure{Problem{path.string(), reasonFor(errno)}};
    bytes.size_ += static_cast<std::size_t>(count);
    if (static_cast<std::size_t>(count) < room) {
      if (count == 0 || bytes.size_ >= static_cast<std::size_t>(info.st_size)) return {};
    } else {
      bytes.reserve(bytes.capacity_ * 2);
    }
  }
}

Failure<Problem> FileReplacement::failure(int code) const {
  return {Problem{path_.string(), reasonFor(code)}};
}

Result<FileReplacement, Problem> FileReplacement::begin(const fs::path& path) {
  FileReplacement replacement;
  replacement.path_ = path;
  replacement.target_ = resolveLinks(path);
  struct stat old {};
  const bool exists = stat(replacement.target_.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return replacement.failure(errno);
  if (exists && !S_ISREG(old.st_mode)) return Failure{Problem{path.string(), notRegular(old)}};
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
  if (takeAttributes(replacement.descriptor_.get(), replacement.target_, old)) return replacement;
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

Result<void, Problem> FileReplacement::append(std::string_view content) {
  if (temporary_.empty()) {
    collected_ += content;
    return {};
  }
  if (const int code = writeAll(descriptor_.get(), content, written_)) return failure(code);
  // Let the disk begin while the next pieces are made, so that the flush at the end is short.
  constexpr std::size_t kStep = 512 * 1024;
  const std::size_t begin = written_ / kStep * kStep;
  written_ += content.size();
  if (written_ - begin >= kStep)
    sync_file_range(descriptor_.get(), static_cast<off_t>(begin),
                    static_cast<off_t>(written_ - begin), SYNC_FILE_RANGE_WRITE);
  return {};
}

Result<void, Problem> FileReplacement::commit() {
  if (temporary_.empty()) return commitInPlace();
  if (const int code = flush(descriptor_.get())) return failure(code);
  if (!descriptor_.close()) return failure(errno);
  if (rename(temporary_.c_str(), target_.c_str()) != 0) return failure(errno);
  temporary_.clear();
  flushFolder(folderOf(target_)); // whatever comes of it, the name stands for the new content
  return {};
}

Result<void, Problem> FileReplacement::commitInPlace() {
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

Result<fs::path, Problem> temporaryFolder() {
  std::error_code error;
  fs::path folder = fs::temp_directory_path(error);
  if (!error && folder.is_absolute()) return folder;
  return Failure{Problem{"The folder for temporary files",
                         error ? error.message() : "Is not an absolute path: " + folder.string()}};
}

NewFile::NewFile(fs::path path, Descriptor descriptor)
    : path_(std::move(path)), descriptor_(std::move(descriptor)) {}

Result<NewFile, Problem> NewFile::create(const fs::path& path) {
  Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (file.get() < 0) return Failure{Problem{path.string(), reasonFor(errno)}};
  return NewFile(path, std::move(file));
}

Result<void, Problem> NewFile::append(std::string_view content) {
  if (const int code = writeAll(descriptor_.get(), content, written_))
    return Failure{Problem{path_.string(), reasonFor(code)}};
  written_ += content.size();
  return {};
}

Result<void, Problem> NewFile::close() {
  if (descriptor_.close()) return {};
  return Failure{Problem{path_.string(), reasonFor(errno)}};
}

Result<void, Problem> writeNewFile(const fs::path& path, std::string_view content) {
  auto file = NewFile::create(path);
  if (!file) return Failure{file.error()};
  if (auto appended = file.value().append(content); !appended) return appended;
  return file.value().close();
}

Result<void, Problem> replaceFile(const fs::path& path, std::string_view content) {
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
