#include "app/command_line.h"

#include "app/commands.h"
#include "base/numbers.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cmath>
#include <functional>
#include <map>

namespace quillery {
namespace {

double number(const std::string& option, const std::string& text) {
  const auto value = parseDecimal(text);
  if (!value || !std::isfinite(*value))
    throw CLI::ValidationError(option, "\"" + text + "\" is not a number");
  return *value;
}

std::int64_t wholeNumber(const std::string& option, const std::string& text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size())
    throw CLI::ValidationError(option, "\"" + text + "\" is not a whole number");
  return value;
}

// Calls `apply` for every option given, in the order of the arguments, with its values. `sizes`
// says how many values an option has; a flag counts as one.
void inOrder(
    const CLI::App& app, const std::map<const CLI::Option*, std::size_t>& sizes,
    const std::function<void(const CLI::Option*, const std::vector<std::string>&)>& apply) {
  std::map<const CLI::Option*, std::size_t> used;
  std::vector<std::string> values;
  for (const CLI::Option* option : app.parse_order()) { // an entry for every value
    const auto size = sizes.find(option);
    if (size == sizes.end()) continue;
    values.push_back(option->results().at(used[option]++));
    if (values.size() < size->second) continue;
    apply(option, values);
    values.clear();
  }
}

class Parser {
public:
  explicit Parser(ProgramPlaces places) : places_(std::move(places)) {
    app_.set_version_flag("--version", "quillery " QUILLERY_VERSION);
    app_.add_option("project", window_, "Project to open in the window")
        ->type_name("FILE.fontproj");
    app_.require_subcommand(0, 1);
    app_.footer("Exit status: 0 done; 1 finished, but something was skipped or found, or only some "
                "of the files\ncould be written; 2 wrong usage; 3 failed, nothing written.");
    addImport();
    addExport();
    addCheck();
    addConvert();
    addMetrics();
    addKern();
    addPreview();
  }

  ExitStatus run(int argc, char** argv, const WindowToolkit& toolkit) {
    preview_.paint = toolkit.paintPreview;
    try {
      app_.parse(argc, argv);
    } catch (const CLI::Success& asked) { // --help, --version
      app_.exit(asked);
      return ExitStatus::done;
    } catch (const CLI::Error& error) {
      printError(error.what());
      return ExitStatus::wrongUsage;
    }
    if (!resources_.empty()) {
      places_.resourceFolder = resources_;
    }
    if (chosen_) return chosen_();
    if (toolkit.openWindow)
      return toolkit.openWindow(
          places_, window_.empty() ? std::nullopt : std::optional<std::filesystem::path>(window_));
    printError("This build has no window; --help lists the commands");
    return ExitStatus::failed;
  }

private:
  // A subcommand that runs `command` once its arguments are read.
  template <typename Command>
  CLI::App* subcommand(const std::string& name, const std::string& description, Command& command,
                       std::function<void(const CLI::App&)> finish = nullptr) {
    CLI::App* sub = app_.add_subcommand(name, description);
    sub->add_option("PROJECT", command.project, "The project, a .fontproj file")->required();
    sub->add_option("--resources", resources_, "Folder with the generator and the sample")
        ->type_name("DIR");
    sub->final_callback([this, sub, finish, &command] {
      if (finish) finish(*sub);
      chosen_ = [this, &command] { return quillery::run(command, places_); };
    });
    return sub;
  }

  void addImport() {
    auto* sub = subcommand("import", "Import drawings into a project and save it", import_,
                           [this](const CLI::App&) {
                             if (!unitsPerEm_.empty())
                               import_.unitsPerEm = wholeNumber("--units-per-em", unitsPerEm_);
                           });
    sub->add_option("DRAWING", import_.drawings, "SVG files, or folders of them")->required();
    sub->add_option("--name", import_.name, "Name of a new project");
    sub->add_option("--units-per-em", unitsPerEm_, "Units per em of a new project")->type_name("N");
  }

  void addExport() {
    auto* sub = subcommand("export", "Make font files from a project", export_);
    sub->add_option("FONT", export_.fonts, "Files ending in .otf, .ttf, .woff or .woff2")
        ->required();
    sub->add_option("--report", export_.report, "Write a page about the first font")
        ->type_name("FILE.html");
  }

  void addCheck() {
    auto* sub = subcommand("check", "List what a font made from the project would lack", check_);
    sub->add_flag("--fix", check_.fix, "Add a missing space or .notdef glyph and save");
  }

  void addConvert() {
    auto* sub = subcommand("convert", "Open a project and write it anew", convert_);
    sub->add_option("-o", convert_.output, "The file to write")->required()->type_name("OUT");
  }

  void addMetrics() {
    const auto finish = [this](const CLI::App& sub) {
      inOrder(sub, metricValues_, [this](const CLI::Option* option, const auto& values) {
        metrics_.changes.push_back({metricOf_.at(option), number(option->get_name(), values[0])});
      });
    };
    auto* sub = subcommand("metrics", "Set metrics of glyphs in the order given, or print them",
                           metrics_, finish);
    sub->add_option("GLYPH", metrics_.glyphs, "Names of glyphs");
    sub->add_flag("--all", metrics_.all, "Every glyph");
    using Metric = MetricsCommand::Metric;
    for (const auto& [name, metric] : {std::pair{"--left-side-bearing", Metric::leftSideBearing},
                                       std::pair{"--right-side-bearing", Metric::rightSideBearing},
                                       std::pair{"--advance-width", Metric::advanceWidth},
                                       std::pair{"--vertical-offset", Metric::verticalOffset},
                                       std::pair{"--scale", Metric::scale}}) {
      auto* option =
          sub->add_option(name, texts_, "Font units; a factor for the scale")->type_name("X");
      option->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
      metricOf_[option] = metric;
      metricValues_[option] = 1;
    }
  }

  void addKern() {
    const auto finish = [this](const CLI::App& sub) {
      inOrder(sub, kernValues_, [this](const CLI::Option* option, const auto& values) {
        using Kind = KernCommand::Change::Kind;
        if (values.size() == 3)
          kern_.changes.push_back(
              {Kind::set, values[0], values[1], number(option->get_name(), values[2])});
        else if (values.size() == 2)
          kern_.changes.push_back({Kind::remove, values[0], values[1]});
        else
          kern_.changes.push_back({Kind::common, {}, {}});
      });
    };
    auto* sub = subcommand("kern", "Change the kerning pairs in the order given, or print them",
                           kern_, finish);
    sub->add_option("--filter", kern_.filter, "Print only pairs with this text in a name")
        ->type_name("TEXT");
    kernValues_[sub->add_flag("--common", common_, "Add the common pairs")] = 1;
    auto* set = sub->add_option("--set", texts_, "Set the value of a pair, or add one")
                    ->type_name("LEFT RIGHT VALUE");
    set->type_size(3)->expected(1, 1 << 20)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    auto* remove = sub->add_option("--delete", texts_, "Delete the first pair of these names")
                       ->type_name("LEFT RIGHT");
    remove->type_size(2)
        ->expected(1, 1 << 20)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    kernValues_[set] = 3;
    kernValues_[remove] = 2;
  }

  void addPreview() {
    auto* sub = subcommand("preview", "Set a text as the window's preview does", preview_,
                           [this](const CLI::App&) {
                             if (!size_.empty()) preview_.size = number("--size", size_);
                           });
    sub->add_option("--text", preview_.text, "The text to set")->required();
    sub->add_option("--size", size_, "Points to the em")->type_name("POINTS");
    sub->add_option("-o", preview_.output, "The file to write, ending in .png, .svg, .pdf or .json")
        ->required()
        ->type_name("OUT");
  }

  ProgramPlaces places_;
  CLI::App app_{"Makes a font out of SVG drawings"};
  std::function<ExitStatus()> chosen_;
  std::string window_, resources_, unitsPerEm_, size_;
  std::vector<std::string> texts_; // taken from the options in their order instead
  int common_ = 0;
  ImportCommand import_;
  ExportCommand export_;
  CheckCommand check_;
  ConvertCommand convert_;
  MetricsCommand metrics_;
  KernCommand kern_;
  PreviewCommand preview_;
  std::map<const CLI::Option*, MetricsCommand::Metric> metricOf_;
  std::map<const CLI::Option*, std::size_t> metricValues_;
  std::map<const CLI::Option*, std::size_t> kernValues_;
};

} // namespace

ExitStatus runCommandLine(int argc, char** argv, const ProgramPlaces& places,
                          const WindowToolkit& toolkit) {
  return Parser(places).run(argc, argv, toolkit);
}

} // namespace quillery
