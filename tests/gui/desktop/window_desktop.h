#pragma once

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

} // namespace quillery::test
