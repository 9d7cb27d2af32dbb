// The least that any program must do that reads a drawing and writes it back: plain_pass IN OUT,
// or, for many drawings that are replaced safely, one after another: plain_pass --replace FILE...
// There each new file is flushed and renamed over the old one, and the folder is flushed.
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

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

  bool sync() const { return fsync(file_) == 0; }

 private:
  static constexpr std::size_t kCapacity = 1 << 20;
  int file_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
};

bool pass(const char* from, Writer& output) {
  const MappedFile input(from);
  std::string_view rest = input.bytes();
  while (!rest.empty()) {
    const LinePair pair = takePair(rest);
    if (!output.add(pair.code) || !output.add(pair.value)) return false;
  }
  return output.flush();
}

bool replace(const std::string& path) {
  const std::string written = path + ".new";
  {
    Writer output(written.c_str());
    if (!pass(path.c_str(), output) || !output.sync()) return false;
  }
  if (std::rename(written.c_str(), path.c_str()) != 0) return false;
  const int folder =
      open(path.substr(0, path.rfind('/') + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return false;
  const bool synced = fsync(folder) == 0;
  close(folder);
  return synced;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return 2;
  if (std::string_view(arguments[1]) == "--replace") {
    for (int i = 2; i < count; ++i)
      if (!replace(arguments[i])) return 1;
    return 0;
  }
  if (count != 3) return 2;
  Writer output(arguments[2]);
  return pass(arguments[1], output) ? 0 : 1;
}
