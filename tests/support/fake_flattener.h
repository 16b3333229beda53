#pragma once

#include "project/drawing_flattener.h"
#include "support/projects.h"

#include <atomic>
#include <map>
#include <string>
#include <vector>

namespace quillery::test {

inline FlatDrawing flat(const std::string& pathData, const Artboard& artboard,
                        const std::vector<std::string>& notes = {}) {
  FlatDrawing drawing{utf8(pathData), artboard, {}};
  for (const std::string& note : notes) drawing.notes.push_back(utf8(note));
  return drawing;
}

/// Knows its drawings by the content of their files.
class FakeFlattener : public DrawingFlattener {
public:
  std::map<std::string, FlatDrawing, std::less<>> drawings;

  Result<FlatDrawing, std::string> flatten(std::string_view file) override {
    const auto known = drawings.find(file);
    if (known == drawings.end()) return Failure{std::string("it is none")};
    return known->second;
  }
  Result<DrawingSheet, std::string> flattenSheet(std::string_view) override {
    return Failure{std::string("it is none")};
  }
};

/// Takes every drawing for the same triangle on a page of 100 by 80, and a content that says so for
/// one that can't be converted or that loses something.
class TriangleFlattener : public DrawingFlattener {
public:
  static constexpr const char* kPath = "M10 20 L90 20 L90 80 Z";

  Result<FlatDrawing, std::string> flatten(std::string_view file) override {
    ++flattened;
    if (file.find("broken") != file.npos) return Failure{std::string("nothing is drawn")};
    FlatDrawing drawing{Utf8::mended(kPath), {{0, 0, 100, 80}, {}}, {}};
    if (file.find("<image") != file.npos) drawing.notes.push_back(Utf8("an image was left out"));
    return drawing;
  }
  Result<DrawingSheet, std::string> flattenSheet(std::string_view) override { return sheet; }

  /// What every file holds as a sheet.
  DrawingSheet sheet;
  std::atomic<int> flattened = 0;
};

} // namespace quillery::test
