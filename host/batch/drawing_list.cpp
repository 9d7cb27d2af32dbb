#include "host/batch/drawing_list.h"

#include <glob.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <unordered_set>

namespace kovra::host {
namespace {

using std::filesystem::path;

bool isDrawingName(const path& file) {
  std::string extension = file.extension().string();
  for (char& c : extension) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
  return extension == ".dxf";
}

/// Whether a path stands before another one in the order of a walk: a folder's files before those
/// of a folder whose name only goes on.
bool isBefore(const std::string& left, const std::string& right) {
  const auto rank = [](char c) { return c == '/' ? 0 : static_cast<unsigned char>(c); };
  return std::ranges::lexicographical_compare(left, right, {}, rank, rank);
}

class DrawingFinder {
 public:
  Result<void> add(const std::string& name) {
    std::error_code failure;
    if (std::filesystem::is_directory(name, failure)) return addFolder(name);
    if (!std::filesystem::exists(name, failure) && name.find_first_of("*?[") != std::string::npos)
      return addPattern(name);
    addFile(name, folderOf(name));
    return {};
  }

  std::vector<BatchDrawing> take() { return std::move(drawings_); }

 private:
  Result<void> addFolder(const path& folder) {
    std::error_code failure;
    std::vector<std::string> files;
    for (std::filesystem::recursive_directory_iterator entry(folder, failure), end;
         !failure && entry != end; entry.increment(failure)) {
      if (isDrawingName(entry->path()) && entry->is_regular_file())
        files.push_back(entry->path().string());
    }
    if (failure) return Error{ErrorKind::kNotReadable, folder.string() + ": " + failure.message()};
    if (files.empty()) return Error{ErrorKind::kNotFound, folder.string() + ": no drawing in it"};
    std::sort(files.begin(), files.end(), isBefore);
    // What the walk puts behind the folder's name is its place there.
    const std::string begin = folder.filename().empty() ? folder.string() : folder.string() + '/';
    for (const std::string& file : files) addFile(file, begin.size());
    return {};
  }

  Result<void> addPattern(const std::string& pattern) {
    glob_t found = {};
    const int status = glob(pattern.c_str(), GLOB_TILDE, nullptr, &found);
    for (std::size_t i = 0; status == 0 && i < found.gl_pathc; ++i)
      addFile(found.gl_pathv[i], folderOf(found.gl_pathv[i]));
    globfree(&found);
    if (status != 0) return Error{ErrorKind::kNotFound, pattern + ": no drawing has such a name"};
    return {};
  }

  static std::size_t folderOf(const std::string& name) { return name.rfind('/') + 1; }

  void addFile(const std::string& name, std::size_t above) {
    if (seen_.insert(identityOf(name)).second)
      drawings_.push_back({name, static_cast<std::uint32_t>(above)});
  }

  /// Its path without links. Most files of a list lie in the folder of the one before.
  std::string identityOf(const std::string& name) {
    std::error_code failure;
    const std::size_t above = folderOf(name);
    const std::string last = name.substr(above);
    if (last.empty() || last == "." || last == ".." || is_symlink(path(name), failure)) {
      const path identity = std::filesystem::weakly_canonical(name, failure);
      return failure ? name : identity.string();
    }
    const std::string folder = above == 0 ? "." : name.substr(0, above);
    if (folder != folder_) {
      folder_ = folder;
      const path identity = std::filesystem::weakly_canonical(folder, failure);
      folderIdentity_ = (failure ? path(folder) : identity) / "";
    }
    return folderIdentity_ + last;
  }

  std::vector<BatchDrawing> drawings_;
  std::unordered_set<std::string> seen_;
  std::string folder_;          // of the file before
  std::string folderIdentity_;  // with a slash at its end
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
    const auto [place, isNew] = places.try_emplace(drawing.relative(), &drawing);
    if (isNew) continue;
    return Error{ErrorKind::kInvalidInput, drawing.name + " and " + place->second->name +
                                               " would be saved to the same place"};
  }
  return {};
}

}  // namespace kovra::host
