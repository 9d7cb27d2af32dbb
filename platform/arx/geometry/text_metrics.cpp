#include "platform/arx/geometry/text_metrics.h"

#include <algorithm>
#include <cmath>

#include "platform/arx/geometry/east_asian_width.h"

namespace kovra::arx {
namespace {

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

/// Length of the %% code at the beginning of the text (0: none), and whether it draws a character.
std::size_t codeLength(std::wstring_view text, bool& draws) {
  draws = true;
  if (text.size() < 3 || text[0] != L'%' || text[1] != L'%') return 0;
  if (isDigit(text[2])) {
    std::size_t length = 3;
    while (length < 5 && length < text.size() && isDigit(text[length])) ++length;
    return length;
  }
  switch (text[2]) {
    case L'u':
    case L'U':
    case L'o':
    case L'O':
    case L'k':
    case L'K':
      draws = false;
      return 3;
    case L'c':
    case L'C':
    case L'd':
    case L'D':
    case L'p':
    case L'P':
    case L'%':
      return 3;
    default:
      return 0;
  }
}

/// Calls visit(advance) for each character that is drawn.
template <class Visit>
void forEachDrawn(std::wstring_view text, Visit visit) {
  while (!text.empty()) {
    bool draws = true;
    if (const std::size_t length = codeLength(text, draws); length > 0) {
      if (draws) visit(kHalfWidthAdvance);
      text.remove_prefix(length);
      continue;
    }
    visit(isFullWidth(text.front()) ? kFullWidthAdvance : kHalfWidthAdvance);
    text.remove_prefix(1);
  }
}

/// What a code that draws a character stands for.
wchar_t codeCharacter(std::wstring_view code) {
  switch (code[2]) {
    case L'c':
    case L'C':
      return L'\x2300';
    case L'd':
    case L'D':
      return L'\xb0';
    case L'p':
    case L'P':
      return L'\xb1';
    case L'%':
      return L'%';
    default:
      break;
  }
  wchar_t number = 0;
  for (const wchar_t digit : code.substr(2))
    number = static_cast<wchar_t>(number * 10 + (digit - L'0'));
  return number;
}

/// Switches what one of %%u, %%o and %%k switches.
void toggleStroke(wchar_t code, TextCharacter& strokes) {
  if (code == L'u' || code == L'U') strokes.under = !strokes.under;
  if (code == L'o' || code == L'O') strokes.over = !strokes.over;
  if (code == L'k' || code == L'K') strokes.through = !strokes.through;
}

/// From the line's base point to its alignment point, along and across the line.
struct Offset {
  double along = 0;
  double across = 0;
};

Offset alignmentOffset(const TextShape& shape, const TextPlacement& place) {
  Offset offset;
  const double middle = (place.bottom + place.top) / 2;
  switch (shape.horizontal) {
    case AcDb::kTextCenter:
      offset.along = place.width / 2;
      break;
    case AcDb::kTextRight:
      offset.along = place.width;
      break;
    case AcDb::kTextMid:
      return {place.width / 2, middle};
    default:
      break;
  }
  switch (shape.verticalMode) {
    case AcDb::kTextBottom:
      offset.across = shape.vertical ? place.bottom : 0;
      break;
    case AcDb::kTextVertMid:
      offset.across = middle;
      break;
    case AcDb::kTextTop:
      offset.across = place.top;
      break;
    case AcDb::kTextBase:
      break;
  }
  return offset;
}

/// A line between two points: aligned ones scale as a whole, fitted ones only along the line.
void placeBetweenPoints(const TextShape& shape, double advance, TextPlacement& place) {
  const AcGeVector3d line = shape.alignment - shape.position;
  const double length = std::hypot(line.x, line.y);
  if (length <= 0 || advance <= 0) return;
  place.rotation = std::atan2(line.y, line.x);
  if (place.rotation < 0) place.rotation += 2 * 3.141592653589793;
  if (shape.horizontal == AcDb::kTextAlign) {
    if (shape.widthFactor > 0) place.height = length / (advance * shape.widthFactor);
  } else if (shape.height > 0) {
    place.widthFactor = length / (advance * shape.height);
  }
}

/// The box of a vertical line is one full-width character wide and hangs from the height.
void boxOf(const TextShape& shape, const LineSize& size, TextPlacement& place) {
  if (!shape.vertical) {
    place.width = size.advance * place.height * place.widthFactor;
    place.top = place.height;
    return;
  }
  place.width = kFullWidthAdvance * place.height * place.widthFactor;
  place.top = place.height;
  place.bottom = place.height - kVerticalAdvance * place.height * size.characters;
  if (place.bottom > 0) place.bottom = 0;
}

}  // namespace

LineSize measureLine(std::wstring_view text) {
  LineSize size;
  forEachDrawn(text, [&](double advance) {
    size.advance += advance;
    ++size.characters;
  });
  return size;
}

bool TextCharacters::next(TextCharacter& character) {
  while (!rest_.empty()) {
    bool draws = true;
    const std::size_t code = codeLength(rest_, draws);
    const std::wstring_view one = rest_.substr(0, code > 0 ? code : 1);
    rest_.remove_prefix(one.size());
    if (!draws) {
      toggleStroke(one[2], strokes_);
      continue;
    }
    character = strokes_;
    character.character = code > 0 ? codeCharacter(one) : one.front();
    character.advance =
        code == 0 && isFullWidth(one.front()) ? kFullWidthAdvance : kHalfWidthAdvance;
    return true;
  }
  return false;
}

TextPlacement placeText(const TextShape& shape) {
  TextPlacement place;
  place.position = shape.position;
  place.height = shape.height;
  place.widthFactor = shape.widthFactor;
  place.rotation = shape.rotation;
  const LineSize size = shape.size ? *shape.size : measureLine(shape.text);
  const bool betweenPoints = isBetweenPoints(shape);
  if (betweenPoints && !shape.vertical) placeBetweenPoints(shape, size.advance, place);
  boxOf(shape, size, place);
  if (betweenPoints || !usesAlignmentPoint(shape.horizontal, shape.verticalMode)) return place;

  Offset offset = alignmentOffset(shape, place);
  if (shape.mirroredInX) offset.along = -offset.along;
  if (shape.mirroredInY) offset.across = -offset.across;
  const double c = std::cos(shape.rotation);
  const double s = std::sin(shape.rotation);
  place.position = {shape.alignment.x - c * offset.along + s * offset.across,
                    shape.alignment.y - s * offset.along - c * offset.across, shape.alignment.z};
  return place;
}

TextFrame textFrame(const TextShape& shape, const TextPlacement& place) {
  TextFrame frame;
  frame.origin = place.position;
  frame.along = AcGeVector3d(std::cos(place.rotation), std::sin(place.rotation), 0);
  frame.up = AcGeVector3d(-frame.along.y, frame.along.x, 0);
  if (shape.mirroredInX) {
    if (isBetweenPoints(shape)) frame.origin += frame.along * place.width;
    frame.along.negate();
  }
  if (shape.mirroredInY) frame.up.negate();
  return frame;
}

std::array<AcGePoint3d, 4> textCorners(const TextShape& shape, const TextPlacement& place) {
  const TextFrame frame = textFrame(shape, place);
  const double slant = std::tan(shape.oblique);
  const auto corner = [&](double along, double across) {
    return frame.origin + frame.along * along + frame.up * across;
  };
  if (shape.vertical) {
    const double lean = slant * place.height;
    const double left = std::min(0.0, lean);
    const double right = place.width + std::max(0.0, lean);
    return {corner(left, place.bottom), corner(right, place.bottom), corner(right, place.top),
            corner(left, place.top)};
  }
  const double lean = slant * place.top;
  return {corner(0, 0), corner(place.width, 0), corner(place.width + lean, place.top),
          corner(lean, place.top)};
}

}  // namespace kovra::arx
