#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <string_view>

#include "platform/dxf/file_bytes.h"
#include "platform/dxf/result.h"

namespace kovra::dxf {

/// Whether a file may be replaced now, or why not.
using MayReplace = std::function<Result<void>()>;

/// A file that is written anew: either all of it takes the old one's place, or nothing happens.
///
/// The bytes go to a file of the same folder that has no name yet, so that nothing is left of a
/// program that is killed meanwhile; where the file system has no such files, to one with a
/// temporary name. commit() flushes it and renames it. What isn't committed is removed.
class AtomicFile {
 public:
  AtomicFile() = default;
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// Begins to write the file that `path` leads to, through symbolic links. kNotWritable if it is
  /// read-only or the folder can't be written.
  Result<void> open(const std::string& path);
  /// The file itself, links resolved.
  const std::string& target() const { return target_; }
  /// Collects bytes; failures are kept for commit().
  void append(std::string_view bytes);
  /// Writes out what was collected. The stamp of what is written, which a new name doesn't change.
  Result<FileStamp> finishWriting();
  /// Flushes, keeps the former file as NAME.bak if wanted, renames. Returns the new file's stamp.
  /// @param mayReplace is asked right before, while no other program of ours can replace the file
  /// Errors: that of mayReplace; kNotWritable, also when another program has the file locked.
  Result<FileStamp> commit(bool backup, const MayReplace& mayReplace = {});

 private:
  Error failure(int error) const;
  bool openNew();
  Result<FileStamp> holdBack();
  void writeOut(std::string_view bytes);
  void giveName();
  Result<void> flush();
  Result<void> keepBackup();
  Result<void> replaceTarget(bool backup);

  std::string path_;
  std::string target_;
  std::string temporary_;
  std::string buffer_;
  int file_ = -1;
  int error_ = 0;
  bool replaces_ = false;
};

/// From now on nothing is written to the disk: what is committed stays in memory, and the callers
/// don't see a difference, as long as they don't read it back. For runs that only say what they
/// would do.
void holdWritesBack(bool hold);
bool writesAreHeldBack();
/// A path under which the bytes can be read that `path` would have; empty if it wasn't written.
std::string heldBack(const std::string& path);

/// `path` with symbolic links resolved, also of a file that doesn't exist yet; `path` itself if its
/// folder can't be resolved.
std::string resolvedPath(const std::string& path);

}  // namespace kovra::dxf
