#include "module/propedit/text_property_set.h"

#include "module/drawing/number_text.h"

namespace kovra {

void NumberText::set(const ACHAR* text) {
  text_ = text != nullptr ? text : L"";
  value_ = _wtof(text_.GetString());
}

void NumberText::set(double value) {
  set(value, DecimalText(value));
}

void NumberText::set(double value, const CString& text) {
  text_ = text;
  value_ = value;
}

void TextPropertySet::takeHorizontalMode(int mode) {
  constexpr int kMiddle = 4;
  if ((mode >= 0 && mode <= 2) || mode == kMiddle) HorizontalMode = mode;
}

void TextPropertySet::takeVerticalMode(int mode) {
  constexpr int kTop = 3;
  if (mode >= 0 && mode <= kTop) VerticalMode = mode;
}

}  // namespace kovra
