#include "companions/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>

namespace kovra::companions {
namespace {

std::error_code lastError() {
  return {errno, std::generic_category()};
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }
  // Closes it and says whether that went well: some file systems report a full disk only now.
  bool close() { return ::close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

// A file that disappears again unless it is kept.
class TemporaryFile {
 public:
  TemporaryFile(std::filesystem::path path, mode_t mode)
      : path_(std::move(path)),
        descriptor_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode)),
        present_(static_cast<bool>(descriptor_)) {}
  ~TemporaryFile() {
    if (present_) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  explicit operator bool() const { return present_; }
  Descriptor& descriptor() { return descriptor_; }
  bool moveTo(const std::filesystem::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) return false;
    present_ = false;
    return true;
  }

 private:
  std::filesystem::path path_;
  Descriptor descriptor_;
  bool present_;
};

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// The file that a path finally means; the path itself when nothing is there yet.
std::filesystem::path followLinks(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::path target = std::filesystem::canonical(file, error);
  return error ? file : target;
}

std::optional<struct stat> statusOf(const std::filesystem::path& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) return std::nullopt;
  return status;
}

// A crash after the rename may otherwise bring the old name back; failing here loses nothing.
void flushFolder(const std::filesystem::path& folder) {
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor) ::fsync(descriptor.number());
}

}  // namespace

std::error_code readWholeFile(const std::filesystem::path& file, std::string& bytes) {
  bytes.clear();
  // Without O_NONBLOCK a named pipe would hold us up.
  const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!descriptor) return lastError();
  struct stat status {};
  if (::fstat(descriptor.number(), &status) != 0) return lastError();
  if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::invalid_argument);
  bytes.reserve(static_cast<std::size_t>(status.st_size));
  char buffer[1 << 16];
  while (true) {
    const ssize_t got = ::read(descriptor.number(), buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      bytes.clear();
      return lastError();
    }
    if (got == 0) return {};
    bytes.append(buffer, static_cast<std::size_t>(got));
  }
}

std::error_code replaceWholeFile(const std::filesystem::path& file, std::string_view bytes) {
  const std::filesystem::path target = followLinks(file);
  const std::optional<struct stat> old = statusOf(target);
  if (old && !S_ISREG(old->st_mode)) return std::make_error_code(std::errc::invalid_argument);
  if (old && !isWritable(target)) return std::make_error_code(std::errc::permission_denied);

  std::filesystem::path temporary = target;
  temporary += "." + std::to_string(::getpid()) + ".tmp";
  ::unlink(temporary.c_str());  // left over by a killed process that had our number
  TemporaryFile fresh(temporary, 0666);
  if (!fresh) return lastError();
  const int descriptor = fresh.descriptor().number();
  if (old) {
    // Another owner can't always be kept; the mode can.
    [[maybe_unused]] const int owner = ::fchown(descriptor, old->st_uid, old->st_gid);
    if (::fchmod(descriptor, old->st_mode & 07777) != 0) return lastError();
  }
  if (!writeAll(descriptor, bytes) || ::fsync(descriptor) != 0 || !fresh.descriptor().close())
    return lastError();
  if (!fresh.moveTo(target)) return lastError();
  flushFolder(target.parent_path());
  return {};
}

bool isWritable(const std::filesystem::path& file) {
  const std::optional<struct stat> status = statusOf(file);
  return status && (status->st_mode & 0222) != 0 && ::access(file.c_str(), W_OK) == 0;
}

}  // namespace kovra::companions
