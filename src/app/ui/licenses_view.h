#pragma once

#include <QDialog>
#include <filesystem>
#include <optional>

namespace quillery {

/// The licences of what the program is made with.
class LicensesView : public QDialog {
  Q_OBJECT
public:
  LicensesView(const std::optional<std::filesystem::path>& resourceFolder, QWidget* parent);
};

} // namespace quillery
