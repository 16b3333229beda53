#pragma once

#include "model/outline.h"
#include "project/drawing_flattener.h"
#include "project/project_manager.h"

#include <QObject>
#include <deque>
#include <unordered_map>

namespace quillery {

/// What drawings look like once they are flat. Each is flattened in the background when its picture
/// is first asked for, the last asked for first: those are on the screen.
class FlatPictures : public QObject {
  Q_OBJECT
public:
  struct Picture {
    enum class State { underway, ready, failed } state = State::underway;
    /// y upwards.
    Outline outline;
    Rect box;
    QString problem;
  };

  /// `files` are known by their places from then on.
  FlatPictures(Desktop& desktop, std::vector<std::filesystem::path> files, QObject* parent);

  const Picture& picture(std::size_t place);

Q_SIGNALS:
  /// The picture is ready now, or never will be.
  void changed(int place);

private:
  void startNext();
  void take(std::size_t place, Picture picture);

  Desktop& desktop_;
  std::vector<std::filesystem::path> files_;
  std::unordered_map<std::size_t, Picture> pictures_;
  std::deque<std::size_t> wanted_;
  std::size_t underway_ = 0;
  Lifetime lifetime_;
};

} // namespace quillery
