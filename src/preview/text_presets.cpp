#include "preview/text_presets.h"

#include "base/unicode.h"

namespace quillery {
namespace {

std::string everyCharacter(char32_t first, char32_t last) {
  std::string text;
  for (char32_t c = first; c <= last; ++c) text += scalarText(c);
  return text;
}

std::vector<TextPreset> makePresets() {
  std::vector<TextPreset> presets;
  const auto add = [&](const char* name, std::string text) {
    presets.push_back({.name = name, .text = std::move(text)});
  };
  add("All Characters", "ABCDEFGHIJKLMNOPQRSTUVWXYZ\nabcdefghijklmnopqrstuvwxyz\n0123456789");
  add("Pangrams", "The quick brown fox jumps over the lazy dog.\n"
                  "Sphinx of black quartz, judge my vow!\n"
                  "How vexingly quick daft zebras jump!\n"
                  "The five boxing wizards jump quickly.");
  add("German Pangrams",
      "Franz jagt im komplett verwahrlosten Taxi quer durch Bayern.\n"
      "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich.\n"
      "Die heiße Zypernsonne quälte Max und Victoria ja böse auf dem Weg bis zur Küste.\n"
      "Zornig und gequält rügen jeweils Pontifex und Volk die maßlose bischöfliche Hybris.");
  add("Lorem Ipsum",
      "Lorem ipsum dolor sit amet, consectetur adipiscing elit,\n"
      "sed do eiusmod tempor incididunt ut labore et dolore magna aliqua.\n"
      "Ut enim ad minim veniam, quis nostrud exercitation ullamco laboris\n"
      "nisi ut aliquip ex ea commodo consequat. Duis aute irure dolor in\n"
      "reprehenderit in voluptate velit esse cillum dolore eu fugiat nulla pariatur.\n"
      "Excepteur sint occaecat cupidatat non proident, sunt in culpa qui officia\n"
      "deserunt mollit anim id est laborum.");
  add("Alphabet", "ABCDEFGHIJKLMNOPQRSTUVWXYZ\nabcdefghijklmnopqrstuvwxyz");
  add("Numbers", "0123456789\n1234567890\n32.65 12:23\n173,258.95");
  add("Mixed Case", "AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz");
  add("Kerning Test", "AVATAR AWAY\nTo Ta Te Ty Tr\nAV AW AY AT\nVA WA YA TA");
  add("Numbers & Punctuation", "0123456789 $€£¥\n.,;:!?'\"()[]{}");
  add("ASCII", everyCharacter(0x20, 0x7E));
  add("ASCII Extended", everyCharacter(0x80, 0xFF));
  return presets;
}

} // namespace

const std::vector<TextPreset>& textPresets() {
  static const std::vector<TextPreset> presets = makePresets();
  return presets;
}

} // namespace quillery
