#pragma once

#include "base/descriptor.h"
#include "base/problem.h"
#include "base/result.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace quillery {

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
  friend Result<void, Problem> readFile(const std::filesystem::path& path, FileBytes& bytes);
  void reserve(std::size_t capacity);

  std::unique_ptr<char[]> data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

// The place of a problem with a file is the path as it was given.

/// Reads a whole regular file into `bytes`. Folders, pipes, sockets and devices are refused without
/// waiting on them.
Result<void, Problem> readFile(const std::filesystem::path& path, FileBytes& bytes);

/// Replaces a file's content whole or not at all: what is appended becomes the file's content by
/// `commit`; without it, or when any step fails, the old file stays (and a new one does not come
/// into being).
///
/// The new content is written to a sibling file, flushed to the disk and renamed over the old file,
/// whose owner, group, mode and extended attributes it has. Symbolic links are followed to the file
/// that they name. Where the folder can't be written, the sibling can't be made like the old file
/// or the file has several hard links, the content is collected and written in place, with the old
/// content put back on failure. A target that is not a regular file or that the user may not write
/// is refused.
class FileReplacement {
public:
  static Result<FileReplacement, Problem> begin(const std::filesystem::path& path);

  FileReplacement(FileReplacement&& other) noexcept;
  FileReplacement& operator=(FileReplacement&&) = delete;
  ~FileReplacement();

  Result<void, Problem> append(std::string_view content);
  /// Success once the file's name stands for the new content. That the folder can't be flushed then
  /// is no failure: at worst a machine that goes down the next moment comes up with the old file.
  Result<void, Problem> commit();

private:
  FileReplacement() = default;
  Failure<Problem> failure(int code) const;
  Result<void, Problem> commitInPlace();

  std::filesystem::path path_;      // as given, for messages
  std::filesystem::path target_;    // links resolved
  std::filesystem::path temporary_; // empty when writing in place
  Descriptor descriptor_;
  std::size_t written_ = 0;
  std::string collected_; // the content, when writing in place
};

/// A FileReplacement of one piece.
Result<void, Problem> replaceFile(const std::filesystem::path& path, std::string_view content);

/// A file that is not there yet, for its owner only, written piece by piece. What could be written
/// of it stays when that fails half way.
class NewFile {
public:
  static Result<NewFile, Problem> create(const std::filesystem::path& path);

  Result<void, Problem> append(std::string_view content);
  Result<void, Problem> close();

private:
  NewFile(std::filesystem::path path, Descriptor descriptor);

  std::filesystem::path path_;
  Descriptor descriptor_;
  std::size_t written_ = 0;
};

/// A NewFile of one piece.
Result<void, Problem> writeNewFile(const std::filesystem::path& path, std::string_view content);

/// The user's folder for temporary files: an absolute path to a folder that is there. It may be
/// everyone's.
Result<std::filesystem::path, Problem> temporaryFolder();

/// The absolute file URL of a path (RFC 8089), with every byte but the unreserved characters and
/// "/" percent-encoded.
std::string fileUrl(const std::filesystem::path& path);

} // namespace quillery
