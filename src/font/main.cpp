#include "base/file.h"
#include "font/compile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

// generate_font [--brotli-quality N] INPUT.json OUTPUT.(otf|ttf|woff|woff2): writes the font that a
// JSON description asks for. Exit status: 0 the font is written, 1 it could not be made, 2 wrong
// usage. A failure prints one sentence on standard error and leaves the output file as it was.

namespace {

namespace fs = std::filesystem;
using namespace quillery;
using namespace quillery::font;

constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

struct Request {
  std::string input;
  std::string output;
  CompileOptions options;
};

int fail(const std::string& sentence, int status) {
  std::fprintf(stderr, "%s\n", sentence.c_str());
  return status;
}

FontError unwritable(const fs::path& output, const std::string& why) {
  return {"The font " + inQuotes(output.string()) + " cannot be written: " + why + "."};
}

// A request to end is an ordinary failure. While the font takes the old one's place it waits, so
// that no half of it stays behind.
extern "C" void onInterruption(int) {
  constexpr char kSentence[] = "The font was not made: it was interrupted.\n";
  [[maybe_unused]] const auto written = write(STDERR_FILENO, kSentence, sizeof kSentence - 1);
  _exit(kFailed);
}

class InterruptionsWait {
public:
  InterruptionsWait() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  }
};

// Before any work is done: whether a file can be written there at all.
Result<void, FontError> checkTarget(const fs::path& output) {
  struct stat info {};
  if (stat(output.c_str(), &info) == 0) {
    if (S_ISDIR(info.st_mode)) return Failure{unwritable(output, "it is a folder")};
    if (!S_ISREG(info.st_mode)) return Failure{unwritable(output, "it is not a regular file")};
    return {};
  }
  if (errno != ENOENT) return Failure{unwritable(output, std::strerror(errno))};
  const fs::path folder = output.parent_path();
  if (stat(folder.empty() ? "." : folder.c_str(), &info) != 0)
    return Failure{unwritable(output, "its folder does not exist")};
  return {};
}

// The date that SOURCE_DATE_EPOCH gives, if it gives any.
Result<void, FontError> readDate(std::int64_t& date) {
  constexpr std::size_t kMostDigits = 15;
  const char* variable = std::getenv("SOURCE_DATE_EPOCH");
  const std::string text = variable != nullptr ? variable : "";
  if (text.empty()) return {};
  if (text.size() > kMostDigits || text.find_first_not_of("0123456789") != std::string::npos)
    return Failure{
        FontError{"SOURCE_DATE_EPOCH is " + inQuotes(text) + ", which is no number of seconds."}};
  date = std::atoll(text.c_str());
  return {};
}

Result<std::vector<Warning>, FontError> make(Request request) {
  const fs::path output = request.output;
  const auto format = formatOfExtension(output.extension().string());
  if (!format)
    return Failure{unwritable(output, "its name ends in none of .otf, .ttf, .woff, .woff2")};
  if (const auto checked = checkTarget(output); !checked) return Failure{checked.error()};
  if (const auto date = readDate(request.options.date); !date) return Failure{date.error()};
  const auto description = readDescription(request.input);
  if (!description) return Failure{description.error()};
  auto font = compileFont(description.value(), *format, request.options);
  if (!font) return Failure{font.error()};
  const InterruptionsWait untilTheEnd;
  if (const auto written = replaceFile(output, font.value().file); !written)
    return Failure{unwritable(output, written.error().reason)};
  return std::move(font.value().warnings);
}

void report(const std::vector<Warning>& warnings) {
  for (const Warning& warning : warnings) {
    const std::string glyph = inQuotes(warning.glyph);
    std::printf("%s: %s\n", glyph.substr(1, glyph.size() - 2).c_str(), warning.message.c_str());
  }
  std::fflush(stdout);
}

int run(int argc, char** argv) {
  Request request;
  CLI::App command;
  command.set_help_flag();
  command.add_option("--brotli-quality", request.options.brotliQuality)->check(CLI::Range(0, 11));
  command.add_option("INPUT", request.input)->required();
  command.add_option("OUTPUT", request.output)->required();
  try {
    command.parse(argc, argv);
  } catch (const CLI::ParseError&) {
    return fail(
        "usage: generate_font [--brotli-quality 0..11] INPUT.json OUTPUT.(otf|ttf|woff|woff2)",
        kWrongUsage);
  }
  const auto warnings = make(std::move(request));
  if (!warnings) return fail(warnings.error().sentence, kFailed);
  report(warnings.value());
  return kDone;
}

} // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN); // the font is there even when nobody reads the warnings
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGTERM, onInterruption);
  std::signal(SIGINT, onInterruption);
  int status = kFailed;
  try {
    status = run(argc, argv);
  } catch (const std::bad_alloc&) {
    status = fail("There is not enough memory to make the font.", kFailed);
  } catch (const std::exception& error) {
    status = fail("The font could not be made: " + inQuotes(error.what()) + ".", kFailed);
  }
  // The system frees memory at once; taking it apart piece by piece takes time.
  std::fflush(nullptr);
  _exit(status);
}
