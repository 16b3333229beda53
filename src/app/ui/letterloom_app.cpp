#include "app/ui/letterloom_app.h"

#include "app/commands.h"
#include "app/ui/main_window.h"
#include "desktop/icons.h"
#include "desktop/qt_desktop.h"
#include "desktop/theme.h"

#include <QApplication>

namespace quillery {
namespace {

// All that lives as long as the program runs.
class LetterloomApp {
public:
  LetterloomApp(QApplication& application, const ProgramPlaces& places,
                std::shared_ptr<DrawingFlattener> flattener)
      : theme_(application), desktop_({places.resourceFolder, places.executable, {}}),
        generator_(desktop_, generatorPlaces(places)) {
    desktop_.setParentWindow(&window_);
    desktop_.setDrawingFlattener(std::move(flattener));
    window_.show();
  }

  void open(const std::filesystem::path& project) { projectManager_.openRecentProject(project); }

private:
  Theme theme_;
  QtDesktop desktop_;
  RecentProjectsManager recentProjects_{desktop_};
  ProjectManager projectManager_{desktop_, recentProjects_};
  FontGenerator generator_;
  ExportFlow exportFlow_{projectManager_, generator_};
  MainWindow window_{projectManager_, recentProjects_, exportFlow_};
};

} // namespace

ExitStatus runWindow(int& argc, char** argv, const ProgramPlaces& places,
                     const std::optional<std::filesystem::path>& project,
                     const MakeFlattener& makeFlattener) {
  // Qt ends the program when it finds no display; say why instead.
  const auto isSet = [](const char* variable) { return qEnvironmentVariableIsSet(variable); };
  if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM")) {
    printError("There is no display to open the window on; --help lists the commands");
    return ExitStatus::failed;
  }
  QApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Quillery"));
  QCoreApplication::setOrganizationName(QStringLiteral("Quillery"));
  QGuiApplication::setWindowIcon(applicationIcon());
  LetterloomApp app(application, places, makeFlattener ? makeFlattener() : nullptr);
  if (project) app.open(*project);
  return QApplication::exec() == 0 ? ExitStatus::done : ExitStatus::failed;
}

} // namespace quillery
