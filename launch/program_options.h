#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/dxf/result.h"

namespace CLI {
class App;
}

/// The options that programs of ours have in common.
namespace kovra::launch {

struct ProgramOptions {
  std::vector<std::filesystem::path> drawings;
  std::filesystem::path project;     ///< empty: none
  std::filesystem::path stateStore;  ///< empty: the user's own
  std::filesystem::path registry;    ///< empty: an empty registry
  std::string language;              ///< "ja" or "en"; empty: the locale's
  bool backup = true;
};

void addProgramOptions(CLI::App& app, ProgramOptions& options);
/// Of these the one that a subcommand may have for itself.
void addBackupOption(CLI::App& app, ProgramOptions& options);

/// Reads the arguments. A status to end with when there is nothing to run: 0 after help or version
/// on standard output, 2 after wrong usage on standard error.
std::optional<int> parseArguments(CLI::App& app, int argc, const char* const* argv);
/// Says it on standard error; the status to end with.
int reportMisuse(const CLI::App& app, const std::string& misuse);

/// Whether the project's folder and the registry's file are there.
Result<void> checkPlaces(const ProgramOptions& options);
/// Puts them into the settings of this run, before the module is loaded.
/// @param resources the folder of the compiled resource files
void applySettings(const ProgramOptions& options, const std::filesystem::path& resources);

}  // namespace kovra::launch
