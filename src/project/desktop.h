#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillery {

class DrawingFlattener;

/// A panel that asks for files to open.
struct OpenPanelSettings {
  std::string message;
  bool multipleSelection = false;
  /// File name extension without its dot; only files that have it can be chosen.
  std::string extension{};
  /// A folder is chosen instead of files.
  bool folder = false;
};

/// A pop-up in a save panel that chooses among formats.
struct FormatChooser {
  std::string label;
  std::vector<std::string> titles;
  /// Of each format, without its dot: one that a chosen name has already is replaced.
  std::vector<std::string> extensions;
  std::size_t selected = 0;
  std::function<void(std::size_t index)> changed;
  /// Beside the titles, where it is not empty: a switch to write the file in all formats, which
  /// begins off. The name that is chosen is then that of one of them.
  std::string allLabel{};
  std::function<void(bool all)> allChanged{};
};

/// A panel that asks where to save.
struct SavePanelSettings {
  std::string message;
  /// Without the extension when `formats` is set; the panel adds it then.
  std::string proposedName;
  /// The extension, without its dot, that the chosen name gets.
  std::string extension;
  std::optional<FormatChooser> formats{};
  /// Where it opens, when that is there.
  std::optional<std::filesystem::path> folder{};
  /// The window stays in use beside it.
  bool freeStanding = false;
};

/// An open save panel.
class SavePanel {
public:
  virtual ~SavePanel() = default;
  /// Changes the extension in the name field, and of the name that is chosen in the end.
  virtual void setExtension(const std::string& extension) = 0;
};

/// A modal alert.
struct Alert {
  enum class Style { informational, warning, critical };

  std::string title;
  std::string message;
  Style style = Style::informational;
  /// What the alert is about comes first, what leaves everything as it is last.
  std::vector<std::string> buttons = {"OK"};
  /// The one that Return presses: not one that destroys something.
  std::size_t defaultButton = 0;

  friend bool operator==(const Alert&, const Alert&) = default;
};

/// Fires once unless it is destroyed before.
class OneShotTimer {
public:
  virtual ~OneShotTimer() = default;
};

/// A font generator blocks its thread while it runs, so these are more than a processor has.
inline constexpr std::size_t kMostBackgroundThreads = 8;

/// What the program asks of the desktop that it runs on. All operations are called on the main
/// thread, but for `postToMain`, and all callbacks come on the main thread, but for the work of
/// `runInBackground`. A panel, an alert and a page that can't be shown complete as if cancelled.
class Desktop {
public:
  virtual ~Desktop() = default;

  /// Completes with the chosen files in the panel's order, none when cancelled.
  virtual void
  showOpenPanel(const OpenPanelSettings& settings,
                std::function<void(std::vector<std::filesystem::path>)> completion) = 0;

  /// Completes with the chosen file, nothing when cancelled. The panel may be dropped before it
  /// completes; it stays on the screen.
  virtual std::shared_ptr<SavePanel>
  showSavePanel(const SavePanelSettings& settings,
                std::function<void(std::optional<std::filesystem::path>)> completion) = 0;

  /// Completes with the index of the button pressed; nothing when the alert was closed otherwise.
  virtual void showAlert(const Alert& alert,
                         std::function<void(std::optional<std::size_t> button)> completion) = 0;

  /// Queues work for the main thread, in the order of the calls. May be called on any thread.
  virtual void postToMain(std::function<void()> work) = 0;

  /// Runs work on another thread, at most kMostBackgroundThreads at a time, or at once on this one
  /// when there is no other to be had. Work lets no exception out. The desktop waits for all of it
  /// when it goes.
  virtual void runInBackground(std::function<void()> work) = 0;

  virtual std::unique_ptr<OneShotTimer> startTimer(double seconds, std::function<void()> fire) = 0;

  /// A stored setting; nothing when there is none or it is not a list of texts.
  virtual std::optional<std::vector<std::string>> storedList(const std::string& key) = 0;
  virtual void storeList(const std::string& key, const std::vector<std::string>& list) = 0;

  /// What makes drawings plain that the reader does not take as they were meant; null where the
  /// program came without.
  virtual std::shared_ptr<DrawingFlattener> drawingFlattener() { return nullptr; }

  /// The folder of the files that ship with the program, if there is one.
  virtual std::optional<std::filesystem::path> resourceFolder() const = 0;
  virtual std::filesystem::path executablePath() const = 0;

  /// Shows the file selected in the file manager.
  virtual void revealFile(const std::filesystem::path& file) = 0;
  /// False when the page could not be opened.
  virtual bool openWebPage(const std::string& url) = 0;
};

} // namespace quillery
