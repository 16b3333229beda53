#pragma once

#include "project/drawing_flattener.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>

namespace quillery {

/// What one drawing may cost.
struct ConversionLimits {
  /// Of a processor.
  std::chrono::milliseconds time{2000};
  /// Of memory.
  std::size_t bytes = 256 * 1024 * 1024;
};

/// The program that draws drawings, beside ours or where it is installed; nothing when this build
/// has none.
std::optional<std::filesystem::path> findConverter(const std::filesystem::path& executable);

/// Flattens drawings in processes of their own, which are started when there is work for them and
/// kept for the next drawing. One that takes too long, grows too large or breaks takes its drawing
/// with it and no other.
class DrawingConverter : public DrawingFlattener {
public:
  explicit DrawingConverter(std::filesystem::path program, ConversionLimits limits = {});
  /// Waits for the drawings under way.
  ~DrawingConverter() override;

  Result<FlatDrawing, std::string> flatten(std::string_view file) override;
  Result<DrawingSheet, std::string> flattenSheet(std::string_view file) override;

private:
  class Workers;
  std::unique_ptr<Workers> workers_;
};

} // namespace quillery
