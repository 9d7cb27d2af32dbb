#include "launch/program_options.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "platform/win/base/run_settings.h"

namespace kovra::launch {
namespace {

constexpr int kDone = 0;
constexpr int kWrongUsage = 2;

}  // namespace

void addBackupOption(CLI::App& app, ProgramOptions& options) {
  app.add_flag_callback(
      "--no-backup", [&options] { options.backup = false; }, "Without NAME.bak");
}

void addProgramOptions(CLI::App& app, ProgramOptions& options) {
  app.add_option("DRAWING", options.drawings, "Drawings to open; none: a new empty drawing")
      ->option_text("...");
  app.add_option("-p,--project", options.project, "The current project (default: none)")
      ->option_text("DIR");
  app.add_option("--state", options.stateStore, "The user's dialog store (default: per user)")
      ->option_text("FILE");
  app.add_option("--registry", options.registry, "Stands for HKEY_LOCAL_MACHINE")
      ->option_text("FILE");
  app.add_option("--language", options.language, "Strings and dialogs (default: the locale)")
      ->check(CLI::IsMember({"ja", "en"}))
      ->option_text("ja|en");
  addBackupOption(app, options);
}

int reportMisuse(const CLI::App& app, const std::string& misuse) {
  std::cerr << app.get_name() << ": " << misuse << "\nTry '" << app.get_name() << " --help'.\n";
  return kWrongUsage;
}

// CLI11's own statuses are more than the few of our programs.
std::optional<int> parseArguments(CLI::App& app, int argc, const char* const* argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success))
      return reportMisuse(app, error.what());
    app.exit(error, std::cout, std::cerr);
    return kDone;
  }
  return std::nullopt;
}

Result<void> checkPlaces(const ProgramOptions& options) {
  std::error_code failure;
  const auto cannot = [](const std::filesystem::path& place, const char* why) {
    return Error{ErrorKind::kNotFound, place.string() + ": " + why};
  };
  if (!options.project.empty() && !std::filesystem::is_directory(options.project, failure))
    return cannot(options.project, "the project is no folder");
  if (!options.registry.empty() && !std::filesystem::is_regular_file(options.registry, failure))
    return cannot(options.registry, "the registry file can't be read");
  return {};
}

void applySettings(const ProgramOptions& options, const std::filesystem::path& resources) {
  win::RunSettings& settings = win::runSettings();
  settings.stateStore = options.stateStore;
  settings.registry = options.registry;
  settings.resourceFolder = resources;
  settings.keepBackup = options.backup;
  settings.language = options.language.empty()   ? win::localeLanguage()
                      : options.language == "ja" ? win::Language::japanese
                                                 : win::Language::english;
  if (!options.project.empty()) win::setCurrentProject(std::filesystem::absolute(options.project));
}

}  // namespace kovra::launch
