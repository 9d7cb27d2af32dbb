#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// A control of a template; its place is in dialog units.
struct TemplateItem {
  DWORD style = 0;
  DWORD exStyle = 0;
  RECT place{};
  int id = 0;
  std::wstring className;
  std::wstring text;
  unsigned resourceId = 0;  ///< of an icon that stands in place of the text; 0: the text counts
};

struct DialogTemplate {
  unsigned id = 0;
  DWORD style = 0;
  DWORD exStyle = 0;
  RECT place{};
  std::wstring title;
  int pointSize = 8;  ///< of the dialog's font
  std::wstring fontFace;
  std::vector<TemplateItem> items;
};

/// Reads a compiled template, of the older or the extended form. Nothing when it is damaged.
std::optional<DialogTemplate> parseDialogTemplate(std::span<const std::byte> bytes);

/// The template of a module; nothing when there is none.
std::optional<DialogTemplate> loadDialogTemplate(HINSTANCE module, unsigned id);

/// Pixels of four horizontal and of eight vertical dialog units, by the size of the dialog's font.
/// Fixed for each size, so that layouts don't depend on the fonts of a machine: 8 points give 6 by
/// 13, 9 points 7 by 15.
SIZE dialogBaseUnits(int pointSize);
RECT dialogUnitsToPixels(RECT units, SIZE base);

}  // namespace kovra::win
