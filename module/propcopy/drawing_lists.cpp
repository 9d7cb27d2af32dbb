#include "module/propcopy/drawing_lists.h"

#include <filesystem>
#include <set>

#include "module/frame/companions/project_data_lib.h"
#include "module/frame/companions/project_tools_lib.h"
#include "module/frame/companions/project_tree_lib.h"

namespace kovra {
namespace {

/// Existing drawing files, and any number of them.
constexpr int kDrawingFiles = 16;
constexpr int kManyFiles = 3;

std::vector<std::wstring> chooseFiles() {
  int count = 0;
  wchar_t** files = ChooseDrawingFiles(kDrawingFiles, kManyFiles, count);
  if (files == nullptr) return {};
  std::vector<std::wstring> paths(files, files + count);
  FreeFileList(&files);
  return paths;
}

std::vector<std::wstring> chosenPaths(const CStringArray& preset) {
  if (preset.IsEmpty()) return chooseFiles();
  std::vector<std::wstring> paths;
  for (INT_PTR i = 0; i < preset.GetSize(); ++i) paths.emplace_back(preset[i].GetString());
  return paths;
}

/// The file behind a path, whatever way leads to it; also one that is missing.
std::filesystem::path fileBehind(const std::wstring& path) {
  std::error_code error;
  std::filesystem::path file = std::filesystem::weakly_canonical(path, error);
  return error ? std::filesystem::path(path) : file;
}

}  // namespace

DrawingLists ListChosenDrawings(const CStringArray& preset) {
  ProjectDrawings* collection = CurrentDrawings();
  DrawingLists lists;
  std::set<std::filesystem::path> known;
  for (std::wstring& path : chosenPaths(preset)) {
    // To write a drawing once more changes nothing, but would count its objects again.
    if (!known.insert(fileBehind(path)).second) continue;
    ProjectDrawing* drawing = DrawingByPath(collection, path.c_str());
    const bool blocked = IsDrawingValid(drawing) && IsDrawingBlocked(drawing);
    (blocked ? lists.skipped : lists.drawings).push_back(std::move(path));
  }
  return lists;
}

DrawingLists ListProjectDrawings() {
  ProjectDrawings* collection = CurrentDrawings();
  DrawingLists lists;
  const int count = DrawingCount(collection);
  for (int i = 0; i < count; ++i) {
    ProjectDrawing* drawing = DrawingAt(collection, i);
    const ACHAR* path = nullptr;
    if (!IsDrawingValid(drawing) || !GetDrawingPath(drawing, path)) continue;
    (IsDrawingBlocked(drawing) ? lists.skipped : lists.drawings).emplace_back(path);
  }
  return lists;
}

}  // namespace kovra
