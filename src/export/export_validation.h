#pragma once

#include "base/uuid.h"
#include "project/project_manager.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillery {

enum class Severity { critical, warning, info };

/// A coloured dot.
std::string_view severityMark(Severity severity);

/// What can be done about a warning at the press of a button (export_fixes.h).
enum class FixAction { addSpace, addNotdef };

/// A gap that makes a font unusable or incomplete. No warning keeps a font from being exported.
struct ExportWarning {
  Uuid id = Uuid::random();
  std::string title;
  /// One sentence.
  std::string message;
  Severity severity = Severity::info;
  std::optional<FixAction> fixAction;
};

/// What a font made of the project would lack: no space, no .notdef, too few glyphs, a part of the
/// capitals, no punctuation; at most one warning each, in this order. Characters are compared
/// scalar by scalar.
std::vector<ExportWarning> validateForExport(const FontProject& project);

/// The alert that lists the warnings and asks whether to go on ("Export Anyway", "Cancel").
/// It is critical when one of them is.
Alert exportWarningsAlert(const std::vector<ExportWarning>& warnings);

/// Queues the alert, so the caller returns first; `completion` hears whether to go on.
void showExportWarningsAlert(ProjectManager& manager, const std::vector<ExportWarning>& warnings,
                             std::function<void(bool continueExport)> completion);

} // namespace quillery
