#include "launch/program_library.h"

#include "launch/program_files.h"
#include "platform/win/resources/loader.h"

namespace kovra::launch {

Result<void (*)()> findProgramExport(const std::string& library, const char* name,
                                     const std::string& failure) {
  const Result<std::filesystem::path> file = findProgramFile(library);
  if (!file) return file.error();
  const auto cannot = [&failure](const std::string& reason) {
    return Error{ErrorKind::kNotReadable, failure + ": " + reason};
  };
  const win::LoadResult loaded = win::loadLibrary(file.value());
  if (!loaded) return cannot(loaded.error);
  const auto exported = win::exportByName(loaded.module, name);
  if (exported == nullptr) return cannot(file.value().string() + " is another library");
  return exported;
}

}  // namespace kovra::launch
