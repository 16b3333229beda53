#pragma once

#include "project/desktop.h"

#include <QFileDialog>
#include <functional>
#include <optional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace quillery {

/// A panel that asks for files, as a sheet of its window unless it is to stand freely. It is the
/// desktop's own where there is one, but for a choice of formats, which those have no room for.
/// Completes once, after it is off the screen.
class FilePanel : public QFileDialog {
  Q_OBJECT
public:
  using Files = std::vector<std::filesystem::path>;

  FilePanel(const OpenPanelSettings& settings, const QString& folder, QWidget* parent,
            std::function<void(Files)> completion);
  FilePanel(const SavePanelSettings& settings, const QString& folder, QWidget* parent,
            std::function<void(Files)> completion);

  /// Shows it, with the desktop's own panel when that is to be had.
  void present();

  /// Of a save panel: changes the extension in the name field and of the chosen name.
  void setExtension(const QString& extension);

protected:
  void accept() override;

private:
  void begin(const std::string& message, const QString& extension);
  void takeNameField();
  void arrange();
  void selectStem();
  void askForFolder();
  void putAwayTypes();
  void addFormats(const FormatChooser& formats);
  void finish(int result);
  /// The files that a chosen name stands for.
  QStringList filesToWrite(const QString& name) const;
  /// Asks, as a sheet of `parent`, and calls `answered` with what the user wants.
  void confirmReplacing(const QStringList& files, QWidget* parent,
                        std::function<void(bool replace)> answered);
  void tell(const QString& title, const QString& message);

  QString extension_;
  QStringList otherExtensions_; ///< which a change of format replaces
  QLineEdit* nameField_ = nullptr;
  bool freeStanding_ = false;
  QStringList replaceable_;  ///< the files that the user agreed to replace
  QCheckBox* all_ = nullptr; ///< to write all formats
  std::function<void(Files)> completion_;
};

} // namespace quillery
