#pragma once

#include <string>

namespace quillery {

/// What the export progress sheet shows.
struct ExportStatus {
  enum class State { success, failed, preparing, exporting };

  State state = State::preparing;
  /// The path of the written file for success, a message for the user for failed.
  std::string text;

  static ExportStatus success(std::string path) { return {State::success, std::move(path)}; }
  static ExportStatus failed(std::string message) { return {State::failed, std::move(message)}; }
  static ExportStatus preparing() { return {}; }
  static ExportStatus exporting() { return {State::exporting, {}}; }

  friend bool operator==(const ExportStatus&, const ExportStatus&) = default;
};

} // namespace quillery
