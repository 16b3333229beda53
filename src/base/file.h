#pragma once

#include "base/descriptor.h"
#include "base/result.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace quillery {

/// A failure of the file system: which file, and why in words for the user.
struct FileError {
  std::filesystem::path path;
  std::string reason;

  /// The path, ": " and the reason.
  std::string description() const;
};

/// The bytes of a file, in a buffer that can be used for one file after the other.
class FileBytes {
public:
  /// Bytes that may be read, though they mean nothing, behind the content: JSON is parsed in
  /// steps of this size at most.
  static constexpr std::size_t kPadding = 64;

  std::string_view view() const { return {data_.get(), size_}; }
  char* data() { return data_.get(); }
  std::size_t size() const { return size_; }

private:
  friend Result<void, FileError> readFile(const std::filesystem::path& path, FileBytes& bytes);
  void reserve(std::size_t capacity);

  std::unique_ptr<char[]> data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

/// Reads a whole regular file into `bytes`. Folders, pipes, sockets and devices are refused without
/// waiting on them.
Result<void, FileError> readFile(const std::filesystem::path& path, FileBytes& bytes);

/// Replaces a file's content whole or not at all: what is appended becomes the file's content by
/// `commit`; without it, or when any step fails, the old file stays (and a new one does not come
/// into being).
///
/// The new content is written to a sibling file, flushed to the disk, given the old file's mode and
/// owner and renamed over it. Symbolic links are followed to the file that they name. Where the
/// folder can't be written, or the file has several hard links, the content is collected and
/// written in place, with the old content put back on failure. A target that is not a regular file
/// or that the user may not write is refused.
class FileReplacement {
public:
  static Result<FileReplacement, FileError> begin(const std::filesystem::path& path);

  FileReplacement(FileReplacement&& other) noexcept;
  FileReplacement& operator=(FileReplacement&&) = delete;
  ~FileReplacement();

  Result<void, FileError> append(std::string_view content);
  Result<void, FileError> commit();

private:
  FileReplacement() = default;
  Failure<FileError> failure(int code) const;
  Result<void, FileError> commitInPlace();

  std::filesystem::path path_;      // as given, for messages
  std::filesystem::path target_;    // links resolved
  std::filesystem::path temporary_; // empty when writing in place
  Descriptor descriptor_;
  std::size_t written_ = 0;
  std::string collected_; // the content, when writing in place
};

/// A FileReplacement of one piece.
Result<void, FileError> replaceFile(const std::filesystem::path& path, std::string_view content);

/// The absolute file URL of a path (RFC 8089), with every byte but the unreserved characters and
/// "/" percent-encoded.
std::string fileUrl(const std::filesystem::path& path);

} // namespace quillery
