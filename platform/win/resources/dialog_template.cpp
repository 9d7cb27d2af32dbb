#include "platform/win/resources/dialog_template.h"

#include "platform/win/base/messages.h"
#include "platform/win/resources/resource_file.h"
#include "platform/win/resources/resources.h"

namespace kovra::win {
namespace {

/// A class, menu or text that is either a number behind 0xFFFF or characters.
struct NameOrNumber {
  std::wstring name;
  unsigned number = 0;
};

NameOrNumber readNameOrNumber(ByteReader& reader) {
  ByteReader ahead = reader;
  NameOrNumber result;
  if (ahead.u16() == 0xFFFF) {
    result.number = ahead.u16();
    reader = ahead;
  } else {
    result.name = reader.text();
  }
  return result;
}

RECT readPlace(ByteReader& reader) {
  RECT place{};
  place.left = reader.i16();
  place.top = reader.i16();
  place.right = place.left + reader.i16();
  place.bottom = place.top + reader.i16();
  return place;
}

/// Classes that templates name by number.
std::wstring classOf(const NameOrNumber& read) {
  switch (read.number) {
    case 0x80:
      return L"BUTTON";
    case 0x81:
      return L"EDIT";
    case 0x82:
      return L"STATIC";
    case 0x83:
      return L"LISTBOX";
    case 0x84:
      return L"SCROLLBAR";
    case 0x85:
      return L"COMBOBOX";
    default:
      return read.name;
  }
}

TemplateItem readItem(ByteReader& reader, bool extended) {
  TemplateItem item;
  reader.align4();
  if (extended) {
    reader.skip(4);  // help id
    item.exStyle = reader.u32();
    item.style = reader.u32();
  } else {
    item.style = reader.u32();
    item.exStyle = reader.u32();
  }
  item.place = readPlace(reader);
  item.id = extended ? static_cast<int>(reader.u32()) : reader.i16();
  item.className = classOf(readNameOrNumber(reader));
  const NameOrNumber text = readNameOrNumber(reader);
  item.text = text.name;
  item.resourceId = text.number;
  const unsigned extra = reader.u16();
  // The older form counts the two bytes of the count itself.
  reader.skip(extended || extra < 2 ? extra : extra - 2);
  return item;
}

void readFont(ByteReader& reader, bool extended, DialogTemplate& dialog) {
  if ((dialog.style & DS_SETFONT) == 0) return;
  dialog.pointSize = static_cast<int>(reader.u16());
  if (extended) reader.skip(4);  // weight, italic, character set
  dialog.fontFace = reader.text();
}

}  // namespace

std::optional<DialogTemplate> parseDialogTemplate(std::span<const std::byte> bytes) {
  DialogTemplate dialog;
  ByteReader reader(bytes);
  ByteReader ahead = reader;
  const bool extended = ahead.u16() == 1 && ahead.u16() == 0xFFFF;
  if (extended) {
    reader.skip(8);  // version, mark, help id
    dialog.exStyle = reader.u32();
    dialog.style = reader.u32();
  } else {
    dialog.style = reader.u32();
    dialog.exStyle = reader.u32();
  }
  const unsigned count = reader.u16();
  dialog.place = readPlace(reader);
  readNameOrNumber(reader);  // menu
  readNameOrNumber(reader);  // class
  dialog.title = readNameOrNumber(reader).name;
  readFont(reader, extended, dialog);
  for (unsigned i = 0; i < count && !reader.failed(); ++i) {
    dialog.items.push_back(readItem(reader, extended));
  }
  if (reader.failed()) return std::nullopt;
  return dialog;
}

std::optional<DialogTemplate> loadDialogTemplate(HINSTANCE module, unsigned id) {
  const auto bytes = findResource(module, ResourceType::dialog, id);
  auto dialog = parseDialogTemplate(bytes);
  if (dialog) dialog->id = id;
  return dialog;
}

SIZE dialogBaseUnits(int pointSize) {
  // Average width and height of a dialog font at 96 dots an inch: about 3/4 and 13/8 of its points.
  return {(pointSize * 3 + 2) / 4, (pointSize * 13 + 4) / 8};
}

RECT dialogUnitsToPixels(RECT units, SIZE base) {
  const auto scaled = [](LONG value, LONG factor, LONG divisor) {
    const LONG product = value * factor;
    return (product + (product < 0 ? -divisor : divisor) / 2) / divisor;
  };
  return {scaled(units.left, base.cx, 4), scaled(units.top, base.cy, 8),
          scaled(units.right, base.cx, 4), scaled(units.bottom, base.cy, 8)};
}

}  // namespace kovra::win
