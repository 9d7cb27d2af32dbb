#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/dxf/atomic_file.h"

namespace kovra::dxf {

/// While such a scope is open, saves that ask for it (SaveOptions::behind) leave the wait for the
/// disk to a thread: whoever saves many drawings, one after another, reads and changes the next one
/// meanwhile. Scopes may stand in one another; all belong to one thread.
///
/// One commit is under way at a time, and the next file begins when it is over. So drawings get
/// their names in the order in which they were saved, and what waits is an open file and nothing
/// in memory. Every drawing stays the former or the new one at each moment; that it lies on the
/// disk is promised for the end of the outermost scope, which waits.
class CommitsBehind {
 public:
  CommitsBehind();
  ~CommitsBehind();
  CommitsBehind(const CommitsBehind&) = delete;
  CommitsBehind& operator=(const CommitsBehind&) = delete;

  /// Inside a scope, and not while writes are held back.
  static bool allowed();
};

/// Is told in the scope's thread why a file couldn't be committed.
using CommitFailed = std::function<void(const Error&)>;

/// Commits a file to which all was appended. Returns the stamp that it has, under whatever name, or
/// why its bytes couldn't be written, which shows at once.
Result<FileStamp> commitBehind(std::unique_ptr<AtomicFile> file, bool backup, MayReplace mayReplace,
                               CommitFailed failed);

/// Waits for the commit that is under way, if one is, and tells its failure.
void finishCommit();
/// The same if it is the commit of this file: what is read is what was saved.
void finishCommitOf(const std::string& path);

}  // namespace kovra::dxf
