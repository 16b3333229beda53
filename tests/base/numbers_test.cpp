#include "base/numbers.h"
#include "support/testing.h"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <regex>

namespace quillery::test {
namespace {

std::uint64_t bits(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

// What random tokens of moderate length do not come across.
TEST(ParseDecimal, ReadsNumbersOfAnyLength) {
  const std::string nines(400, '9');
  const std::pair<std::string, double> rows[] = {{"-0", -0.0},
                                                 {"9007199254740993", 9007199254740992},
                                                 {"1e99999999999999999999", kInfinity},
                                                 {"-1e-999", -0.0},
                                                 {nines, kInfinity},
                                                 {nines + "e-400", 1},
                                                 {"0." + std::string(300, '0') + "1", 1e-301}};
  for (const auto& [text, expected] : rows) {
    const auto number = parseDecimal(text);
    ASSERT_TRUE(number) << text;
    EXPECT_EQ(bits(*number), bits(expected)) << text << " gave " << *number;
  }
}

TEST(ParseDecimal, RefusesEverythingElse) {
  for (const std::string_view text :
       {std::string_view(), std::string_view("5\0", 2), std::string_view(" 5"),
        std::string_view("5\n"), std::string_view("0x10"), std::string_view("inf"),
        std::string_view("nan(1)"), std::string_view("1,5"), std::string_view("\xD9\xA3")})
    EXPECT_FALSE(parseDecimal(text)) << '"' << text << '"';
}

TEST(ParseDecimal, AgreesWithTheCLibraryOnRandomTokens) {
  const std::regex form(R"([+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?)");
  std::mt19937 random(1);
  constexpr std::string_view kAlphabet = "0123456789012345678900..eE+-";
  int numbers = 0;
  for (int i = 0; i < 50'000; ++i) {
    std::string token(random() % 24, ' ');
    for (char& c : token) c = kAlphabet[random() % kAlphabet.size()];
    const auto number = parseDecimal(token);
    ASSERT_EQ(number.has_value(), std::regex_match(token, form)) << token;
    if (!number) continue;
    ++numbers;
    ASSERT_EQ(bits(*number), bits(std::strtod(token.c_str(), nullptr))) << token;
  }
  EXPECT_GT(numbers, 500);
}

TEST(FormatShortest, WritesOrdinaryMagnitudesPlainly) {
  const std::pair<double, const char*> rows[] = {
      {0, "0"},           {-0.0, "-0.0"},    {-200, "-200"},          {100000, "100000"},
      {-12.25, "-12.25"}, {1e-5, "0.00001"}, {1e-7, "0.0000001"},     {9.5e-8, "9.5e-08"},
      {1e16, "1e+16"},    {1e21, "1e+21"},   {-1.7e308, "-1.7e+308"}, {5e-324, "5e-324"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(formatShortest(value), text);
  EXPECT_EQ(formatShortest(9999999999999998), "9999999999999998");
}

// The digits that carry the value, without sign, point, exponent and outer zeros.
std::string significantDigits(std::string text) {
  text = text.substr(0, text.find('e'));
  std::erase_if(text, [](char c) { return c < '0' || c > '9'; });
  const std::size_t first = text.find_first_not_of('0');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of('0') - first + 1);
}

void expectShortestRoundTrip(double value) {
  const std::string text = formatShortest(value);
  ASSERT_LE(text.size(), kShortestCapacity) << text;
  const auto read = parseDecimal(text);
  ASSERT_TRUE(read) << text;
  ASSERT_EQ(bits(*read), bits(value)) << text;
  char general[40];
  const auto end =
      std::to_chars(general, general + sizeof(general), value, std::chars_format::scientific).ptr;
  ASSERT_EQ(significantDigits(text), significantDigits(std::string(general, end)));
}

TEST(FormatShortest, ReadsBackToTheSameBitsWithTheFewestDigits) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 25'000; ++i) {
    const auto any = std::bit_cast<double>(random());
    if (std::isfinite(any)) expectShortestRoundTrip(any);
    // Subnormal numbers, and numbers of few decimals around the sizes of fonts.
    expectShortestRoundTrip(std::bit_cast<double>(random() >> 12));
    const auto decimal = static_cast<double>(random() % 2'000'000'000) / 1e6;
    expectShortestRoundTrip(decimal);
    expectShortestRoundTrip(std::nextafter(-decimal, 1e9));
    expectShortestRoundTrip(static_cast<double>(random() % 200'000'000'000'000) / 1e5);
  }
  for (const double value : {0.0, -0.0, 1e308, 2.2250738585072014e-308, 5e-324, 1e9, 1e-7, 1e16})
    for (const double near : {std::nextafter(value, 0.0), value, std::nextafter(value, 1e300)})
      expectShortestRoundTrip(near);
}

TEST(FixedNumbers, AreRoundedAsTheCLibraryRounds) {
  const std::tuple<double, int, const char*> rows[] = {
      {2.5, 0, "2"},      {3.5, 0, "4"},      {-0.25, 0, "-0"},
      {0.125, 2, "0.12"}, {1.005, 2, "1.00"}, {1e22, 0, "10000000000000000000000"}};
  for (const auto& [value, decimals, text] : rows) EXPECT_EQ(formatFixed(value, decimals), text);
  EXPECT_EQ(formatFixed(-std::numeric_limits<double>::max(), 2).size(), 313U);
  EXPECT_EQ(formatSigned(25.4) + formatSigned(0) + formatSigned(-80.5), "+25+0-80");
}

} // namespace
} // namespace quillery::test
