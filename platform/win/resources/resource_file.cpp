#include "platform/win/resources/resource_file.h"

#include <algorithm>

#include "platform/win/base/file_bytes.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/resources/resources.h"

namespace kovra::win {

bool ByteReader::take(std::size_t count) {
  if (failed_ || offset_ > bytes_.size() || bytes_.size() - offset_ < count) {
    failed_ = true;
    return false;
  }
  return true;
}

unsigned ByteReader::u8() {
  if (!take(1)) return 0;
  return static_cast<unsigned>(bytes_[offset_++]);
}

unsigned ByteReader::u16() {
  if (!take(2)) return 0;
  const unsigned low = u8();
  return low | u8() << 8;
}

unsigned ByteReader::u32() {
  if (!take(4)) return 0;
  const unsigned low = u16();
  return low | u16() << 16;
}

void ByteReader::skip(std::size_t count) {
  if (take(count)) offset_ += count;
}

std::wstring ByteReader::text() {
  std::u16string units;
  while (const unsigned unit = u16()) units += static_cast<char16_t>(unit);
  return fromUtf16(units.data(), units.size());
}

std::wstring ByteReader::text(std::size_t length) {
  std::u16string units;
  for (std::size_t i = 0; i < length && !failed_; ++i) units += static_cast<char16_t>(u16());
  return fromUtf16(units.data(), units.size());
}

namespace {

/// A type or a name in a resource header: a number behind 0xFFFF, or a text.
std::optional<unsigned> readNumberOrText(ByteReader& reader) {
  ByteReader ahead = reader;
  if (ahead.u16() == 0xFFFF) {
    const unsigned number = ahead.u16();
    reader = ahead;
    return number;
  }
  reader.text();
  return std::nullopt;
}

}  // namespace

std::optional<ResourceFile> ResourceFile::read(const std::filesystem::path& file) {
  const auto content = readFileBytes(file);
  if (!content) return std::nullopt;
  std::vector<std::byte> bytes(content->size());
  std::transform(content->begin(), content->end(), bytes.begin(),
                 [](char c) { return static_cast<std::byte>(c); });
  return parse(std::move(bytes));
}

std::optional<ResourceFile> ResourceFile::parse(std::vector<std::byte> bytes) {
  ResourceFile file;
  std::size_t offset = 0;
  bool first = true;
  while (bytes.size() - offset >= 32) {
    ByteReader reader(bytes, offset);
    const std::size_t dataSize = reader.u32();
    const std::size_t headerSize = reader.u32();
    // The file begins with an empty resource that tells 32-bit files from 16-bit ones.
    if (first && (dataSize != 0 || headerSize != 32)) return std::nullopt;
    if (headerSize < 16 || headerSize > bytes.size() - offset ||
        dataSize > bytes.size() - offset - headerSize) {
      return std::nullopt;
    }
    const auto type = readNumberOrText(reader);
    const auto name = readNumberOrText(reader);
    if (!first && type && name) {
      file.places_.try_emplace({*type, *name}, Place{offset + headerSize, dataSize});
    }
    first = false;
    const std::size_t next = offset + headerSize + (dataSize + 3) / 4 * 4;
    offset = std::min(next, bytes.size());
  }
  if (first) return std::nullopt;
  file.bytes_ = std::move(bytes);
  return file;
}

std::span<const std::byte> ResourceFile::find(unsigned type, unsigned id) const {
  const auto found = places_.find({type, id});
  if (found == places_.end()) return {};
  return std::span(bytes_).subspan(found->second.offset, found->second.size);
}

bool ResourceFile::findString(unsigned id, std::wstring& text) const {
  text.clear();
  ByteReader reader(find(static_cast<unsigned>(ResourceType::string), id / 16 + 1));
  for (unsigned i = 0; i < id % 16; ++i) reader.skip(std::size_t{2} * reader.u16());
  text = reader.text(reader.u16());
  return !reader.failed() && !text.empty();
}

}  // namespace kovra::win
