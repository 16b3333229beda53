#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class QSettings;

namespace quillery {

// Lists in the user's settings. A list is one value, a JSON array of texts: the settings' own lists
// can't tell a list of one from a text, nor an empty one from none. Paths are bytes that need not
// be text, so those that are not stand percent-encoded.

std::optional<std::vector<std::string>> readList(const QSettings& settings, const QString& key);
void writeList(QSettings& settings, const QString& key, const std::vector<std::string>& list);

} // namespace quillery
