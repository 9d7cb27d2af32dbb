#include "module/frame/companions/project_data_lib.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "companions/project.h"
#include "companions/shared_databases.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"

namespace {

using kovra::companions::currentProject;
using kovra::companions::fileIdentity;
using kovra::win::fromUtf8;
using kovra::win::toUtf8;

wchar_t* newText(const std::wstring& text) {
  auto* copy = new wchar_t[text.size() + 1];
  std::copy_n(text.c_str(), text.size() + 1, copy);
  return copy;
}

// What a user chooses is relative to the project.
std::filesystem::path inProject(const std::filesystem::path& file) {
  const auto project = currentProject();
  return project ? (project->folder() / file).lexically_normal() : std::filesystem::absolute(file);
}

}  // namespace

int HasProjectContext() {
  return currentProject() ? 1 : 0;
}

int PresetDrawingCount() {
  const auto project = currentProject();
  return project ? static_cast<int>(project->presetDrawings().size()) : 0;
}

bool GetPresetDrawing(int index, wchar_t* buffer, int size) {
  if (!buffer || index < 0 || index >= PresetDrawingCount()) return false;
  const auto& drawings = currentProject()->presetDrawings();
  const std::wstring path = fromUtf8(drawings[static_cast<std::size_t>(index)].native());
  if (size <= 0 || path.size() >= static_cast<std::size_t>(size)) return false;
  std::copy_n(path.c_str(), path.size() + 1, buffer);
  return true;
}

AcApDocument* FindOpenDocument(const wchar_t* path) {
  if (!path || !*path) return nullptr;
  const std::filesystem::path identity = fileIdentity(toUtf8(path));
  const std::unique_ptr<AcApDocumentIterator> documents(
      acDocManagerPtr()->newAcApDocumentIterator());
  for (; !documents->done(); documents->step()) {
    AcApDocument* document = documents->document();
    if (document->isNamedDrawing() && fileIdentity(toUtf8(document->fileName())) == identity)
      return document;
  }
  return nullptr;
}

AcDbDatabase* FindLoadedDatabase(const wchar_t* path) {
  return path && *path ? kovra::companions::findShared(toUtf8(path)) : nullptr;
}

// The list ends with a null, so that it can be freed without its count.
wchar_t** ChooseDrawingFiles(int /*fileKind*/, int /*choiceKind*/, int& count) {
  count = 0;
  const std::vector<std::filesystem::path> chosen = kovra::win::interaction().chooseFiles();
  if (chosen.empty()) return nullptr;
  auto** files = new wchar_t* [chosen.size() + 1] {};
  std::ranges::transform(chosen, files, [](const std::filesystem::path& file) {
    return newText(fromUtf8(inProject(file).native()));
  });
  count = static_cast<int>(chosen.size());
  return files;
}

void FreeFileList(wchar_t*** files) {
  if (!files || !*files) return;
  for (wchar_t** file = *files; *file; ++file) delete[] * file;
  delete[] * files;
  *files = nullptr;
}
