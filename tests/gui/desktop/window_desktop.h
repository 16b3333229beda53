#pragma once

#include "project/project_manager.h"
#include "support/scripted_desktop.h"

#include <QObject>

namespace quillery::test {

/// A scripted desktop whose main queue is the event loop, as it is in the program.
class WindowDesktop : public ScriptedDesktop {
public:
  void postToMain(std::function<void()> work) override {
    ScriptedDesktop::postToMain(std::move(work));
    QMetaObject::invokeMethod(
        &main_, [this] { runPosted(); }, Qt::QueuedConnection);
  }

private:
  QObject main_;
};

/// A project for a window to show.
struct WindowProject {
  WindowDesktop desktop;
  RecentProjectsManager recent{desktop};
  ProjectManager manager{desktop, recent};
};

} // namespace quillery::test
