#include "module/text7/adopt_style.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "module/drawing/number_text.h"
#include "module/drawing/text_styles.h"
#include "module/frame/dialog_items.h"

namespace kovra {
namespace {

double fixedHeight(const ACHAR* style) {
  return TextStyleValue(style, 0.0, &AcDbTextStyleTableRecord::textSize);
}

double widthFactor(const ACHAR* style) {
  return TextStyleValue(style, 0.0, &AcDbTextStyleTableRecord::xScale);
}

double savedOr(const CString& saved, double value) {
  if (saved.IsEmpty()) return value;
  wchar_t* end = nullptr;
  const double number = std::wcstod(saved.GetString(), &end);
  return *end == ACHAR{} && std::isfinite(number) ? number : 0.0;
}

}  // namespace

bool AdoptTextStyle::AdoptHeight(CWnd& field) {
  const double height = fixedHeight(StyleName().GetString());
  if (height == 0.0) return false;
  return show(field, HeightComboId, SavedHeight, height);
}

bool AdoptTextStyle::AdoptWidth(CWnd& field) {
  if (!IsAdoptChecked()) return false;
  return show(field, WidthComboId, SavedWidth, widthFactor(StyleName().GetString()));
}

bool AdoptTextStyle::ReleaseHeight(CWnd& field) {
  if (HasFixedHeight(StyleName().GetString())) return false;
  return release(field, HeightComboId, SavedHeight);
}

bool AdoptTextStyle::ReleaseWidth(CWnd& field) {
  if (IsAdoptChecked()) return false;
  return release(field, WidthComboId, SavedWidth);
}

void AdoptTextStyle::FormatNumber(CString& text, double value) {
  text = FormatDistance(value);
}

CString AdoptTextStyle::StyleName() {
  return ComboText(*GetDialog(), StyleComboId);
}

bool AdoptTextStyle::IsAdoptChecked() {
  return IsAvailable() && IsItemChecked(*GetDialog(), AdoptCheckId);
}

void AdoptTextStyle::ApplyAdoption(bool adopt) {
  if (!IsAvailable()) return;
  CWnd* height = GetDialog()->GetDlgItem(HeightComboId);
  CWnd* width = GetDialog()->GetDlgItem(WidthComboId);
  if (adopt) {
    if (height != nullptr) AdoptHeight(*height);
    if (width != nullptr) AdoptWidth(*width);
  } else {
    if (height != nullptr) ReleaseHeight(*height);
    if (width != nullptr) ReleaseWidth(*width);
  }
}

bool AdoptTextStyle::HasFixedHeight(const ACHAR* style) {
  return fixedHeight(style) != 0.0;
}

double AdoptTextStyle::StoredHeight(double value) const {
  return savedOr(SavedHeight, value);
}

double AdoptTextStyle::StoredWidth(double value) const {
  return savedOr(SavedWidth, value);
}

bool AdoptTextStyle::StyleListed(const ACHAR* name) {
  return FindComboItem(*GetDialog(), StyleComboId, name) >= 0;
}

bool AdoptTextStyle::SelectStyle(const ACHAR* name) {
  return SelectComboItem(*GetDialog(), StyleComboId, name);
}

void AdoptTextStyle::FormatNumberTo(ACHAR* buffer, double value) {
  CString text;
  FormatNumber(text, value);
  *std::copy_n(text.GetString(), text.GetLength(), buffer) = ACHAR{};
}

bool AdoptTextStyle::isFree(int fieldId) {
  return IsItemEnabled(*GetDialog(), fieldId);
}

/// A locked field holds a style's value already: the user's is saved by the first adoption only.
bool AdoptTextStyle::show(CWnd& field, int fieldId, CString& saved, double value) {
  if (isFree(fieldId) && saved.IsEmpty()) field.GetWindowText(saved);
  CString text;
  FormatNumber(text, value);
  field.SetWindowText(text.GetString());
  field.EnableWindow(FALSE);
  return true;
}

bool AdoptTextStyle::release(CWnd& field, int fieldId, CString& saved) {
  if (isFree(fieldId)) return false;
  if (!saved.IsEmpty()) {
    field.SetWindowText(saved.GetString());
    saved.Empty();
  }
  field.EnableWindow(TRUE);
  return true;
}

bool AdoptTextStyleWithButton::AdoptHeight(CWnd& field) {
  const bool adopted = AdoptTextStyle::AdoptHeight(field);
  if (adopted) EnableItem(*GetDialog(), HeightButtonId, false);
  return adopted;
}

bool AdoptTextStyleWithButton::AdoptWidth(CWnd& field) {
  const bool adopted = AdoptTextStyle::AdoptWidth(field);
  if (adopted) EnableItem(*GetDialog(), WidthButtonId, false);
  return adopted;
}

bool AdoptTextStyleWithButton::ReleaseHeight(CWnd& field) {
  const bool released = AdoptTextStyle::ReleaseHeight(field);
  if (released) EnableItem(*GetDialog(), HeightButtonId, true);
  return released;
}

bool AdoptTextStyleWithButton::ReleaseWidth(CWnd& field) {
  const bool released = AdoptTextStyle::ReleaseWidth(field);
  if (released) EnableItem(*GetDialog(), WidthButtonId, true);
  return released;
}

void CollectStyleName(void* list, AcDbTextStyleTableRecord* style) {
  const ACHAR* name = nullptr;
  const bool known = style->getName(name) == Acad::eOk && name != nullptr;
  static_cast<std::vector<CString>*>(list)->emplace_back(known ? name : L"");
}

}  // namespace kovra
