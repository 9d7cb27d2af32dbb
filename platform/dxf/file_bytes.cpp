#include "platform/dxf/file_bytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace kovra::dxf {

namespace {

/// So much is read at a time.
constexpr std::size_t kPiece = std::size_t{128} << 10U;

/// Up to this size a thread costs more than it gains.
constexpr std::size_t kReadAtOnce = std::size_t{2} << 20U;

/// From this size on a thread more is worth its start.
constexpr std::size_t kLargeFile = std::size_t{32} << 20U;

FileStamp stampFrom(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec};
}

Error readError(const std::string& path, int error) {
  const ErrorKind kind = error == ENOENT ? ErrorKind::kNotFound : ErrorKind::kNotReadable;
  return {kind, path + ": " + systemMessage(error)};
}

}  // namespace

Descriptor::~Descriptor() {
  if (fd_ >= 0) ::close(fd_);
}

std::string systemMessage(int error) {
  return std::generic_category().message(error);
}

Result<FileStamp> stampOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return readError(path, errno);
  return stampFrom(status);
}

Result<FileBytes> FileBytes::read(const std::string& path, FileStamp& stamp) {
  Result<std::unique_ptr<FileReading>> reading = FileReading::start(path);
  if (!reading) return reading.error();
  return reading.value()->finish(stamp);
}

Result<FileBytes> FileBytes::copy(std::string_view source) {
  FileBytes bytes;
  if (!bytes.memory_.resize(source.size())) return readError("memory", ENOMEM);
  if (!source.empty()) std::memcpy(bytes.memory_.data(), source.data(), source.size());
  bytes.size_ = source.size();
  return bytes;
}

Result<std::unique_ptr<FileReading>> FileReading::start(const std::string& path) {
  // Without O_NONBLOCK a pipe without a writer would be waited for before it could be refused.
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (file.get() < 0 || ::fstat(file.get(), &status) != 0) return readError(path, errno);
  if (S_ISDIR(status.st_mode)) return readError(path, EISDIR);
  if (!S_ISREG(status.st_mode)) {
    return Error{ErrorKind::kNotReadable, path + ": not a regular file"};
  }
  std::unique_ptr<FileReading> reading(new FileReading(path, std::move(file)));
  reading->stamp_ = stampFrom(status);
  reading->toRead_ = static_cast<std::size_t>(status.st_size);
  reading->bytes_.memory_ = LargeMemory::ofAnyContent(reading->toRead_);
  if (reading->bytes_.memory_.data() == nullptr) return readError(path, ENOMEM);
  reading->begin();
  return reading;
}

void FileReading::begin() {
  if (toRead_ > kReadAtOnce) {
    try {
      thread_ = std::jthread([this](const std::stop_token& stop) { readAll(stop); });
      if (toRead_ < kLargeFile) return;
      preparing_ = std::jthread([this](const std::stop_token& stop) { prepareMemory(stop); });
      return;
    } catch (const std::system_error&) {
      // No thread to be had: the file is read at once.
      if (thread_.joinable()) return;
    }
  }
  readAll({});
}

void FileReading::readAll(const std::stop_token& stop) {
  while (!done_ && !stop.stop_requested()) readPiece();
}

/// Takes memory from the end on while the beginning is read. On virtual machines whose host takes
/// back free memory a large page may need longer than what is read into it.
void FileReading::prepareMemory(const std::stop_token& stop) {
  std::size_t at = bytes_.memory_.size() / LargeMemory::kLargePage * LargeMemory::kLargePage;
  while (at != 0 && !stop.stop_requested()) {
    at -= LargeMemory::kLargePage;
    {
      const std::lock_guard guard(lock_);
      if (done_ || bytes_.size_ > at) return;
    }
    if (!bytes_.memory_.prepare(at, LargeMemory::kLargePage)) return;
  }
}

void FileReading::readPiece() {
  const std::size_t at = bytes_.size_;
  const ssize_t got =
      ::read(file_.get(), bytes_.memory_.data() + at, std::min(kPiece, toRead_ - at));
  if (got < 0 && errno == EINTR) return;
  const std::lock_guard guard(lock_);
  if (got < 0) error_ = errno;
  if (got > 0) bytes_.size_ += static_cast<std::size_t>(got);
  done_ = got <= 0 || bytes_.size_ == toRead_;
  came_.notify_one();
}

std::string_view FileReading::waitPast(std::size_t seen) {
  std::unique_lock guard(lock_);
  came_.wait(guard, [this, seen] { return done_ || bytes_.size_ > seen; });
  return bytes_.view();
}

Result<FileBytes> FileReading::finish(FileStamp& stamp) {
  if (thread_.joinable()) thread_.join();
  preparing_ = {};
  if (error_ != 0) return readError(path_, error_);
  struct stat after {};
  if (::fstat(file_.get(), &after) != 0 || stampFrom(after) != stamp_ || bytes_.size_ != toRead_) {
    return Error{ErrorKind::kNotReadable, path_ + ": the file changes while it is read"};
  }
  stamp = stamp_;
  return std::move(bytes_);
}

}  // namespace kovra::dxf
