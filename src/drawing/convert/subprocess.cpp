#include "drawing/convert/subprocess.h"

#include "drawing/convert/gobject.h"

#include <gio/gio.h>

namespace quillery {
namespace {

struct ReleaseBytes {
  void operator()(GBytes* bytes) const { g_bytes_unref(bytes); }
};
using Bytes = std::unique_ptr<GBytes, ReleaseBytes>;

} // namespace

Result<std::string, std::string> outputOf(const std::vector<std::string>& command,
                                          const std::string& input) {
  std::vector<const gchar*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) arguments.push_back(argument.c_str());
  arguments.push_back(nullptr);
  GError* error = nullptr;
  const auto flags =
      static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE |
                                    G_SUBPROCESS_FLAGS_STDERR_SILENCE);
  const GObjectPointer<GSubprocess> process(g_subprocess_newv(arguments.data(), flags, &error));
  if (!process) return Failure{"it takes the program " + command[0] + ": " + messageOf(error)};
  const Bytes in(g_bytes_new_static(input.data(), input.size()));
  GBytes* written = nullptr;
  const bool talked = g_subprocess_communicate(process.get(), in.get(), nullptr, &written, nullptr,
                                               &error) != FALSE;
  const Bytes out(written);
  if (!talked) return Failure{command[0] + ": " + messageOf(error)};
  if (g_subprocess_get_successful(process.get()) == FALSE)
    return Failure{command[0] + " can't read it"};
  gsize size = 0;
  const void* data = g_bytes_get_data(out.get(), &size);
  return std::string(static_cast<const char*>(data), size);
}

} // namespace quillery
