#include "module/drawing/text_styles.h"

#include <algorithm>
#include <string_view>

#include "module/drawing/symbol_tables.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

// No style has a longer one, whatever a file says.
constexpr std::size_t kLongestStyleName = 255;

using StyleRecord = CRecord<AcDbTextStyleTableRecord>;
using StyleIterator = CTableIterator<AcDbTextStyleTableIterator, AcDbTextStyleTableRecord>;

/// Appends the name of the style that the iterator stands on.
int addStyleName(const StyleIterator& styles, TextList& names) {
  AcDbTextStyleTableRecord* opened = nullptr;
  const Acad::ErrorStatus openStatus = styles->getRecord(opened, AcDb::kForRead);
  if (openStatus != Acad::eOk) {
    TraceError(L"GTxtStyL error getRecord <%d>", static_cast<int>(openStatus));
    return -1;
  }
  StyleRecord style;
  style.attach(opened);
  const ACHAR* name = nullptr;
  const Acad::ErrorStatus nameStatus = style->getName(name);
  if (nameStatus != Acad::eOk || name == nullptr) {
    TraceError(L"GTxtStyL error getName <%d>", static_cast<int>(nameStatus));
    return -1;
  }
  if (name[0] != ACHAR{}) TextListAdd(names, name);
  return 0;
}

}  // namespace

int GTxtStyId(const ACHAR* name, AcDbObjectId& id) {
  const TextStyleTable table;
  AcDbObjectId found;
  if (!table.isOpen() || table->getIdAt(name, found) != Acad::eOk) {
    TraceError(L"GTxtSty error has");
    return -1;
  }
  if (table->getIdAt(name, id) != Acad::eOk) {
    TraceError(L"GTxtSty error getAt");
    return -1;
  }
  return 0;
}

int GTxtStyName(const AcDbObjectId& id, ACHAR* buffer) {
  buffer[0] = ACHAR{};
  AcDbTextStyleTableRecord* opened = nullptr;
  const Acad::ErrorStatus openStatus = acdbOpenObject(opened, id, AcDb::kForRead);
  if (openStatus != Acad::eOk) {
    TraceError(L"GTxtSty error acdbOpenObject <%d>", static_cast<int>(openStatus));
    return -1;
  }
  StyleRecord style;
  style.attach(opened);
  const ACHAR* name = nullptr;
  const Acad::ErrorStatus nameStatus = style->getName(name);
  if (nameStatus != Acad::eOk || name == nullptr) {
    TraceError(L"GTxtSty error getName <%d>", static_cast<int>(nameStatus));
    return -1;
  }
  const std::wstring_view text = name;
  if (text.size() > kLongestStyleName) return -1;
  *std::copy(text.begin(), text.end(), buffer) = ACHAR{};
  return 0;
}

int GTxtStyL(TextList& names) {
  const TextStyleTable table;
  StyleIterator styles;
  if (!table.newIterator(styles)) return -1;
  int result = 0;
  for (styles->start(); !styles->done(); styles->step()) {
    if (addStyleName(styles, names) != 0) result = -1;
  }
  return result;
}

double TextStyleValue(const ACHAR* name, double fallback, TextStyleAccessor accessor) {
  const TextStyleTable table;
  StyleRecord style;
  if (!table.openRecord(style, name, AcDb::kForRead)) return fallback;
  return (style.get()->*accessor)();
}

bool IsVerticalStyle(const ACHAR* name) {
  const TextStyleTable table;
  StyleRecord style;
  return table.openRecord(style, name, AcDb::kForRead) && style->isVertical();
}

bool ForEachTextStyle(void* context, TextStyleCallback callback) {
  StyleIterator styles;  // outlives the table
  const TextStyleTable table;
  if (!table.newIterator(styles)) return table.isOpen();
  for (styles->start(); !styles->done(); styles->step()) {
    StyleRecord style;
    if (styles.openRecord(style)) callback(context, style.get());
  }
  return true;
}

}  // namespace kovra
