#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win/resources/loader.h"

namespace kovra::test {

/// The text module in a run of its own: loaded from its library, with a folder for a project, a
/// drawing and the registry. What the module leaves behind goes with the object.
class ModuleRun {
 public:
  ModuleRun();
  ~ModuleRun();
  ModuleRun(const ModuleRun&) = delete;
  ModuleRun& operator=(const ModuleRun&) = delete;

  /// Loads the library and binds the commands; unload() takes both back. The text says why not.
  void load();
  std::string unload();

  FARPROC exported(int ordinal) const { return win::exportByOrdinal(module_, ordinal); }
  FARPROC exported(const char* name) const { return win::exportByName(module_, name); }

  /// Makes a project of this data version current; an empty one: no project.
  void project(std::string_view dataVersion, std::string_view furtherSections = "");
  /// A registry file with these lines.
  void registry(std::string_view lines);

  /// Opens a drawing with this content.
  void open(std::string_view dxf);
  /// Types lines, each with Enter behind it, and lets the drawing come to rest.
  void type(std::string_view lines);
  /// The bytes that saving the drawing writes.
  std::string saved() const;
  /// Lines in which `after` differs from `before`, as "old -> new".
  static std::vector<std::string> changes(std::string_view before, std::string_view after);

  /// What was shown since the last call.
  std::string takeTranscript();

 private:
  void closeDrawing();
  void write(const std::filesystem::path& file, std::string_view content) const;

  std::filesystem::path folder_;
  int projects_ = 0;
  std::string transcript_;
  HMODULE module_ = nullptr;
  unsigned drawing_ = 0;
};

}  // namespace kovra::test
