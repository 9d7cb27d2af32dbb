#include "platform/dxf/atomic_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <random>
#include <thread>
#include <utility>

#include "platform/dxf/values.h"

namespace kovra::dxf {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{256} << 10U;
constexpr mode_t kModeBits = 07777;
constexpr const char* kTemporaryName = "/.kovra-";

/// Holds back the signal that a file size limit sends, so that the write fails with an error
/// instead of ending the program.
class SizeLimitSignalBlock {
 public:
  SizeLimitSignalBlock() {
    sigemptyset(&limit_);
    sigaddset(&limit_, SIGXFSZ);
    ::pthread_sigmask(SIG_BLOCK, &limit_, &before_);
  }
  ~SizeLimitSignalBlock() {
    const timespec now{};
    while (::sigtimedwait(&limit_, nullptr, &now) > 0) {
    }
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  SizeLimitSignalBlock(const SizeLimitSignalBlock&) = delete;
  SizeLimitSignalBlock& operator=(const SizeLimitSignalBlock&) = delete;

 private:
  sigset_t limit_{};
  sigset_t before_{};
};

/// A file's lock, so that of several programs that replace it at once each sees what the one before
/// did. It goes with the file that is replaced.
class ReplacementLock {
 public:
  /// Waits a while for another one to be ready; false if that has the file locked for longer.
  bool take(const std::string& file) {
    file_ = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file_ < 0) return true;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (::flock(file_, LOCK_EX | LOCK_NB) != 0) {
      if (errno != EWOULDBLOCK && errno != EINTR) return true;  // a file system without locks
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
  }
  ReplacementLock() = default;
  ~ReplacementLock() {
    if (file_ >= 0) ::close(file_);
  }
  ReplacementLock(const ReplacementLock&) = delete;
  ReplacementLock& operator=(const ReplacementLock&) = delete;

 private:
  static constexpr std::chrono::seconds kPatience{3};
  int file_ = -1;
};

std::string folderOf(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

std::string pathOfDescriptor(int file) {
  return "/proc/self/fd/" + std::to_string(file);
}

/// A file without a name, which can be given one later; -1 where there are none.
int openUnnamed(const std::string& folder) {
  const int file = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (file < 0 || ::access(pathOfDescriptor(file).c_str(), F_OK) == 0) return file;
  ::close(file);
  return -1;
}

/// What isn't written but held back: open files by their targets, and whether it is so.
struct HeldFiles {
  bool hold = false;
  std::map<std::string, int> files;
};

HeldFiles& heldFiles() {
  static HeldFiles held;
  return held;
}

mode_t newFileMode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

/// A rename is on disk only when its folder is.
void syncFolder(const std::string& path) {
  const int folder = ::open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  ::fsync(folder);
  ::close(folder);
}

}  // namespace

void holdWritesBack(bool hold) {
  heldFiles().hold = hold;
}

bool writesAreHeldBack() {
  return heldFiles().hold;
}

std::string heldBack(const std::string& path) {
  const auto held = heldFiles().files.find(resolvedPath(path));
  return held != heldFiles().files.end() ? pathOfDescriptor(held->second) : std::string();
}

std::string resolvedPath(const std::string& path) {
  std::error_code error;
  fs::path target = fs::path(path);
  constexpr int kMostLinks = 40;
  for (int n = 0; n < kMostLinks && fs::is_symlink(fs::symlink_status(target, error)); ++n) {
    const fs::path link = fs::read_symlink(target, error);
    if (error) break;
    target = link.is_absolute() ? link : target.parent_path() / link;
  }
  const fs::path folder = fs::canonical(folderOf(target.string()), error);
  return error ? path : (folder / target.filename()).string();
}

AtomicFile::~AtomicFile() {
  if (file_ >= 0) ::close(file_);
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

Error AtomicFile::failure(int error) const {
  return {ErrorKind::kNotWritable, path_ + ": can't be written: " + systemMessage(error)};
}

Result<void> AtomicFile::open(const std::string& path) {
  path_ = path;
  target_ = resolvedPath(path);
  struct stat old {};
  replaces_ = ::stat(target_.c_str(), &old) == 0;
  if (!replaces_ && errno != ENOENT) return failure(errno);
  if (replaces_ && !S_ISREG(old.st_mode)) {
    return Error{ErrorKind::kNotWritable, path_ + ": not a regular file"};
  }
  // The rename would get round the file's own rights, and the superuser's access() too.
  const bool writeBits = (old.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
  if (replaces_ && (!writeBits || ::access(target_.c_str(), W_OK) != 0)) {
    return Error{ErrorKind::kNotWritable, path_ + ": the file is read-only"};
  }
  if (!openNew()) return failure(errno);
  // The owner is kept where this user may; the mode always.
  if (replaces_ && ::fchown(file_, old.st_uid, old.st_gid) != 0) errno = 0;
  if (::fchmod(file_, replaces_ ? old.st_mode & kModeBits : newFileMode()) != 0) {
    return failure(errno);
  }
  buffer_.reserve(kBufferSize);
  return {};
}

bool AtomicFile::openNew() {
  if (heldFiles().hold) {
    file_ = ::memfd_create("drawing", MFD_CLOEXEC);
    return file_ >= 0;
  }
  file_ = openUnnamed(folderOf(target_));
  if (file_ >= 0) return true;
  std::string name = folderOf(target_) + kTemporaryName + "XXXXXX";
  file_ = ::mkostemp(name.data(), O_CLOEXEC);
  if (file_ >= 0) temporary_ = name;
  return file_ >= 0;
}

void AtomicFile::append(std::string_view bytes) {
  if (buffer_.size() + bytes.size() > kBufferSize) {
    writeOut(buffer_);
    buffer_.clear();
  }
  if (bytes.size() >= kBufferSize / 4) {
    writeOut(buffer_);
    buffer_.clear();
    writeOut(bytes);
  } else {
    buffer_.append(bytes);
  }
}

void AtomicFile::writeOut(std::string_view bytes) {
  const SizeLimitSignalBlock block;
  while (!bytes.empty() && error_ == 0) {
    const ssize_t written = ::write(file_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) {
      error_ = errno;
    } else {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
}

/// Of several programs that save at once each finds a name of its own.
void AtomicFile::giveName() {
  std::random_device random;
  do {
    const std::string name = folderOf(target_) + kTemporaryName + formatHandle(random());
    if (::linkat(AT_FDCWD, pathOfDescriptor(file_).c_str(), AT_FDCWD, name.c_str(),
                 AT_SYMLINK_FOLLOW) == 0) {
      temporary_ = name;
      return;
    }
  } while (errno == EEXIST);
  error_ = errno;
}

Result<FileStamp> AtomicFile::finishWriting() {
  writeOut(buffer_);
  buffer_.clear();
  if (error_ != 0) return failure(error_);
  return stampOf(pathOfDescriptor(file_));
}

Result<void> AtomicFile::flush() {
  writeOut(buffer_);
  buffer_.clear();
  if (error_ == 0 && ::fsync(file_) != 0) error_ = errno;
  if (error_ == 0 && temporary_.empty()) giveName();
  if (::close(file_) != 0 && error_ == 0) error_ = errno;
  file_ = -1;
  if (error_ != 0) return failure(error_);
  return {};
}

/// The former file gets a second name, so that there is no moment without it; where the file system
/// has no such names, a copy.
Result<void> AtomicFile::keepBackup() {
  const std::string backup = target_ + ".bak";
  const std::string link = temporary_ + ".bak";
  std::error_code error;
  if (::link(target_.c_str(), link.c_str()) != 0) {
    fs::copy_file(target_, link, error);
    if (error) return failure(error.value());
  }
  if (::rename(link.c_str(), backup.c_str()) != 0) {
    const int renameError = errno;
    ::unlink(link.c_str());
    return failure(renameError);
  }
  // rename does nothing when both names are the same file already.
  ::unlink(link.c_str());
  return {};
}

/// The target's own stamp stands for the new file, so that a later save finds it as it should be.
Result<FileStamp> AtomicFile::holdBack() {
  if (Result<FileStamp> written = finishWriting(); !written) return written;
  int& held = heldFiles().files.try_emplace(target_, -1).first->second;
  if (held >= 0) ::close(held);
  held = std::exchange(file_, -1);
  return replaces_ ? stampOf(target_) : FileStamp{};
}

Result<void> AtomicFile::replaceTarget(bool backup) {
  if (backup && replaces_) {
    if (Result<void> kept = keepBackup(); !kept) return kept;
  }
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) return failure(errno);
  temporary_.clear();
  return {};
}

Result<FileStamp> AtomicFile::commit(bool backup, const MayReplace& mayReplace) {
  if (!heldFiles().hold) {
    if (Result<void> flushed = flush(); !flushed) return flushed.error();
  }
  ReplacementLock lock;
  if (replaces_ && !lock.take(target_))
    return Error{ErrorKind::kNotWritable, path_ + ": another program has the file locked"};
  if (mayReplace) {
    if (Result<void> may = mayReplace(); !may) return may.error();
  }
  if (heldFiles().hold) return holdBack();
  if (Result<void> replaced = replaceTarget(backup); !replaced) return replaced.error();
  syncFolder(target_);
  return stampOf(target_);
}

}  // namespace kovra::dxf
