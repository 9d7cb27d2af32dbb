#include "companions/project.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

#include "companions/text.h"
#include "platform/dxf/file_bytes.h"
#include "platform/win/base/run_settings.h"

namespace kovra::companions {
namespace {

constexpr std::string_view kSettingsFile = "project.ini";

// The whole text as a number in decimal, or nothing.
template <typename Number>
std::optional<Number> parseNumber(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

std::unique_ptr<Project> Project::open(const std::filesystem::path& folder) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(folder, error);
  if (error) return nullptr;
  dxf::FileStamp stamp;
  const auto bytes = dxf::FileBytes::read((absolute / kSettingsFile).native(), stamp);
  if (!bytes || !IniFile::isReadable(bytes.value().view())) return nullptr;
  return std::unique_ptr<Project>(
      new Project(absolute.lexically_normal(), IniFile(bytes.value().view())));
}

Project::Project(const std::filesystem::path& folder, IniFile settings)
    : folder_(folder),
      settings_(std::move(settings)),
      drawings_(listedFiles("Drawings"), listedFiles("Blocked")),
      presets_(listedFiles("Preset")) {
  for (const std::string& name : listed("ExcludedLayers")) excludedLayers_.insert(foldCase(name));
}

std::string Project::dataVersion() const {
  return settings_.get("Project", "DataVersion").value_or("");
}

bool Project::sharesDatabases() const {
  return parseNumber<int>(settings_.get("Project", "SharedDatabases").value_or("")).value_or(0) !=
         0;
}

double Project::scaleOf(const std::filesystem::path& drawing) const {
  const std::filesystem::path identity = fileIdentity(drawing);
  for (const auto& [name, value] : settings_.entries("Scale")) {
    if (fileIdentity(resolve(name)) != identity) continue;
    const std::optional<double> scale = parseNumber<double>(value);
    return scale && *scale > 0 && *scale <= std::numeric_limits<double>::max() ? *scale : 0;
  }
  return 0;
}

bool Project::excludesLayer(std::string_view name) const {
  return !excludedLayers_.empty() && excludedLayers_.contains(foldCase(name));
}

std::filesystem::path Project::resolve(std::string_view relative) const {
  std::string path(relative);
  std::ranges::replace(path, '\\', '/');  // project files are also written on other systems
  return (folder_ / path).lexically_normal();
}

// The values of a section whose keys are the numbers of its rows, by number.
std::vector<std::string> Project::listed(std::string_view section) const {
  std::vector<std::pair<unsigned long, std::string>> rows;
  for (auto& [key, value] : settings_.entries(section))
    if (!value.empty())
      rows.emplace_back(
          parseNumber<unsigned long>(key).value_or(std::numeric_limits<unsigned long>::max()),
          value);
  std::ranges::stable_sort(rows, {}, &std::pair<unsigned long, std::string>::first);
  std::vector<std::string> values;
  values.reserve(rows.size());
  for (auto& [number, value] : rows) values.push_back(std::move(value));
  return values;
}

std::vector<std::filesystem::path> Project::listedFiles(std::string_view section) const {
  std::vector<std::filesystem::path> files;
  for (const std::string& value : listed(section)) files.push_back(resolve(value));
  return files;
}

std::shared_ptr<Project> currentProject() {
  static std::shared_ptr<Project> project;
  static std::uint64_t generation = 0;
  const win::RunSettings& settings = win::runSettings();
  if (settings.projectFolder.empty()) return project = nullptr;
  if (!project || generation != settings.projectGeneration)
    project = Project::open(settings.projectFolder);
  generation = settings.projectGeneration;
  return project;
}

}  // namespace kovra::companions
