#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kovra::win {

/// Puts compiled resources together, as a resource compiler writes them.
class ResBuilder {
 public:
  ResBuilder() { add(0, 0, {}); }

  /// Strings of the block that holds them all (ids of one block: equal but for the last four bits).
  ResBuilder& strings(const std::map<unsigned, std::u16string>& texts) {
    Bytes block;
    const unsigned first = texts.begin()->first & ~15U;
    for (unsigned id = first; id < first + 16; ++id) {
      const auto found = texts.find(id);
      const std::u16string text = found != texts.end() ? found->second : u"";
      u16(block, static_cast<unsigned>(text.size()));
      for (const char16_t unit : text) u16(block, unit);
    }
    return add(6, first / 16 + 1, block);
  }

  struct Control {
    int id;
    unsigned classNumber;  ///< 0x80 button, 0x81 edit, 0x82 label, 0x85 combo box
    std::uint32_t style;
    std::u16string text;
  };

  /// An extended template with a font of 9 points, 200 by 100 units.
  ResBuilder& dialog(unsigned id, std::uint32_t style, const std::u16string& title,
                     const std::vector<Control>& controls) {
    Bytes bytes;
    for (const unsigned word : {1U, 0xFFFFU, 0U, 0U, 0U, 0U}) u16(bytes, word);
    u32(bytes, style | 0x40);
    u16(bytes, static_cast<unsigned>(controls.size()));
    for (const unsigned word : {10U, 20U, 200U, 100U, 0U, 0U}) u16(bytes, word);
    text(bytes, title);
    for (const unsigned word : {9U, 400U, 0U}) u16(bytes, word);
    text(bytes, u"MS Shell Dlg");
    unsigned top = 4;
    for (const Control& control : controls) {
      bytes.resize((bytes.size() + 3) / 4 * 4);
      u32(bytes, 0);
      u32(bytes, 0);
      u32(bytes, control.style);
      for (const unsigned word : {4U, top, 80U, 12U}) u16(bytes, word);
      u32(bytes, static_cast<std::uint32_t>(control.id));
      for (const unsigned word : {0xFFFFU, control.classNumber}) u16(bytes, word);
      text(bytes, control.text);
      u16(bytes, 0);
      top += 16;
    }
    return add(5, id, bytes);
  }

  const std::vector<std::byte>& bytes() const { return bytes_; }

 private:
  using Bytes = std::vector<std::byte>;

  static void u16(Bytes& to, unsigned value) {
    to.push_back(static_cast<std::byte>(value & 0xFF));
    to.push_back(static_cast<std::byte>(value >> 8));
  }
  static void u32(Bytes& to, std::uint32_t value) {
    u16(to, value & 0xFFFF);
    u16(to, value >> 16);
  }
  static void text(Bytes& to, std::u16string_view characters) {
    for (const char16_t unit : characters) u16(to, unit);
    u16(to, 0);
  }
  ResBuilder& add(unsigned type, unsigned name, const Bytes& data) {
    u32(bytes_, static_cast<std::uint32_t>(data.size()));
    u32(bytes_, 32);
    for (const unsigned number : {type, name}) {
      u16(bytes_, 0xFFFF);
      u16(bytes_, number);
    }
    bytes_.resize(bytes_.size() + 16);
    bytes_.insert(bytes_.end(), data.begin(), data.end());
    bytes_.resize((bytes_.size() + 3) / 4 * 4);
    return *this;
  }

  Bytes bytes_;
};

}  // namespace kovra::win
