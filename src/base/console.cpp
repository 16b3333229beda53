#include "base/console.h"

#include <cstdio>
#include <string>

namespace quillery {

void printLine(std::string_view line) {
  std::string text(line);
  text += '\n';
  std::fwrite(text.data(), 1, text.size(), stdout);
}

} // namespace quillery
