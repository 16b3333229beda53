#include "font/container.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <exception>
#include <woff2/encode.h>

namespace quillery::font {

namespace {

/// While this lives, what the library says on standard error goes nowhere: that it failed is told
/// by its result, and who reads our standard error expects sentences of ours.
class Silence {
public:
  Silence() : before_(stderr), nowhere_(std::fopen("/dev/null", "we")) {
    if (nowhere_) stderr = nowhere_;
  }
  ~Silence() {
    stderr = before_;
    if (nowhere_) std::fclose(nowhere_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

private:
  std::FILE* before_;
  std::FILE* nowhere_;
};

bool convert(const Bytes& sfnt, int brotliQuality, Bytes& woff2) {
  const auto* data = reinterpret_cast<const std::uint8_t*>(sfnt.data());
  woff2::WOFF2Params parameters;
  parameters.brotli_quality = brotliQuality;
  const Silence silence;
  try {
    std::size_t size = woff2::MaxWOFF2CompressedSize(data, sfnt.size());
    woff2.resize(size);
    if (!woff2::ConvertTTFToWOFF2(data, sfnt.size(), reinterpret_cast<std::uint8_t*>(woff2.data()),
                                  &size, parameters))
      return false;
    woff2.resize(size);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

} // namespace

Result<Bytes, FontError> packWoff2(std::vector<Table> tables, int brotliQuality) {
  assert(brotliQuality >= 0 && brotliQuality <= 11);
  assert(std::ranges::find(tables, "glyf", &Table::tag) != tables.end());
  Bytes woff2;
  if (!convert(packSfnt(std::move(tables)), brotliQuality, woff2))
    return Failure{FontError{"The font cannot be packed as WOFF2."}};
  return woff2;
}

} // namespace quillery::font
