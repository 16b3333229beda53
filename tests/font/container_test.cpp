#include "font/container.h"

#include <gtest/gtest.h>

#include <libdeflate.h>
#include <memory>
#include <string_view>

namespace quillery::font {
namespace {

using namespace std::string_view_literals;

std::size_t numberAt(std::string_view file, std::size_t at, std::size_t bytes = 4) {
  std::size_t number = 0;
  for (std::size_t i = 0; i < bytes; ++i)
    number = number << 8 | static_cast<unsigned char>(file.at(at + i));
  return number;
}

/// The sum of the data's numbers of 32 bits, zeros following at the end.
std::uint32_t sumOf(Bytes data) {
  data.resize((data.size() + 3) / 4 * 4);
  std::uint32_t sum = 0;
  for (std::size_t at = 0; at < data.size(); at += 4)
    sum += static_cast<std::uint32_t>(numberAt(data, at));
  return sum;
}

/// A font whose one glyph is a triangle, its tables in no order. What stands where head is adjusted
/// is to be ignored.
std::vector<Table> triangle() {
  ByteWriter head;
  head.u32(0x00010000).u32(0x00012000).u32(0xDEADBEEF).u32(0x5F0F3CF5).u16(0b1011).u16(1000);
  head.i64(0).i64(0).i16(0).i16(0).i16(100).i16(100).u16(0).u16(6).u16(2).u16(0).u16(0);
  ByteWriter hhea;
  hhea.u32(0x00010000).i16(800).i16(-200).i16(0).u16(120).i16(0).i16(20).i16(100).i16(1);
  hhea.bytes(Bytes(14, '\0')).u16(1);
  ByteWriter glyf;
  glyf.i16(1).i16(0).i16(0).i16(100).i16(100).u16(2).u16(0);
  glyf.bytes("\x31\x33\x27\x64\x64\x64"sv);
  return {{"maxp", Bytes("\0\1\0\0\0\1\0\3\0\1\0\0\0\0\0\2\0\0\0\0\0\0\0\0\0\1\0\0\0\0\0\0"sv)},
          {"loca", Bytes("\0\0\0\x0A"sv)},
          {"glyf", std::move(glyf).release()},
          {"hmtx", Bytes("\0\x78\0\0"sv)},
          {"head", std::move(head).release()},
          {"hhea", std::move(hhea).release()},
          {"name", Bytes(3001, 'n')}};
}

TEST(FontContainerTest, anOpenTypeFileHoldsTheTablesByTagAndAddsUp) {
  const Bytes file = packSfnt(triangle());
  EXPECT_EQ(numberAt(file, 0), 0x00010000U);
  EXPECT_EQ(numberAt(file, 4), 0x00070040U); // 7 tables, of which 4 are looked up by halving
  EXPECT_EQ(numberAt(file, 8), 0x00020030U);
  EXPECT_EQ(file.size() % 4, 0U);
  EXPECT_EQ(sumOf(file), 0xB1B0AFBA);
  std::string tags;
  std::size_t end = 12 + 7 * 16;
  for (std::size_t entry = 12; entry < 12 + 7 * 16; entry += 16) {
    const std::string tag = file.substr(entry, 4);
    tags += tag + " ";
    EXPECT_EQ(numberAt(file, entry + 8), end) << tag;
    Bytes data = file.substr(end, numberAt(file, entry + 12));
    end += (data.size() + 3) / 4 * 4;
    if (tag == "head") data.replace(8, 4, 4, '\0');
    EXPECT_EQ(numberAt(file, entry + 4), sumOf(data)) << tag;
  }
  EXPECT_EQ(tags, "glyf head hhea hmtx loca maxp name ");
  EXPECT_EQ(end, file.size());
  std::vector<Table> cubic = triangle();
  cubic.push_back({"CFF ", "x"});
  EXPECT_TRUE(packSfnt(cubic).starts_with("OTTO"));
}

TEST(FontContainerTest, aWoffFileIsTheOpenTypeFileCompressed) {
  const Bytes sfnt = packSfnt(triangle());
  const Bytes file = packWoff(triangle());
  EXPECT_EQ(file.substr(0, 8), "wOFF" + sfnt.substr(0, 4));
  EXPECT_EQ(numberAt(file, 8), file.size());
  EXPECT_EQ(numberAt(file, 12, 2), 7U);
  EXPECT_EQ(numberAt(file, 16), sfnt.size());
  EXPECT_LT(file.size(), 500U);
  const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
      libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
  std::size_t end = 44 + 7 * 20;
  for (std::size_t i = 0; i < 7; ++i) {
    const std::size_t entry = 44 + i * 20, sfntEntry = 12 + i * 16;
    EXPECT_EQ(file.substr(entry, 4), sfnt.substr(sfntEntry, 4));
    EXPECT_EQ(numberAt(file, entry + 4), end);
    EXPECT_EQ(numberAt(file, entry + 16), numberAt(sfnt, sfntEntry + 4));
    Bytes data = file.substr(end, numberAt(file, entry + 8));
    const std::size_t length = numberAt(file, entry + 12);
    if (data.size() < length) {
      const Bytes packed = std::exchange(data, Bytes(length, '\0'));
      EXPECT_EQ(libdeflate_zlib_decompress(decompressor.get(), packed.data(), packed.size(),
                                           data.data(), length, nullptr),
                LIBDEFLATE_SUCCESS);
    }
    EXPECT_EQ(data, sfnt.substr(numberAt(sfnt, sfntEntry + 8), length));
    end += (numberAt(file, entry + 8) + 3) / 4 * 4;
  }
  EXPECT_EQ(end, file.size());
}

TEST(FontContainerTest, aWoff2FileIsMadeOrRefusedInSilence) {
  const Result<Bytes, FontError> file = packWoff2(triangle(), 11);
  ASSERT_TRUE(file.ok());
  EXPECT_TRUE(file.value().starts_with("wOF2"));
  EXPECT_EQ(numberAt(file.value(), 8), file.value().size());
  EXPECT_LT(file.value().size(), 300U);
  std::vector<Table> broken = triangle();
  broken[1].data = Bytes("\0\0\x7F\xFF"sv);
  testing::internal::CaptureStderr();
  const Result<Bytes, FontError> refused = packWoff2(broken, 11);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  ASSERT_FALSE(refused.ok());
  EXPECT_EQ(refused.error().sentence, "The font cannot be packed as WOFF2.");
}

} // namespace
} // namespace quillery::font
