#include "base/json_writer.h"
#include "base/signal.h"
#include "base/uuid.h"
#include "support/testing.h"

namespace quillery::test {
namespace {

TEST(Uuid, ReadsEitherCaseAndWritesCapitals) {
  const auto id = Uuid::parse("0d9c6E32-7b51-4f0a-a5c8-2e41b7d3f690");
  ASSERT_TRUE(id);
  EXPECT_EQ(id->toString(), "0D9C6E32-7B51-4F0A-A5C8-2E41B7D3F690");
  EXPECT_EQ(Uuid::parse("00000000-0000-0000-0000-000000000000"), Uuid());
  const std::string good = id->toString();
  for (std::size_t i = 0; i < good.size(); ++i) {
    std::string bad = good;
    bad[i] = good[i] == '-' ? '0' : 'G';
    EXPECT_FALSE(Uuid::parse(bad)) << bad;
  }
  for (const std::string& bad :
       {std::string(), good.substr(1), good + "0", "{" + good + "}", " " + good})
    EXPECT_FALSE(Uuid::parse(bad)) << bad;
}

TEST(Signal, LetsListenersConnectDisconnectAndEmitWhileTheyAreCalled) {
  Signal<> signal;
  std::vector<std::string> heard;
  Connection late, itself, next;
  itself = signal.connect([&] {
    heard.emplace_back("itself");
    itself = {};
    next = {};
    late = signal.connect([&] { heard.emplace_back("late"); });
    signal.emit();
  });
  next = signal.connect([&] { heard.emplace_back("next"); });
  const auto last = signal.connect([&] { heard.emplace_back("last"); });
  signal.emit();
  EXPECT_THAT(heard, ElementsAre("itself", "last", "late", "last"));
}

TEST(JsonWriter, EscapesTextsOfAnyLength) {
  JsonWriter writer;
  writer.string("k:", "\"\\/\b\f\n\r\t\x01\x1F\x7Fä" + std::string(1, '\0'));
  std::string expected = R"(k:"\"\\\/\b\f\n\r\t\u0001\u001f)"
                         "\x7Fä\\u0000\"";
  for (const std::size_t size : {1U, 4095U, 31U, 262'144U, 600'000U, 5U}) {
    expected += std::string(size, 'r') + "\"" + std::string(size, 's') + "\\n\"0.1";
    writer.raw(std::string(size, 'r'));
    writer.string("", std::string(size, 's') + "\n");
    writer.number("", 0.1);
  }
  EXPECT_TRUE(writer.view() == expected) << writer.view().size() << " and " << expected.size();
  EXPECT_TRUE(writer.isFinite());
  writer.number("", 1e308 * 10);
  EXPECT_FALSE(writer.isFinite());
}

} // namespace
} // namespace quillery::test
