#pragma once

#include "support/temporary_folder.h"

#include <cstdlib>

namespace quillery::test {

/// Writes a shell script that can be run like a program, with the folders it lies in.
inline std::filesystem::path writeProgram(const std::filesystem::path& file,
                                          std::string_view body) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << "#!/bin/sh\n" << body << '\n';
  std::filesystem::permissions(file, std::filesystem::perms::owner_all);
  return file;
}

/// Takes the place of the system's folder for temporary files, so that a test sees what is left.
struct TemporaryFiles : TemporaryFolder {
  TemporaryFiles() { setenv("TMPDIR", path().c_str(), 1); }
  ~TemporaryFiles() { unsetenv("TMPDIR"); }
  auto count() const { return std::distance(std::filesystem::directory_iterator(path()), {}); }
};

} // namespace quillery::test
