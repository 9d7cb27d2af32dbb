#pragma once

#include <deque>
#include <filesystem>
#include <string>
#include <vector>

namespace kovra::companions {

/// What two paths must have in common to mean the same file: absolute, without links where it
/// exists.
std::filesystem::path fileIdentity(const std::filesystem::path& file);

}  // namespace kovra::companions

/// One drawing file of a project.
class ProjectDrawing {
 public:
  ProjectDrawing(std::filesystem::path file, bool blocked);

  const std::filesystem::path& file() const { return file_; }
  const std::wstring& widePath() const { return widePath_; }
  const std::filesystem::path& identity() const { return identity_; }
  bool blockedByProject() const { return blocked_; }

 private:
  std::filesystem::path file_;
  std::wstring widePath_;
  std::filesystem::path identity_;
  bool blocked_;
};

/// The drawings of a project in their order. Items keep their addresses.
class ProjectDrawings {
 public:
  /// Files that mean the same are taken once.
  ProjectDrawings(const std::vector<std::filesystem::path>& files,
                  const std::vector<std::filesystem::path>& blocked);

  std::size_t count() const { return listed_.size(); }
  ProjectDrawing& at(std::size_t index) { return listed_[index]; }
  /// The item of a file; one that the project doesn't list gets an item of its own, so that it can
  /// be asked whether it may be written.
  ProjectDrawing& find(const std::filesystem::path& file);

 private:
  bool isBlocked(const std::filesystem::path& identity) const;

  std::deque<ProjectDrawing> listed_;
  std::deque<ProjectDrawing> others_;
  std::vector<std::filesystem::path> blocked_;  // identities
};
