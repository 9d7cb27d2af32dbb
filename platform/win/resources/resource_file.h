#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kovra::win {

/// A compiled resource file (.res): 32-bit resources, each a header with type and name, and data.
/// Resources that are named by a text instead of a number are passed over.
class ResourceFile {
 public:
  /// Nothing when the file can't be read or isn't a compiled resource file.
  static std::optional<ResourceFile> read(const std::filesystem::path& file);
  /// Nothing when the bytes don't have the form; sizes in them are trusted nowhere.
  static std::optional<ResourceFile> parse(std::vector<std::byte> bytes);

  /// The data of a resource; empty if there is none. Of several languages the first.
  std::span<const std::byte> find(unsigned type, unsigned id) const;
  /// A string of the string tables (blocks of sixteen UTF-16 texts with their lengths).
  bool findString(unsigned id, std::wstring& text) const;

 private:
  struct Place {
    std::size_t offset;
    std::size_t size;
  };

  std::vector<std::byte> bytes_;
  std::map<std::pair<unsigned, unsigned>, Place> places_;
};

/// Reads little-endian fields one behind the other and never beyond the end: then everything read
/// is 0 and failed() tells.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::byte> bytes, std::size_t offset = 0)
      : bytes_(bytes), offset_(offset) {}

  unsigned u8();
  unsigned u16();
  unsigned u32();
  int i16() { return static_cast<short>(u16()); }
  /// UTF-16 characters up to a null.
  std::wstring text();
  /// As many UTF-16 characters as are asked for.
  std::wstring text(std::size_t length);
  void skip(std::size_t count);
  void align4() { skip((4 - offset_ % 4) % 4); }

  std::size_t offset() const { return offset_; }
  std::size_t left() const { return bytes_.size() - offset_; }
  bool failed() const { return failed_; }

 private:
  bool take(std::size_t count);

  std::span<const std::byte> bytes_;
  std::size_t offset_;
  bool failed_ = false;
};

}  // namespace kovra::win
