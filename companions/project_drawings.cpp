#include "companions/project_drawings.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/win/base/wide_text.h"

namespace kovra::companions {

std::filesystem::path fileIdentity(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::path identity = std::filesystem::weakly_canonical(file, error);
  return error ? std::filesystem::absolute(file, error).lexically_normal() : identity;
}

}  // namespace kovra::companions

using kovra::companions::fileIdentity;

namespace {

ProjectDrawing* findIdentity(std::deque<ProjectDrawing>& items,
                             const std::filesystem::path& identity) {
  const auto found = std::find_if(items.begin(), items.end(), [&](const ProjectDrawing& item) {
    return item.identity() == identity;
  });
  return found == items.end() ? nullptr : &*found;
}

}  // namespace

ProjectDrawing::ProjectDrawing(std::filesystem::path file, bool blocked)
    : file_(std::move(file)),
      widePath_(kovra::win::fromUtf8(file_.native())),
      identity_(fileIdentity(file_)),
      blocked_(blocked) {}

ProjectDrawings::ProjectDrawings(const std::vector<std::filesystem::path>& files,
                                 const std::vector<std::filesystem::path>& blocked) {
  for (const std::filesystem::path& file : blocked) blocked_.push_back(fileIdentity(file));
  for (const std::filesystem::path& file : files) {
    const std::filesystem::path identity = fileIdentity(file);
    if (!findIdentity(listed_, identity)) listed_.emplace_back(file, isBlocked(identity));
  }
}

ProjectDrawing& ProjectDrawings::find(const std::filesystem::path& file) {
  const std::filesystem::path identity = fileIdentity(file);
  if (ProjectDrawing* item = findIdentity(listed_, identity)) return *item;
  if (ProjectDrawing* item = findIdentity(others_, identity)) return *item;
  return others_.emplace_back(file, isBlocked(identity));
}

bool ProjectDrawings::isBlocked(const std::filesystem::path& identity) const {
  return std::ranges::find(blocked_, identity) != blocked_.end();
}
