#pragma once

#include "desktop/notice_bar.h"
#include "project/project_watch.h"
#include "svg/import_options.h"
#include "svg/watched_folder.h"

#include <QTimer>

class QSocketNotifier;

namespace quillery {

/// Takes in the drawings of a folder as they are saved, and says so; there while a folder is
/// watched. Another project ends that: the drawings were meant for the one that was open.
class WatchBar : public NoticeBar {
  Q_OBJECT
public:
  WatchBar(ProjectManager& manager, QWidget* parent);
  ~WatchBar() override;

  bool isWatching() const { return folder_.has_value(); }
  /// Asks for a folder and watches it.
  void chooseFolder();
  void stop();

Q_SIGNALS:
  /// It watches now, or does not any more.
  void switched();

private:
  void start(const std::filesystem::path& folder);
  bool isKnown(const std::filesystem::path& drawing) const;
  void look();
  void lookAgain();
  void takeIn();
  void tellTaken(const std::vector<std::filesystem::path>& files, const ImportOutcome& outcome);
  void tell(const QString& news);

  ProjectManager& manager_;
  std::optional<WatchedFolder> folder_;
  std::vector<std::filesystem::path> waiting_; ///< to be taken in after the import under way
  std::unique_ptr<QSocketNotifier> events_;
  QTimer later_;
  std::unique_ptr<Lifetime> watching_; ///< of what is told of this folder
  Lifetime lifetime_;
  ProjectWatch watch_;
};

} // namespace quillery
