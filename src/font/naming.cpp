#include "font/naming.h"

#include "base/numbers.h"
#include "base/unicode.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <libdeflate.h>
#include <map>

namespace quillery::font {

namespace {

struct Weight {
  std::string_view word;
  std::string_view style;
  int weight;
};
// Longer words stand before those that they begin with or end in.
constexpr Weight kWeights[] = {{"extralight", "ExtraLight", 200},
                               {"ultralight", "UltraLight", 200},
                               {"extrabold", "ExtraBold", 800},
                               {"ultrabold", "UltraBold", 800},
                               {"semibold", "SemiBold", 600},
                               {"demibold", "DemiBold", 600},
                               {"hairline", "Hairline", 100},
                               {"regular", "", 400},
                               {"normal", "", 400},
                               {"medium", "Medium", 500},
                               {"light", "Light", 300},
                               {"black", "Black", 900},
                               {"heavy", "Heavy", 900},
                               {"thin", "Thin", 100},
                               {"bold", "Bold", 700}};
constexpr std::string_view kWeightPrefixes[] = {"extra", "ultra", "semi", "demi"};

// Part of the family's name; what the OS/2 table says of it is the number.
constexpr std::pair<std::string_view, int> kWidths[] = {
    {"ultracondensed", 1}, {"extracondensed", 2}, {"condensed", 3},     {"compressed", 3},
    {"narrow", 3},         {"semicondensed", 4},  {"semiexpanded", 6},  {"expanded", 7},
    {"extended", 7},       {"wide", 7},           {"extraexpanded", 8}, {"ultraexpanded", 9}};
constexpr int kNormalWidth = 5;

// Letters that have no accent to lose and yet a plain spelling.
constexpr std::pair<char32_t, std::string_view> kLatin[] = {
    {U'ß', "ss"}, {U'ẞ', "SS"}, {U'æ', "ae"}, {U'Æ', "AE"}, {U'œ', "oe"}, {U'Œ', "OE"},
    {U'ø', "o"},  {U'Ø', "O"},  {U'đ', "d"},  {U'Đ', "D"},  {U'ð', "d"},  {U'Ð', "D"},
    {U'ł', "l"},  {U'Ł', "L"},  {U'þ', "th"}, {U'Þ', "Th"}, {U'ı', "i"}};

constexpr std::size_t kLongestPostscriptName = 63;
constexpr std::size_t kLargestStorage = 65535; // bytes that the offsets of a name table reach
constexpr unsigned kWindows = 3, kUnicodeBmp = 1, kEnglish = 0x409;

struct StyleWords {
  std::vector<const Weight*> weights;
  std::vector<Naming::Slope> slopes;

  bool empty() const { return weights.empty() && slopes.empty(); }
};

std::string withoutHyphens(std::string text) {
  std::erase(text, '-');
  return text;
}

// The style words that `word` consists of; none if it holds anything else.
StyleWords styleWords(const std::string& word) {
  const std::string text = withoutHyphens(lowercased(word));
  std::string_view rest = text;
  StyleWords found;
  while (!rest.empty()) {
    if (rest.starts_with("italic") || rest.starts_with("oblique")) {
      const bool isItalic = rest.front() == 'i';
      found.slopes.push_back(isItalic ? Naming::Slope::italic : Naming::Slope::oblique);
      rest.remove_prefix(isItalic ? 6 : 7);
      continue;
    }
    const auto* weight = std::find_if(std::begin(kWeights), std::end(kWeights),
                                      [&](const Weight& w) { return rest.starts_with(w.word); });
    if (weight == std::end(kWeights)) return {};
    found.weights.push_back(weight);
    rest.remove_prefix(weight->word.size());
  }
  return found;
}

// Control characters, spaces and breaks.
bool isBlank(char32_t scalar) {
  return scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0) || scalar == 0x2028 ||
         scalar == 0x2029 || isSpace(scalar);
}

std::string trimmed(const std::string& text) {
  auto characters = scalars(text);
  const auto isText = [](char32_t scalar) { return !isBlank(scalar); };
  characters.erase(std::find_if(characters.rbegin(), characters.rend(), isText).base(),
                   characters.end());
  std::string result;
  for (auto at = std::find_if(characters.begin(), characters.end(), isText); at != characters.end();
       ++at)
    result += scalarText(*at);
  return result;
}

std::vector<std::string> wordsOf(const std::string& text) {
  std::vector<std::string> words(1);
  for (const char32_t scalar : scalars(text)) {
    if (!isBlank(scalar))
      words.back() += scalarText(scalar);
    else if (!words.back().empty())
      words.emplace_back();
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

int widthOf(const std::vector<std::string>& words) {
  const auto widthNamed = [](const std::string& word) {
    const auto* found = std::find_if(std::begin(kWidths), std::end(kWidths),
                                     [&](const auto& width) { return width.first == word; });
    return found == std::end(kWidths) ? 0 : found->second;
  };
  for (std::size_t i = words.size(); i-- > 0;) {
    const std::string last = lowercased(words[i]);
    const std::string two = withoutHyphens((i > 0 ? lowercased(words[i - 1]) : "") + last);
    for (const std::string& word : {two, last})
      if (const int width = widthNamed(word)) return width;
  }
  return kNormalWidth;
}

// The first number in the version to three places; 1 where there is none that a font holds.
double revisionOf(const std::string& version) {
  constexpr std::size_t kLongest = 40;
  const auto digits = [&](std::size_t at) {
    return std::min(version.find_first_not_of("0123456789", at), version.size());
  };
  const std::size_t begin = version.find_first_of("0123456789");
  if (begin == std::string::npos) return 1;
  std::size_t end = digits(begin);
  if (end < version.size() && version[end] == '.' && digits(end + 1) > end + 1)
    end = digits(end + 1);
  double number = 0;
  if (end - begin >= kLongest ||
      std::from_chars(version.data() + begin, version.data() + end, number).ec != std::errc())
    return 1;
  return number < 32767 ? parseDecimal(formatFixed(number, 3)).value_or(1) : 1;
}

// Letters, digits and one hyphen. Names that lose letters on the way get a number made from the
// whole name, so that two of them are still told apart.
std::string postscriptName(const std::string& family, const std::string& style) {
  std::string translated;
  for (const char32_t scalar : scalars(family)) {
    const auto* plainForm = std::find_if(std::begin(kLatin), std::end(kLatin),
                                         [&](const auto& entry) { return entry.first == scalar; });
    translated +=
        plainForm == std::end(kLatin) ? scalarText(scalar) : std::string(plainForm->second);
  }
  std::string latin;
  bool isLost = false;
  for (const char32_t scalar : scalars(compatibilityDecomposed(translated))) {
    if (scalar >= 0x80)
      isLost = isLost || isLetterNumberOrSymbol(scalar);
    else if (isAlphanumeric(scalar))
      latin += static_cast<char>(scalar);
  }
  if (isLost || latin.empty()) {
    char number[16];
    std::snprintf(number, sizeof number, "%08X", libdeflate_crc32(0, family.data(), family.size()));
    latin = (latin.empty() ? "Font" : latin.substr(0, 40)) + number;
  }
  std::string suffix = style;
  std::erase(suffix, ' ');
  return latin.substr(0, kLongestPostscriptName - 1 - suffix.size()) + "-" + suffix;
}

Bytes utf16(const std::string& text) {
  ByteWriter bytes;
  for (const char32_t scalar : scalars(text)) {
    if (scalar < 0x10000) {
      bytes.u16(scalar);
    } else {
      bytes.u16(0xD800 + ((scalar - 0x10000) >> 10));
      bytes.u16(0xDC00 + ((scalar - 0x10000) & 0x3FF));
    }
  }
  return std::move(bytes).release();
}

} // namespace

std::string Naming::version() const {
  return formatFixed(revision, 3);
}

Naming parseNaming(const std::string& projectName, const std::string& version) {
  auto words = wordsOf(projectName);
  if (words.empty()) words = {"Untitled"};
  if (words.size() == 1) {
    const std::size_t hyphen = words[0].rfind('-');
    if (hyphen != std::string::npos && hyphen + 1 < words[0].size() &&
        words[0].find_first_not_of('-') < hyphen) {
      const std::string family = words[0].substr(0, hyphen), suffix = words[0].substr(hyphen + 1);
      if (!styleWords(suffix).empty()) words = {family, suffix};
    }
  }
  const Weight* weight = nullptr;
  Naming naming;
  while (words.size() > 1) {
    std::size_t taken = 1;
    StyleWords styles = styleWords(words.back());
    if (words.size() > 2) {
      const std::string& before = words[words.size() - 2];
      const std::string prefix = lowercased(before);
      if (std::find(std::begin(kWeightPrefixes), std::end(kWeightPrefixes), prefix) !=
          std::end(kWeightPrefixes))
        if (auto both = styleWords(before + words.back()); !both.empty()) {
          styles = std::move(both);
          taken = 2;
        }
    }
    const bool hasSlope = naming.slope != Naming::Slope::upright;
    if (styles.empty() || styles.weights.size() + (weight != nullptr ? 1 : 0) > 1 ||
        styles.slopes.size() + (hasSlope ? 1 : 0) > 1)
      break;
    if (!styles.weights.empty()) weight = styles.weights.front();
    if (!styles.slopes.empty()) naming.slope = styles.slopes.front();
    words.resize(words.size() - taken);
  }
  naming.family = joined(words);
  naming.style = weight != nullptr ? weight->style : "";
  if (naming.slope != Naming::Slope::upright)
    naming.style += (naming.style.empty() ? "" : " ") +
                    std::string(naming.slope == Naming::Slope::italic ? "Italic" : "Oblique");
  if (naming.style.empty()) naming.style = "Regular";
  naming.weight = weight != nullptr ? weight->weight : 400;
  naming.width = widthOf(words);
  naming.revision = revisionOf(version);
  naming.postscript = postscriptName(naming.family, naming.style);
  return naming;
}

Result<Table, FontError> makeNameTable(const FontDescription& description, const Naming& naming) {
  const bool isSloped = naming.slope != Naming::Slope::upright;
  std::string weightWord = naming.style;
  if (isSloped)
    weightWord = weightWord.substr(
        0, weightWord.find_last_of(' ') == std::string::npos ? 0 : weightWord.find_last_of(' '));
  std::string plainStyle = naming.bold() ? "Bold" : "";
  if (isSloped) plainStyle += plainStyle.empty() ? "Italic" : " Italic";
  if (plainStyle.empty()) plainStyle = "Regular";
  const bool isPlainWeight = naming.bold() || weightWord.empty() || weightWord == "Regular";
  const std::string legacyFamily = isPlainWeight ? naming.family : naming.family + " " + weightWord;
  std::map<unsigned, std::string> records = {{0, trimmed(description.copyright)},
                                             {1, legacyFamily},
                                             {2, plainStyle},
                                             {3, naming.version() + ";" + naming.postscript},
                                             {4, naming.full()},
                                             {5, "Version " + naming.version()},
                                             {6, naming.postscript},
                                             {9, trimmed(description.designer)}};
  if (legacyFamily != naming.family || plainStyle != naming.style) {
    records[16] = naming.family;
    records[17] = naming.style;
  }
  std::erase_if(records, [](const auto& record) { return record.second.empty(); });

  ByteWriter directory;
  Bytes storage;
  std::map<std::string, std::size_t> places; // equal texts are stored once
  directory.u16(0).u16(static_cast<unsigned>(records.size()));
  directory.u16(static_cast<unsigned>(6 + 12 * records.size()));
  for (const auto& [id, text] : records) {
    const Bytes encoded = utf16(text);
    const auto [place, isNew] = places.try_emplace(text, storage.size());
    if (isNew) storage += encoded;
    if (storage.size() > kLargestStorage)
      return Failure{FontError{"The name, designer and copyright of the project are too long for a "
                               "font, which holds " +
                               grouped(kLargestStorage) + " bytes of them in all."}};
    directory.u16(kWindows).u16(kUnicodeBmp).u16(kEnglish).u16(id);
    directory.u16(static_cast<unsigned>(encoded.size()));
    directory.u16(static_cast<unsigned>(place->second));
  }
  directory.bytes(storage);
  return Table{"name", std::move(directory).release()};
}

} // namespace quillery::font
