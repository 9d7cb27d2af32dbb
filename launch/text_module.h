#pragma once

#include "launch/program_files.h"
#include "platform/dxf/result.h"
#include "platform/win/base/windows_types.h"

namespace kovra::launch {

/// The library with the text commands: loaded, bound to its command names, unloaded again.
class TextModule {
 public:
  explicit TextModule(std::filesystem::path file) : file_(std::move(file)) {}
  TextModule(const TextModule&) = delete;
  TextModule& operator=(const TextModule&) = delete;

  /// Loads and initialises it and binds the names of its commands.
  Result<void> load();
  /// Ends it and unloads it; an error, and loaded as before, while something of it is alive.
  Result<void> unload();
  /// Carries out an exported command; a line on the command line when there is none.
  void run(int ordinal) const;

 private:
  void callByName(const char* name) const;

  std::filesystem::path file_;
  HMODULE module_ = nullptr;
};

}  // namespace kovra::launch
