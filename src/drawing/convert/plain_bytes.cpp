#include "drawing/convert/plain_bytes.h"

#include "drawing/convert/gobject.h"

#include <gio/gio.h>

#include <array>
#include <memory>

namespace quillery {
namespace {

Result<std::string, std::string> decompressed(std::string_view file) {
  constexpr std::size_t kMost = 64 * 1024 * 1024;
  const GObjectPointer<GInputStream> bytes(
      g_memory_input_stream_new_from_data(file.data(), static_cast<gssize>(file.size()), nullptr));
  const GObjectPointer<GZlibDecompressor> gzip(
      g_zlib_decompressor_new(G_ZLIB_COMPRESSOR_FORMAT_GZIP));
  const GObjectPointer<GInputStream> plain(
      g_converter_input_stream_new(bytes.get(), G_CONVERTER(gzip.get())));
  std::string text;
  std::array<char, 64 * 1024> buffer{};
  while (text.size() <= kMost) {
    const gssize count =
        g_input_stream_read(plain.get(), buffer.data(), buffer.size(), nullptr, nullptr);
    if (count < 0) return Failure{std::string("it can't be decompressed")};
    if (count == 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return Failure{std::string("it is too large")};
}

Result<std::string, std::string> fromUtf16(std::string_view file) {
  gsize length = 0;
  const std::unique_ptr<gchar, decltype(&g_free)> converted(
      g_convert(file.data(), static_cast<gssize>(file.size()), "UTF-8", "UTF-16", nullptr, &length,
                nullptr),
      &g_free);
  if (!converted) return Failure{std::string("it is not well-formed UTF-16")};
  std::string text(converted.get(), length);
  // Its declaration names an encoding that it has no more.
  if (text.starts_with("<?xml"))
    if (const std::size_t end = text.find("?>"); end != text.npos) text.erase(0, end + 2);
  return text;
}

} // namespace

Result<std::string, std::string> plainBytes(std::string_view file) {
  if (file.starts_with("\x1F\x8B")) {
    const auto plain = decompressed(file);
    if (!plain) return Failure{plain.error()};
    return plain.value().starts_with("\x1F\x8B") ? Result<std::string, std::string>(plain.value())
                                                 : plainBytes(plain.value());
  }
  if (file.starts_with("\xFF\xFE") || file.starts_with("\xFE\xFF")) return fromUtf16(file);
  if (file.starts_with("\xEF\xBB\xBF")) file.remove_prefix(3);
  return std::string(file);
}

} // namespace quillery
