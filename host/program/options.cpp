#include "host/program/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>

#include "host/program/script_text.h"
#include "host/program/version.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

constexpr const char* kFooter =
    "Without -s and -c, at a terminal, lines are typed: ? says what there is, Tab completes.\n"
    "-p, --state, --registry, --language and --quiet may stand before a subcommand or behind it.";
// Settings of any run: with a subcommand they may stand before it or behind it.
constexpr const char* kSettings[] = {"--project", "--state", "--registry", "--language", "--quiet"};

// CLI11's own statuses are more than the three of this program.
int reportParseError(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    app.exit(error, std::cout, std::cerr);
    return kExitDone;
  }
  std::cerr << "kovra: " << error.what() << "\nTry 'kovra --help'.\n";
  return kExitUsage;
}

void addLineOptions(CLI::App& app, RunOptions& run) {
  app.add_option("-s,--script", run.script, "Input, line by line; - is standard input")
      ->option_text("FILE");
  app.add_option("-c,--command", run.commands,
                 "One input line; may be repeated; runs before the script")
      ->allow_extra_args(false)
      ->option_text("LINE");
}

void addSafetyOptions(CLI::App& app, RunOptions& run) {
  app.add_flag_callback(
      "--no-backup", [&run] { run.backup = false; }, "Without NAME.bak");
  app.add_flag("--keep-going", run.keepGoing, "Go on after a line that could not be carried out");
}

void addRunOptions(CLI::App& app, RunOptions& run) {
  app.add_option("DRAWING", run.drawings, "Drawings to open; none: a new empty drawing")
      ->option_text("...");
  app.add_option("-p,--project", run.project, "The current project (default: none)")
      ->option_text("DIR");
  addLineOptions(app, run);
  app.add_option("-o,--output", run.output,
                 "Save the current drawing there at the end; not one that was opened")
      ->option_text("FILE");
  app.add_flag("--save", run.saveAll, "Save every changed drawing in its own place at the end");
  addSafetyOptions(app, run);
  app.add_option("--state", run.stateStore, "The user's dialog store (default: per user)")
      ->option_text("FILE");
  app.add_option("--registry", run.registry, "Stands for HKEY_LOCAL_MACHINE")->option_text("FILE");
  app.add_option("--language", run.language, "Strings and dialogs (default: the locale)")
      ->check(CLI::IsMember({"ja", "en"}))
      ->option_text("ja|en");
  app.add_flag("--quiet", run.quiet, "No transcript; @list, @dialog and @show still print");
}

void addJobs(CLI::App& command, unsigned& jobs) {
  command.add_option("--jobs", jobs, "Drawings at once (default: one a processor)")
      ->check(CLI::Range(1, 1024))
      ->option_text("N");
}

void addDrawings(CLI::App& command, std::vector<std::string>& drawings, unsigned& jobs) {
  command.add_option("DRAWING", drawings, "Drawings to read; of a folder all in it; patterns")
      ->required()
      ->option_text("...");
  addJobs(command, jobs);
}

CLI::App* addList(CLI::App& app, ListOptions& list) {
  const std::map<std::string, ListFormat> formats = {
      {"table", ListFormat::kTable}, {"csv", ListFormat::kCsv}, {"json", ListFormat::kJson}};
  CLI::App* command = app.add_subcommand("list", "Print every TEXT, MTEXT, ATTDEF and ATTRIB");
  addDrawings(*command, list.drawings, list.jobs);
  command
      ->add_option_function<std::string>(
          "--format", [&list, formats](const std::string& name) { list.format = formats.at(name); },
          "Form of the output (default: table)")
      ->check(CLI::IsMember({"table", "csv", "json"}))
      ->option_text("table|csv|json");
  command->add_flag("--extents", list.extents,
                    "With the rectangle that each text takes: x_min, y_min, x_max, y_max");
  command->add_flag("--raw", list.raw,
                    "csv: leave texts that look like formulas to a spreadsheet as they are");
  command->add_option("--layer", list.layer, "Only texts on this layer")->option_text("NAME");
  command->add_option("--tag", list.tagPattern, "Only attributes whose tag matches")
      ->option_text("PATTERN");
  return command;
}

CLI::App* addCheck(CLI::App& app, CheckOptions& check) {
  CLI::App* command = app.add_subcommand("check", "Say whether saving gives every byte back");
  addDrawings(*command, check.drawings, check.jobs);
  return command;
}

/// X1,Y1,X2,Y2: two opposite corners.
std::string readWindow(const std::string& text, PlotOptions& plot) {
  const std::wstring wide = win::fromUtf8(text);
  Arguments arguments(wide);
  const Result<std::vector<double>> numbers = arguments.coordinates(4, 4);
  if (!numbers || !arguments.atEnd()) return "a window is X1,Y1,X2,Y2";
  const std::vector<double>& n = numbers.value();
  if (n[0] == n[2] || n[1] == n[3]) return "the window is empty";
  plot.window = {{std::min(n[0], n[2]), std::min(n[1], n[3]), 0},
                 {std::max(n[0], n[2]), std::max(n[1], n[3]), 0}};
  return {};
}

CLI::App* addPlot(CLI::App& app, PlotOptions& plot) {
  const std::map<std::string, Ground> grounds = {{"white", Ground::kWhite},
                                                 {"dark", Ground::kDark}};
  CLI::App* command = app.add_subcommand("plot", "Draw a drawing into a picture");
  addDrawings(*command, plot.drawings, plot.jobs);
  command
      ->add_option("-o,--output", plot.output,
                   "The picture, FILE.svg or FILE.png; of several drawings the folder of theirs")
      ->option_text("FILE|DIR");
  command
      ->add_option_function<std::string>(
          "--format", [&plot](const std::string& name) { plot.extension = "." + name; },
          "Of pictures in a folder (default: svg)")
      ->check(CLI::IsMember({"svg", "png"}))
      ->option_text("svg|png");
  command
      ->add_option_function<std::string>(
          "--window",
          [&plot](const std::string& text) {
            if (const std::string fault = readWindow(text, plot); !fault.empty())
              throw CLI::ValidationError("--window", fault);
          },
          "The part to draw, in drawing units (default: all that is drawn)")
      ->option_text("X1,Y1,X2,Y2");
  command->add_option("--ground", plot.ground, "What it is drawn on (default: white)")
      ->transform(CLI::CheckedTransformer(grounds))
      ->option_text("white|dark");
  command->add_option("--size", plot.size, "Pixels of the longer side (default: 1600)")
      ->check(CLI::Range(16, 32000))
      ->option_text("PIXELS");
  return command;
}

CLI::App* addDiff(CLI::App& app, DiffOptions& diff) {
  const std::map<std::string, DiffFormat> formats = {{"text", DiffFormat::kText},
                                                     {"json", DiffFormat::kJson}};
  CLI::App* command = app.add_subcommand("diff", "Print the groups in which two drawings differ");
  command->add_option("A", diff.before, "The one drawing")->required()->option_text(" ");
  command->add_option("B", diff.after, "The other")->required()->option_text(" ");
  command
      ->add_option_function<std::string>(
          "--format", [&diff, formats](const std::string& name) { diff.format = formats.at(name); },
          "Form of the output (default: text)")
      ->check(CLI::IsMember({"text", "json"}))
      ->option_text("text|json");
  return command;
}

CLI::App* addEach(CLI::App& app, EachOptions& each) {
  CLI::App* command =
      app.add_subcommand("each", "Run the same lines on each of many drawings, several at once");
  command->add_option("DRAWING|FOLDER|PATTERN", each.names, "Drawings to change; of a folder all")
      ->option_text("...");
  command->add_option("--list", each.listFile, "More of them, one a line; - is standard input")
      ->option_text("FILE");
  addLineOptions(*command, each.run);
  addSafetyOptions(*command, each.run);
  addJobs(*command, each.jobs);
  command
      ->add_option("--output-dir", each.outputFolder,
                   "Save there, in the same folders, instead of in place")
      ->option_text("DIR");
  command
      ->add_option("--root", each.root,
                   "The folder that places in --output-dir count from (default: those named)")
      ->option_text("DIR");
  command->add_option("--report", each.report, "Append a JSON line for each drawing")
      ->option_text("FILE");
  command->add_option("--resume", each.resume, "Leave out what this report says is done")
      ->option_text("REPORT");
  command->add_flag("--dry-run", each.dryRun, "Write no drawing; say what would change");
  command->add_flag("--names", each.namesOnly,
                    "Print the drawings that would be run, each with its place in --output-dir");
  return command;
}

// The picture's name may stand before "plot" too, where the parser takes it for a run's.
std::string settleOutput(const CLI::App& app, CommandLine& line) {
  const bool before = app.count("--output") != 0;
  if (before && !line.plot.output.empty()) return "-o is given twice";
  if (before) line.plot.output = line.run.output;
  return line.plot.output.empty() ? "--output is required: the picture that plot draws" : "";
}

// The settings of a run count for the run of each drawing.
std::string settleEach(CommandLine& line) {
  EachOptions& each = line.each;
  RunOptions run = line.run;
  run.script = each.run.script;
  run.commands = each.run.commands;
  run.backup = each.run.backup;
  run.keepGoing = each.run.keepGoing;
  each.run = run;
  if (each.names.empty() && each.listFile.empty()) return "each needs drawings";
  if (run.script == "-") return "each reads its script from a file: every drawing has it anew";
  if (run.script.empty() && run.commands.empty()) return "each needs lines: -c or -s";
  return {};
}

// Options of runs mean nothing to a subcommand, which a user should be told.
std::string findForeignOption(const CLI::App& app, const CLI::App& subcommand) {
  const bool plots = subcommand.get_name() == "plot";
  for (const CLI::Option* option : app.get_options()) {
    if (option->count() == 0 || (plots && option->check_name("--output"))) continue;
    const bool setting = std::any_of(std::begin(kSettings), std::end(kSettings),
                                     [&](const char* name) { return option->check_name(name); });
    if (option->get_positional()) return "the drawings stand behind " + subcommand.get_name();
    if (!setting) return subcommand.get_name() + " takes no " + option->get_name();
  }
  return {};
}

// What CLI11 can't say by itself; empty when all is well.
std::string findMisuse(const CLI::App& app, CommandLine& line) {
  const RunOptions& run = line.run;
  for (const std::string& command : run.commands) {
    if (command.find_first_of("\n\r") != std::string::npos) return "-c takes one line";
  }
  if (app.count("--script") != 0 && run.script.empty()) return "-s needs the name of a file";
  if (app.count("--output") != 0 && run.output.empty()) return "-o needs the name of a file";
  if (line.mode == Mode::kRun) return {};
  if (line.mode == Mode::kEach) {
    if (const std::string misuse = settleEach(line); !misuse.empty()) return misuse;
  }
  const std::string foreign = findForeignOption(app, *app.get_subcommands().front());
  return foreign.empty() && line.mode == Mode::kPlot ? settleOutput(app, line) : foreign;
}

}  // namespace

CommandLine parseCommandLine(int argc, const char* const* argv) {
  CommandLine line;
  CLI::App app("Runs the text tools on drawings, from a script or a terminal.", "kovra");
  app.set_version_flag("--version", std::string("kovra ") + versionText());
  app.footer(kFooter);
  app.require_subcommand(0, 1);
  app.fallthrough();  // settings of a run also behind a subcommand
  addRunOptions(app, line.run);
  const CLI::App* list = addList(app, line.list);
  const CLI::App* check = addCheck(app, line.check);
  const CLI::App* plot = addPlot(app, line.plot);
  const CLI::App* diff = addDiff(app, line.diff);
  const CLI::App* each = addEach(app, line.each);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    line.exitStatus = reportParseError(app, error);
    return line;
  }
  line.mode = list->parsed()    ? Mode::kList
              : check->parsed() ? Mode::kCheck
              : plot->parsed()  ? Mode::kPlot
              : diff->parsed()  ? Mode::kDiff
              : each->parsed()  ? Mode::kEach
                                : Mode::kRun;
  if (const std::string misuse = findMisuse(app, line); !misuse.empty()) {
    std::cerr << "kovra: " << misuse << "\nTry 'kovra --help'.\n";
    line.exitStatus = kExitUsage;
  }
  return line;
}

}  // namespace kovra::host
