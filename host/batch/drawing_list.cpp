#include "host/batch/drawing_list.h"

#include <glob.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <set>

namespace kovra::host {
namespace {

using std::filesystem::path;

bool isDrawingName(const path& file) {
  std::string extension = file.extension().string();
  for (char& c : extension) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
  return extension == ".dxf";
}

class DrawingFinder {
 public:
  Result<void> add(const std::string& name) {
    std::error_code failure;
    if (std::filesystem::is_directory(name, failure)) return addFolder(name);
    if (!std::filesystem::exists(name, failure) && name.find_first_of("*?[") != std::string::npos)
      return addPattern(name);
    addFile(name, path(name).filename());
    return {};
  }

  std::vector<BatchDrawing> take() { return std::move(drawings_); }

 private:
  Result<void> addFolder(const path& folder) {
    std::error_code failure;
    std::vector<path> files;
    for (std::filesystem::recursive_directory_iterator entry(folder, failure), end;
         !failure && entry != end; entry.increment(failure)) {
      if (isDrawingName(entry->path()) && entry->is_regular_file()) files.push_back(entry->path());
    }
    if (failure) return Error{ErrorKind::kNotReadable, folder.string() + ": " + failure.message()};
    if (files.empty()) return Error{ErrorKind::kNotFound, folder.string() + ": no drawing in it"};
    std::sort(files.begin(), files.end());
    for (const path& file : files) addFile(file, file.lexically_relative(folder));
    return {};
  }

  Result<void> addPattern(const std::string& pattern) {
    glob_t found = {};
    const int status = glob(pattern.c_str(), GLOB_TILDE, nullptr, &found);
    for (std::size_t i = 0; status == 0 && i < found.gl_pathc; ++i)
      addFile(found.gl_pathv[i], path(found.gl_pathv[i]).filename());
    globfree(&found);
    if (status != 0) return Error{ErrorKind::kNotFound, pattern + ": no drawing has such a name"};
    return {};
  }

  void addFile(const path& file, const path& relative) {
    std::error_code failure;
    const path identity = std::filesystem::weakly_canonical(file, failure);
    if (seen_.insert(failure ? file : identity).second) drawings_.push_back({file, relative});
  }

  std::vector<BatchDrawing> drawings_;
  std::set<path> seen_;
};

Result<void> addListed(std::istream& list, DrawingFinder& finder) {
  std::string line;
  while (std::getline(list, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    if (const Result<void> added = finder.add(line); !added) return added;
  }
  return {};
}

}  // namespace

Result<std::vector<BatchDrawing>> findDrawings(const std::vector<std::string>& names,
                                               const std::string& listFile) {
  DrawingFinder finder;
  for (const std::string& name : names) {
    if (const Result<void> added = finder.add(name); !added) return added.error();
  }
  if (!listFile.empty()) {
    std::ifstream file;
    if (listFile != "-") file.open(listFile);
    if (listFile != "-" && !file)
      return Error{ErrorKind::kNotReadable, listFile + ": the list can't be read"};
    const Result<void> added = addListed(listFile == "-" ? std::cin : file, finder);
    if (!added) return added.error();
  }
  return finder.take();
}

Result<void> checkPlaces(const std::vector<BatchDrawing>& drawings) {
  std::map<path, const BatchDrawing*> places;
  for (const BatchDrawing& drawing : drawings) {
    const auto [place, isNew] = places.try_emplace(drawing.relative, &drawing);
    if (isNew) continue;
    return Error{ErrorKind::kInvalidInput, drawing.file.string() + " and " +
                                               place->second->file.string() +
                                               " would be saved to the same place"};
  }
  return {};
}

}  // namespace kovra::host
