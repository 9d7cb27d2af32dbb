#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "companions/ini_file.h"
#include "companions/project_drawings.h"

namespace kovra::companions {

/// A project as its file project.ini describes it. The file is read when the project is opened;
/// what is changed in it later counts when the project is made current again.
class Project {
 public:
  /// Null if the folder has no project.ini that can be read.
  static std::unique_ptr<Project> open(const std::filesystem::path& folder);

  const std::filesystem::path& folder() const { return folder_; }

  /// [Project] DataVersion as it stands; empty if there is none.
  std::string dataVersion() const;
  /// [Project] SharedDatabases is a number other than 0.
  bool sharesDatabases() const;
  /// [Drawings], with the files of [Blocked] marked.
  ProjectDrawings& drawings() { return drawings_; }
  /// [Preset], absolute.
  const std::vector<std::filesystem::path>& presetDrawings() const { return presets_; }
  /// [Scale]; the factor of a drawing file, 0 if the project states none above 0.
  double scaleOf(const std::filesystem::path& drawing) const;
  /// [ExcludedLayers], without regard to case.
  bool excludesLayer(std::string_view name) const;

 private:
  Project(const std::filesystem::path& folder, IniFile settings);

  std::filesystem::path resolve(std::string_view relative) const;
  std::vector<std::string> listed(std::string_view section) const;
  std::vector<std::filesystem::path> listedFiles(std::string_view section) const;

  std::filesystem::path folder_;
  IniFile settings_;
  ProjectDrawings drawings_;
  std::vector<std::filesystem::path> presets_;
  std::unordered_set<std::string> excludedLayers_;  // in folded case
};

/// The project that this run has made current; null without one, or if it can't be reached.
std::shared_ptr<Project> currentProject();

}  // namespace kovra::companions
