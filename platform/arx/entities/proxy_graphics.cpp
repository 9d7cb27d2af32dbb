#include "platform/arx/entities/proxy_graphics.h"

#include <cstdint>
#include <cstring>
#include <optional>

#include "platform/arx/database/record_edit.h"

namespace kovra::arx {
namespace {

// A picture is its length and its number of commands, both 32 bits, then the commands: length and
// number, then operands, all little-endian. The lengths count themselves.
constexpr std::size_t kHeadLength = 8;
constexpr std::uint32_t kPushMatrix = 29;  ///< operand: 16 reals, row by row
constexpr std::uint32_t kPushOtherMatrix = 30;
constexpr std::uint32_t kPopMatrix = 31;
constexpr std::size_t kPushLength = kHeadLength + 16 * sizeof(double);
constexpr std::size_t kChunkLength = 127;  ///< bytes of a group 310

std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8U | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

void appendNumber(std::string& out, std::size_t value) {
  for (unsigned i = 0; i < 4; ++i) out.push_back(static_cast<char>(value >> 8 * i & 0xffU));
}

double realAt(std::string_view bytes, std::size_t at) {
  const std::uint64_t bits = numberAt(bytes, at) | std::uint64_t{numberAt(bytes, at + 4)} << 32U;
  double value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

void appendReal(std::string& out, double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  appendNumber(out, bits & 0xffffffffU);
  appendNumber(out, bits >> 32U);
}

/// Writes a picture anew with its outermost coordinates displaced. Readers differ in whether
/// matrices within matrices multiply, so none is put around another.
class Displacing {
 public:
  Displacing(std::string_view picture, const AcGeVector3d& by) : picture_(picture), by_(by) {}

  /// Nothing when the picture is malformed.
  std::optional<std::string> run() {
    if (picture_.size() < kHeadLength || numberAt(picture_, 0) != picture_.size())
      return std::nullopt;
    for (std::size_t at = kHeadLength; at < picture_.size();) {
      const std::string_view rest = picture_.substr(at);
      const std::size_t length = rest.size() < kHeadLength ? 0 : numberAt(rest, 0);
      if (length < kHeadLength || length > rest.size()) return std::nullopt;
      if (!command(rest.substr(0, length))) return std::nullopt;
      at += length;
    }
    endOwn();
    if (depth_ != 0 || read_ != numberAt(picture_, 4)) return std::nullopt;
    std::string head;
    appendNumber(head, kHeadLength + body_.size());
    appendNumber(head, written_);
    return head + body_;
  }

 private:
  bool command(std::string_view bytes) {
    ++read_;
    const std::uint32_t number = numberAt(bytes, 4);
    if (number == kPopMatrix && depth_-- == 0) return false;
    if (number == kPushMatrix || number == kPushOtherMatrix) {
      if (bytes.size() != kPushLength) return false;
      endOwn();
      if (depth_++ == 0) return push(number, bytes.substr(kHeadLength)), true;
    } else if (depth_ == 0 && number != kPopMatrix && !ownOpen_) {
      ownOpen_ = true;
      push(kPushMatrix, {});
    }
    body_ += bytes;
    ++written_;
    return true;
  }

  /// A matrix (no operand: that which changes nothing) with the displacement behind it.
  void push(std::uint32_t number, std::string_view operand) {
    appendNumber(body_, kPushLength);
    appendNumber(body_, number);
    for (unsigned i = 0; i < 16; ++i) {
      const double value = operand.empty() ? (i % 5 == 0 ? 1 : 0) : realAt(operand, i * 8);
      appendReal(body_, i % 4 == 3 && i < 12 ? value + by_[i / 4] : value);
    }
    ++written_;
  }

  /// Ends the displacement of commands that stood outside of all matrices.
  void endOwn() {
    if (!ownOpen_) return;
    appendNumber(body_, kHeadLength);
    appendNumber(body_, kPopMatrix);
    ++written_;
    ownOpen_ = false;
  }

  std::string_view picture_;
  const AcGeVector3d& by_;
  std::string body_;
  std::size_t read_ = 0;
  std::size_t written_ = 0;
  int depth_ = 0;
  bool ownOpen_ = false;
};

}  // namespace

void translateProxyGraphics(dxf::RecordDraft& draft, const AcGeVector3d& by) {
  constexpr int kChunk = 310;
  if (draft.find(kChunk) == dxf::kNoGroup || !draft.hasMarker(kEntityPart)) return;
  std::size_t length = findProperty(draft, {kEntityPart, 160});
  if (length == dxf::kNoGroup) length = findProperty(draft, {kEntityPart, 92});
  if (length == dxf::kNoGroup) return;
  std::string picture;
  std::size_t end = length + 1;
  for (; end < draft.size() && draft.code(end) == kChunk; ++end) picture += draft.binary(end);
  const std::optional<std::string> displaced = Displacing(picture, by).run();
  if (!displaced || *displaced == picture) return;
  draft.setInteger(length, static_cast<std::int64_t>(displaced->size()));
  draft.erase({length + 1, end});
  std::size_t at = length + 1;
  for (std::size_t done = 0; done < displaced->size(); done += kChunkLength)
    draft.insertBinary(at++, kChunk, std::string_view(*displaced).substr(done, kChunkLength));
}

}  // namespace kovra::arx
