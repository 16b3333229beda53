#include "export/export_validation.h"

#include "base/unicode.h"

#include <algorithm>
#include <bitset>

namespace quillery {
namespace {

constexpr std::string_view kUppercase = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kPunctuation = ".,!?";
constexpr std::size_t kUsableGlyphCount = 26;
constexpr std::size_t kGlyphCountThatCallsForPunctuation = 11;

// What the rules ask about all glyphs together.
struct Coverage {
  bool space = false;
  bool notdef = false;
  std::bitset<128> ascii; // what ASCII characters the glyphs' texts begin with
};

Coverage coverageOf(const std::vector<Glyph>& glyphs) {
  Coverage coverage;
  for (const Glyph& glyph : glyphs) {
    if (!coverage.notdef) {
      const std::string name = lowercased(glyph.name());
      coverage.notdef = name == ".notdef" || name == "notdef";
    }
    if (!glyph.unicode()) continue;
    if (*glyph.unicode() == " ") coverage.space = true;
    // A letter with a combining mark is another character than the letter. Most characters of a
    // large font are told apart from ASCII by their first byte, without a look at boundaries.
    if (!isAscii(std::string_view(*glyph.unicode()).substr(0, 1))) continue;
    const std::string_view first = firstCharacter(*glyph.unicode());
    if (first.size() == 1) coverage.ascii.set(static_cast<std::size_t>(first[0]));
  }
  return coverage;
}

std::string absentFrom(const Coverage& coverage, std::string_view characters) {
  std::string absent;
  for (const char c : characters)
    if (!coverage.ascii.test(static_cast<std::size_t>(c))) absent += c;
  return absent;
}

} // namespace

std::string_view severityMark(Severity severity) {
  switch (severity) {
  case Severity::critical:
    return "🔴";
  case Severity::warning:
    return "🟡";
  case Severity::info:
    break;
  }
  return "🔵";
}

std::vector<ExportWarning> validateForExport(const FontProject& project) {
  std::vector<ExportWarning> warnings;
  const auto warn = [&](Severity severity, std::string title, std::string message,
                        std::optional<FixAction> fix = std::nullopt) {
    warnings.push_back({Uuid::random(), std::move(title), std::move(message), severity, fix});
  };
  const Coverage coverage = coverageOf(project.glyphs);
  const std::size_t count = project.glyphs.size();

  if (!coverage.space)
    warn(Severity::critical, "Missing Space Character",
         "Your font doesn't have a space character. Text will not display correctly without it.",
         FixAction::addSpace);
  if (!coverage.notdef)
    warn(Severity::warning, "Missing .notdef Glyph",
         "Fonts should have a .notdef glyph for missing characters. Some apps may show errors "
         "without it.",
         FixAction::addNotdef);
  if (count < kUsableGlyphCount)
    warn(Severity::info, "Incomplete Character Set",
         "Your font has only " + std::to_string(count) +
             " glyphs. Consider adding A-Z at minimum for basic usability.");
  const std::string missing = absentFrom(coverage, kUppercase);
  // A font without any capital is meant to be so.
  if (!missing.empty() && missing.size() < kUppercase.size())
    warn(Severity::info, "Incomplete Uppercase",
         "Missing " + std::to_string(missing.size()) + " uppercase letters: " + missing);
  if (absentFrom(coverage, kPunctuation) == kPunctuation &&
      count >= kGlyphCountThatCallsForPunctuation)
    warn(Severity::info, "No Punctuation",
         "Consider adding basic punctuation (. , ! ?) for a more complete font.");
  return warnings;
}

Alert exportWarningsAlert(const std::vector<ExportWarning>& warnings) {
  Alert alert;
  alert.title = "Export Warnings";
  alert.style = Alert::Style::warning;
  alert.buttons = {"Export Anyway", "Cancel"};
  alert.message = "The following issues were found:\n\n";
  for (const ExportWarning& warning : warnings) {
    alert.message.append(severityMark(warning.severity));
    alert.message += " " + warning.title + "\n" + warning.message + "\n\n";
    if (warning.severity == Severity::critical) alert.style = Alert::Style::critical;
  }
  alert.message += "Do you want to continue with export?";
  return alert;
}

void showExportWarningsAlert(ProjectManager& manager, const std::vector<ExportWarning>& warnings,
                             std::function<void(bool)> completion) {
  manager.desktop().postToMain(manager.lifetime().guard(
      [&manager, alert = exportWarningsAlert(warnings), completion = std::move(completion)] {
        manager.desktop().showAlert(
            alert, manager.lifetime().guard([completion](std::optional<std::size_t> button) {
              completion(button == 0u);
            }));
      }));
}

} // namespace quillery
