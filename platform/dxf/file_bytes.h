#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "platform/dxf/large_memory.h"
#include "platform/dxf/result.h"

namespace kovra::dxf {

/// Closes a file at the end of its scope.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  int get() const { return fd_; }

 private:
  int fd_;
};

/// Tells whether a file on disk is still the one that was read.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  std::int64_t seconds = 0;  ///< of the last modification
  std::int64_t nanoseconds = 0;
  bool operator==(const FileStamp&) const = default;
};

/// The stamp of what `path` leads to; kNotFound or kNotReadable.
Result<FileStamp> stampOf(const std::string& path);

/// The bytes of a whole file in memory of our own. Not mapped from the file: another program that
/// cuts the file short must not kill this one.
class FileBytes {
 public:
  static Result<FileBytes> read(const std::string& path, FileStamp& stamp);
  static Result<FileBytes> copy(std::string_view bytes);

  std::string_view view() const { return {memory_.data(), size_}; }

 private:
  friend class FileReading;

  LargeMemory memory_;
  std::size_t size_ = 0;
};

/// Reads a large file in the background, so that its beginning can be looked at meanwhile.
class FileReading {
 public:
  /// kNotFound or kNotReadable.
  static Result<std::unique_ptr<FileReading>> start(const std::string& path);

  /// Of the whole file when it was opened, in bytes.
  std::size_t size() const { return toRead_; }
  /// The bytes that have come; waits until they are more than `seen`. Not more: these are all.
  std::string_view waitPast(std::size_t seen);
  /// Waits for the whole file, which lies where waitPast() showed it. kNotReadable, also for a file
  /// that changed meanwhile. May be called once.
  Result<FileBytes> finish(FileStamp& stamp);

 private:
  FileReading(std::string path, Descriptor file) : path_(std::move(path)), file_(std::move(file)) {}
  void begin();
  void readAll(const std::stop_token& stop);
  void readPiece();
  void prepareMemory(const std::stop_token& stop);

  std::string path_;
  Descriptor file_;
  FileStamp stamp_;
  FileBytes bytes_;  ///< its size is what has come, and changes under the lock
  std::size_t toRead_ = 0;
  int error_ = 0;
  bool done_ = false;  ///< nothing is left to read, or nothing can be; changes under the lock
  std::mutex lock_;
  std::condition_variable came_;
  std::jthread thread_;     ///< the threads stand last, so that they end first
  std::jthread preparing_;  ///< see prepareMemory()
};

/// The system's words for an errno value.
std::string systemMessage(int error);

}  // namespace kovra::dxf
