#include "drawing/convert/conversion.h"
#include "drawing/drawing_fields.h"

#include <cerrno>
#include <cstdlib>
#include <new>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

// Draws drawings for quillery: reads requests on standard input and answers on standard output
// until there are no more. It is started with the most bytes of memory that it may have.

namespace {

using namespace quillery;

bool readAll(char* to, std::size_t count) {
  while (count > 0) {
    const ssize_t got = read(STDIN_FILENO, to, count);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    to += got;
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

bool writeAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(put));
  }
  return true;
}

std::optional<Fields> readRequest() {
  std::string head(kLengthBytes, '\0');
  if (!readAll(head.data(), head.size())) return std::nullopt;
  const auto length = messageLength(head);
  if (!length) return std::nullopt;
  std::string body(*length, '\0');
  if (!readAll(body.data(), body.size())) return std::nullopt;
  return decodeFields(body);
}

template <typename Value> Fields answerOf(const Result<Value, std::string>& result) {
  if (!result) return {kRefused, result.error()};
  Fields fields = {kDone};
  appendFields(fields, result.value());
  return fields;
}

Fields answer(const Fields& request) {
  if (request.size() != 2) return {kRefused, "the request is none"};
  if (request[0] == kAskFlatten) return answerOf(convertDrawing(request[1], ConversionRoad::exact));
  if (request[0] == kAskTrace) return answerOf(convertDrawing(request[1], ConversionRoad::traced));
  if (request[0] == kAskSheet) return answerOf(convertSheet(request[1]));
  return {kRefused, "the request is none"};
}

} // namespace

int main(int argc, char** argv) {
  if (argc == 2) {
    const rlim_t most = std::strtoull(argv[1], nullptr, 10);
    const rlimit limit{most, most};
    if (most == 0 || setrlimit(RLIMIT_DATA, &limit) != 0) return 1;
  }
  while (const auto request = readRequest())
    if (!writeAll(encodeMessage(answer(*request)))) return 1;
  return 0;
}
