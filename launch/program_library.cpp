#include "launch/program_library.h"

#include "launch/program_files.h"
#include "platform/win/resources/loader.h"

namespace kovra::launch {

namespace {

struct Export {
  HMODULE module;
  void (*function)();
};

Result<Export> openExport(const std::string& library, const char* name,
                          const std::string& failure) {
  const Result<std::filesystem::path> file = findProgramFile(library);
  if (!file) return file.error();
  const auto cannot = [&failure](const std::string& reason) {
    return Error{ErrorKind::kNotReadable, failure + ": " + reason};
  };
  const win::LoadResult loaded = win::loadLibrary(file.value());
  if (!loaded) return cannot(loaded.error);
  const auto exported = win::exportByName(loaded.module, name);
  if (exported != nullptr) return Export{loaded.module, exported};
  win::unloadModule(loaded.module);
  return cannot(file.value().string() + " is another library");
}

}  // namespace

Result<void (*)()> findProgramExport(const std::string& library, const char* name,
                                     const std::string& failure) {
  const Result<Export> opened = openExport(library, name, failure);
  if (!opened) return opened.error();
  return opened.value().function;
}

Result<void> withProgramExport(const std::string& library, const char* name,
                               const std::string& failure,
                               const std::function<void(void (*)())>& use) {
  const Result<Export> opened = openExport(library, name, failure);
  if (!opened) return opened.error();
  use(opened.value().function);
  win::unloadModule(opened.value().module);
  return {};
}

}  // namespace kovra::launch
