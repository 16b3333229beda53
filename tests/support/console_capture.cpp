#include "support/console_capture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

namespace quillery::test {

ConsoleCapture::ConsoleCapture() {
  std::fflush(stdout);
  saved_ = dup(STDOUT_FILENO);
  file_ = memfd_create("console", MFD_CLOEXEC);
  if (saved_ < 0 || file_ < 0 || dup2(file_, STDOUT_FILENO) < 0) std::abort();
}

ConsoleCapture::~ConsoleCapture() {
  const std::string hidden = text();
  dup2(saved_, STDOUT_FILENO);
  // What went wrong was printed here too.
  if (testing::Test::HasFailure()) std::fwrite(hidden.data(), 1, hidden.size(), stdout);
  close(saved_);
  close(file_);
}

std::string ConsoleCapture::text() {
  std::fflush(stdout);
  std::string all;
  char buffer[4096];
  off_t at = 0;
  for (ssize_t count; (count = pread(file_, buffer, sizeof(buffer), at)) > 0; at += count)
    all.append(buffer, static_cast<std::size_t>(count));
  return all;
}

std::vector<std::string> ConsoleCapture::lines() {
  std::vector<std::string> result;
  std::istringstream stream(text());
  for (std::string line; std::getline(stream, line);) result.push_back(line);
  return result;
}

} // namespace quillery::test
