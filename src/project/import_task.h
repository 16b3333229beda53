#pragma once

#include "base/uuid.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace quillery {

/// A drawing that was imported and holds more than was read, or that was converted with a loss.
struct NotedDrawing {
  std::filesystem::path file;
  /// The glyph that was made of it; nil when it was left out.
  Uuid glyph;
  /// What was not taken as it was meant: "relative commands, 2 further shapes".
  std::string reasons;
  /// It went through a flattener: the reasons are what that left out or guessed.
  bool converted = false;
};

/// An import under way in the background, for those who show it.
class ImportTask {
public:
  ImportTask() = default;
  ImportTask(const ImportTask&) = delete;
  ImportTask& operator=(const ImportTask&) = delete;
  virtual ~ImportTask() = default;

  virtual std::size_t drawingCount() const = 0;
  /// How much of it is done, 0 to 1.
  virtual double progress() const = 0;
  /// Ends it without a change of the project. It may be gone afterwards.
  virtual void cancel() = 0;
};

} // namespace quillery
