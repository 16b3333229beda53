#pragma once

#include "base/uuid.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace quillery::test {

/// A folder of its own for one test, removed with all that is in it.
class TemporaryFolder {
public:
  TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path()) {}
  explicit TemporaryFolder(const std::filesystem::path& in)
      : path_(in / ("quillery-test-" + Uuid::random().toString())) {
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

  std::filesystem::path write(std::string_view name, std::string_view content) const {
    const auto file = path_ / name;
    std::ofstream(file, std::ios::binary) << content;
    return file;
  }

private:
  std::filesystem::path path_;
};

inline std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace quillery::test
