#include "platform/dxf/file_bytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace kovra::dxf {

namespace {

/// Closes a descriptor at the end of its scope.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return fd_; }

 private:
  int fd_;
};

FileStamp stampFrom(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec};
}

Error readError(const std::string& path, int error) {
  const ErrorKind kind = error == ENOENT ? ErrorKind::kNotFound : ErrorKind::kNotReadable;
  return {kind, path + ": " + systemMessage(error)};
}

}  // namespace

std::string systemMessage(int error) {
  return std::generic_category().message(error);
}

Result<FileStamp> stampOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return readError(path, errno);
  return stampFrom(status);
}

Result<FileBytes> FileBytes::read(const std::string& path, FileStamp& stamp) {
  // Without O_NONBLOCK a pipe without a writer would be waited for before it could be refused.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (file.get() < 0 || ::fstat(file.get(), &status) != 0) return readError(path, errno);
  if (S_ISDIR(status.st_mode)) return readError(path, EISDIR);
  if (!S_ISREG(status.st_mode)) {
    return Error{ErrorKind::kNotReadable, path + ": not a regular file"};
  }
  stamp = stampFrom(status);
  FileBytes bytes;
  const auto size = static_cast<std::size_t>(status.st_size);
  if (!bytes.memory_.resize(size)) return readError(path, ENOMEM);
  while (bytes.size_ < size) {
    const ssize_t got = ::read(file.get(), bytes.memory_.data() + bytes.size_, size - bytes.size_);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return readError(path, errno);
    if (got == 0) break;
    bytes.size_ += static_cast<std::size_t>(got);
  }
  struct stat after {};
  if (::fstat(file.get(), &after) != 0 || stampFrom(after) != stamp || bytes.size_ != size) {
    return Error{ErrorKind::kNotReadable, path + ": the file changes while it is read"};
  }
  return bytes;
}

Result<FileBytes> FileBytes::copy(std::string_view source) {
  FileBytes bytes;
  if (!bytes.memory_.resize(source.size())) return readError("memory", ENOMEM);
  if (!source.empty()) std::memcpy(bytes.memory_.data(), source.data(), source.size());
  bytes.size_ = source.size();
  return bytes;
}

}  // namespace kovra::dxf
