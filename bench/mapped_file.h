#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>

/// A file's bytes, mapped for reading in their order. Empty if the file can't be read.
class MappedFile {
 public:
  explicit MappedFile(const char* path) {
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return;
    struct stat status = {};
    if (fstat(file, &status) == 0 && status.st_size > 0) {
      size_ = static_cast<std::size_t>(status.st_size);
      void* mapped = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file, 0);
      if (mapped != MAP_FAILED) data_ = static_cast<const char*>(mapped);
      if (data_ != nullptr) madvise(mapped, size_, MADV_SEQUENTIAL);
    }
    close(file);
  }
  ~MappedFile() {
    if (data_ != nullptr) munmap(const_cast<char*>(data_), size_);
  }
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  std::string_view bytes() const {
    return data_ == nullptr ? std::string_view() : std::string_view(data_, size_);
  }

 private:
  const char* data_ = nullptr;
  std::size_t size_ = 0;
};
