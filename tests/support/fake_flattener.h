#pragma once

#include "project/drawing_flattener.h"
#include "support/projects.h"

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

} // namespace quillery::test
