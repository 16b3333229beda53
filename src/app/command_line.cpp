#include "app/command_line.h"

#include "app/commands.h"
#include "base/console.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>

namespace quillery {
namespace {

// Arguments are bytes. What they are to be is made of them here, or they are wrong usage.

CLI::ValidationError notA(const char* what, const std::string& option, const std::string& text) {
  return CLI::ValidationError(option, "\"" + text + "\" is not " + what);
}

Utf8 textArgument(const std::string& option, const std::string& text) {
  auto parsed = Utf8::parse(text);
  if (!parsed) throw notA("UTF-8", option, text);
  return *std::move(parsed);
}

Finite number(const std::string& option, const std::string& text) {
  const auto value = Finite::parse(text);
  if (!value) throw notA("a number", option, text);
  return *value;
}

Positive positiveNumber(const std::string& option, const std::string& text) {
  const auto value = Positive::parse(text);
  if (!value) throw notA("a number above 0", option, text);
  return *value;
}

std::int64_t positiveWholeNumber(const std::string& option, const std::string& text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value <= 0)
    throw notA("a whole number above 0", option, text);
  return value;
}

// The arguments as the library reads them: it would take the next argument for the value of an
// option that ends in "=".
std::vector<std::string> withEmptyValues(int argc, char** argv) {
  std::vector<std::string> arguments;
  bool isOver = false; // behind "--"
  for (int i = 1; i < argc; ++i) {
    std::string argument = argv[i];
    isOver = isOver || argument == "--";
    const bool hasEmptyValue = !isOver && argument.size() > 3 && argument.starts_with("--") &&
                               argument.find('=') == argument.size() - 1;
    if (hasEmptyValue) argument.pop_back();
    arguments.push_back(std::move(argument));
    if (hasEmptyValue) arguments.emplace_back();
  }
  std::reverse(arguments.begin(), arguments.end()); // the library wants the last one first
  return arguments;
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
    addFlatten();
    addWatch();
    addExport();
    addCheck();
    addConvert();
    addMetrics();
    addKern();
    addPreview();
  }

  ExitStatus run(int argc, char** argv, const WindowToolkit& toolkit,
                 const MakeFlattener& makeFlattener) {
    preview_.paint = toolkit.paintPreview;
    flatten_.makeFlattener = makeFlattener;
    import_.reading.makeFlattener = watch_.reading.makeFlattener = makeFlattener;
    try {
      app_.name(argc > 0 ? argv[0] : "quillery");
      app_.parse(withEmptyValues(argc, argv));
    } catch (const CLI::Success& asked) { // --help, --version
      app_.exit(asked);
      return ExitStatus::done;
    } catch (const CLI::Error& error) {
      printError(escaped(error.what()));
      return ExitStatus::wrongUsage;
    }
    if (!resources_.empty()) {
      places_.resourceFolder = resources_;
    }
    printLinesToStandardError(form() != TableForm::lines);
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
                       const std::function<void(const CLI::App&)>& finish = nullptr) {
    CLI::App* sub = app_.add_subcommand(name, description);
    if constexpr (requires { command.folder; })
      sub->add_option("FOLDER", command.folder, "The folder of drawings")->required();
    if constexpr (requires { command.project; })
      sub->add_option("PROJECT", command.project, "The project, a .fontproj file")->required();
    sub->add_option("--resources", resources_, "Folder with the generator and the sample")
        ->type_name("DIR");
    sub->final_callback([this, sub, finish, &command] {
      if (finish) finish(*sub);
      chosen_ = [this, &command] { return quillery::run(command, places_); };
    });
    return sub;
  }

  // How a command that lists something prints it.
  void addForms(CLI::App& sub) {
    auto* json = sub.add_flag("--json", json_, "Print JSON, and nothing else on standard output");
    sub.add_flag("--tsv", tsv_, "Print values parted by tabs, and nothing else on standard output")
        ->excludes(json);
  }
  TableForm form() const {
    return json_ ? TableForm::json : tsv_ ? TableForm::tsv : TableForm::lines;
  }

  void addImport() {
    auto* sub = subcommand(
        "import", "Import drawings into a project and save it", import_, [this](const CLI::App&) {
          if (unitsPerEm_) import_.unitsPerEm = positiveWholeNumber("--units-per-em", *unitsPerEm_);
          if (name_) import_.name = textArgument("--name", *name_);
          if (!sheet_.empty()) import_.sheet = sheet_;
          import_.characters = textArgument("--characters", characters_);
          if (import_.drawings.empty() && !import_.sheet)
            throw CLI::RequiredError("DRAWING or --sheet");
        });
    sub->add_option("DRAWING", import_.drawings, "SVG files, or folders of them");
    addReading(*sub, import_.reading);
    auto* sheet = sub->add_option("--sheet", sheet_,
                                  "A drawing of many letters, each in a group, layer or shape "
                                  "that is called as its own file would be")
                      ->type_name("FILE");
    sub->add_option("--characters", characters_,
                    "What the letters of the sheet that are called nothing stand for, by lines "
                    "from left to right")
        ->type_name("TEXT")
        ->needs(sheet);
    sub->add_option("--name", name_, "Name of a new project");
    sub->add_option("--units-per-em", unitsPerEm_, "Units per em of a new project")->type_name("N");
  }

  static void addReading(CLI::App& sub, ReadingChoice& reading) {
    sub.add_flag("--convert", reading.convert,
                 "Make every drawing one plain path first; also takes PDF, EPS, PNG and JPEG");
    addChoice(sub, "--place", reading.placement,
              {{"edges", DrawingPlacement::edges}, {"artboard", DrawingPlacement::artboard}},
              "How new glyphs are placed: by the edges of their ink, or, which implies --convert, "
              "with the drawing's artboard as the em");
  }

  void addWatch() {
    auto* sub =
        subcommand("watch", "Take in drawings as they are saved, until it is ended", watch_);
    sub->add_option("FONT", watch_.fonts,
                    "Files ending in .otf, .ttf, .woff or .woff2, written anew after each change");
    addReading(*sub, watch_.reading);
    sub->add_flag("--install", watch_.install, "Keep the fonts in your font folder as well");
  }

  void addFlatten() {
    auto* sub = subcommand("flatten", "Write drawings anew, each as one plain path", flatten_);
    sub->add_option("DRAWING", flatten_.drawings,
                    "SVG, PDF, EPS, PNG or JPEG files, or folders of them")
        ->required();
    sub->add_option("-o", flatten_.output, "The file to write, or the folder for several")
        ->required()
        ->type_name("OUT");
    addChoice(*sub, "--fit", flatten_.fit,
              {{"edges", FlatFit::edges}, {"artboard", FlatFit::artboard}},
              "As drawn, or with the artboard scaled to a height of 100");
  }

  // An option whose value is one of these words.
  template <typename Value>
  static void addChoice(CLI::App& sub, const std::string& name, Value& value,
                        const std::map<std::string, Value>& words, const std::string& description) {
    std::string names;
    for (const auto& word : words) names = word.first + (names.empty() ? "" : "|") + names;
    sub.add_option_function<std::string>(
           name,
           [&value, words, name, names](const std::string& text) {
             const auto word = words.find(text);
             if (word == words.end()) throw notA(("one of " + names).c_str(), name, text);
             value = word->second;
           },
           description)
        ->type_name(names);
  }

  void addExport() {
    auto* sub = subcommand("export", "Make font files from a project", export_);
    sub->add_option("FONT", export_.fonts, "Files ending in .otf, .ttf, .woff or .woff2")
        ->required();
    addChoice(*sub, "--generator", export_.generator,
              {{"native", GeneratorKind::native}, {"python", GeneratorKind::python}},
              "The program that makes the fonts; the script python runs where there is no other");
    sub->add_option("--report", export_.report, "Write a page about the first font")
        ->type_name("FILE.html");
  }

  void addCheck() {
    auto* sub = subcommand("check", "List what a font made from the project would lack", check_,
                           [this](const CLI::App&) { check_.form = form(); });
    sub->add_flag("--fix", check_.fix, "Add a missing space or .notdef glyph and save");
    addForms(*sub);
  }

  void addConvert() {
    auto* sub = subcommand("convert", "Open a project and write it anew", convert_);
    sub->add_option("-o", convert_.output, "The file to write")->required()->type_name("OUT");
  }

  void addMetrics() {
    const auto finish = [this](const CLI::App& sub) {
      inOrder(sub, metricValues_, [this](const CLI::Option* option, const auto& values) {
        const GlyphMetric metric = metricOf_.at(option);
        metrics_.changes.push_back({metric, metric == GlyphMetric::scale
                                                ? positiveNumber(option->get_name(), values[0])
                                                : number(option->get_name(), values[0])});
      });
      for (const std::string& name : glyphs_)
        metrics_.glyphs.push_back(textArgument("GLYPH", name));
      metrics_.form = form();
    };
    auto* sub = subcommand("metrics", "Set metrics of glyphs in the order given, or print them",
                           metrics_, finish);
    sub->add_option("GLYPH", glyphs_, "Names of glyphs");
    sub->add_flag("--all", metrics_.all, "Every glyph");
    addForms(*sub);
    for (const auto& [name, metric] :
         {std::pair{"--left-side-bearing", GlyphMetric::leftSideBearing},
          std::pair{"--right-side-bearing", GlyphMetric::rightSideBearing},
          std::pair{"--advance-width", GlyphMetric::advanceWidth},
          std::pair{"--vertical-offset", GlyphMetric::verticalOffset},
          std::pair{"--scale", GlyphMetric::scale}}) {
      auto* option =
          sub->add_option(name, texts_, "Font units; a factor for the scale")->type_name("X");
      option->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
      metricOf_[option] = metric;
      metricValues_[option] = 1;
    }
  }

  void addKern() {
    const auto finish = [this](const CLI::App& sub) {
      inOrder(sub, kernValues_, [this](const CLI::Option*, const auto& values) {
        using Kind = KernCommand::Change::Kind;
        if (values.size() == 3)
          kern_.changes.push_back({Kind::set, textArgument("--set", values[0]),
                                   textArgument("--set", values[1]), number("--set", values[2])});
        else if (values.size() == 2)
          kern_.changes.push_back({Kind::remove,
                                   textArgument("--delete", values[0]),
                                   textArgument("--delete", values[1]),
                                   {}});
        else
          kern_.changes.push_back({Kind::common, {}, {}, {}});
      });
      kern_.filter = textArgument("--filter", filter_);
      kern_.form = form();
    };
    auto* sub = subcommand("kern", "Change the kerning pairs in the order given, or print them",
                           kern_, finish);
    sub->add_option("--filter", filter_, "Print only pairs with this text in a name")
        ->type_name("TEXT");
    addForms(*sub);
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
                             if (size_) preview_.size = positiveNumber("--size", *size_);
                             preview_.text = textArgument("--text", text_);
                           });
    sub->add_option("--text", text_, "The text to set")->required();
    sub->add_option("--size", size_, "Points to the em")->type_name("POINTS");
    sub->add_option("-o", preview_.output, "The file to write, ending in .png, .svg, .pdf or .json")
        ->required()
        ->type_name("OUT");
  }

  ProgramPlaces places_;
  CLI::App app_{"Makes a font out of SVG drawings"};
  std::function<ExitStatus()> chosen_;
  std::string window_, resources_, text_, filter_, sheet_, characters_;
  std::optional<std::string> name_, unitsPerEm_, size_;
  std::vector<std::string> glyphs_;
  bool json_ = false;
  bool tsv_ = false;
  std::vector<std::string> texts_; // taken from the options in their order instead
  int common_ = 0;
  ImportCommand import_;
  FlattenCommand flatten_;
  WatchCommand watch_;
  ExportCommand export_;
  CheckCommand check_;
  ConvertCommand convert_;
  MetricsCommand metrics_;
  KernCommand kern_;
  PreviewCommand preview_;
  std::map<const CLI::Option*, GlyphMetric> metricOf_;
  std::map<const CLI::Option*, std::size_t> metricValues_;
  std::map<const CLI::Option*, std::size_t> kernValues_;
};

} // namespace

ExitStatus runCommandLine(int argc, char** argv, const ProgramPlaces& places,
                          const WindowToolkit& toolkit, const MakeFlattener& makeFlattener) {
  return Parser(places).run(argc, argv, toolkit, makeFlattener);
}

} // namespace quillery
