// The least that any program must do that reads a drawing and writes it back: plain_pass IN OUT
#include <cstdio>
#include <cstring>
#include <memory>

#include "bench/line_pairs.h"
#include "bench/mapped_file.h"

namespace {

/// Collects what is written, so that the file is written in large pieces.
class Writer {
 public:
  explicit Writer(const char* path)
      : file_(open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644)),
        buffer_(std::make_unique<char[]>(kCapacity)) {}
  ~Writer() {
    if (file_ >= 0) close(file_);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  bool add(std::string_view bytes) {
    while (!bytes.empty()) {
      const std::size_t part = std::min(bytes.size(), kCapacity - used_);
      std::memcpy(buffer_.get() + used_, bytes.data(), part);
      used_ += part;
      bytes.remove_prefix(part);
      if (used_ == kCapacity && !flush()) return false;
    }
    return true;
  }

  bool flush() {
    for (std::size_t done = 0; done < used_;) {
      const ssize_t written = write(file_, buffer_.get() + done, used_ - done);
      if (written <= 0) return false;
      done += static_cast<std::size_t>(written);
    }
    used_ = 0;
    return true;
  }

 private:
  static constexpr std::size_t kCapacity = 1 << 20;
  int file_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  const MappedFile input(arguments[1]);
  Writer output(arguments[2]);
  std::string_view rest = input.bytes();
  while (!rest.empty()) {
    const LinePair pair = takePair(rest);
    if (!output.add(pair.code) || !output.add(pair.value)) return 1;
  }
  return output.flush() ? 0 : 1;
}
