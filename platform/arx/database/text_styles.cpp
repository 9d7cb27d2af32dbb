#include "platform/arx/database/text_styles.h"

#include <numbers>

#include "platform/arx/base/table_flags.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

TextStyleInfo TextStyles::find(std::wstring_view name) const {
  if (!last_ || lastName_ != name) {
    if (!known_) collect();
    const auto found = styles_.find(dxf::foldCase(name));
    last_ = found != styles_.end() ? found->second : TextStyleInfo();
    lastName_ = name;
  }
  return *last_;
}

TextStyleInfo TextStyles::findBytes(std::string_view name) const {
  if (!lastOfBytes_ || lastBytes_ != name) {
    lastOfBytes_ = find(store_.codec().decode(name));
    lastBytes_ = name;
  }
  return *lastOfBytes_;
}

void TextStyles::collect() const {
  styles_.clear();
  dxf::RecordDraft draft;
  for (dxf::RecordIndex entry = structure_.firstEntry(dxf::TableKind::kStyle);
       entry != dxf::kNoRecord; entry = structure_.nextEntry(entry)) {
    store_.load(entry, draft);
    TextStyleInfo info;
    info.vertical = (readInteger(draft, {kStylePart, 70}, 0) & kStyleVertical) != 0;
    info.fixedHeight = readReal(draft, {kStylePart, 40}, 0);
    info.widthFactor = readReal(draft, {kStylePart, 41}, 1);
    info.oblique = readReal(draft, {kStylePart, 50}, 0) * std::numbers::pi / 180;
    styles_.try_emplace(dxf::foldCase(structure_.entryName(entry)), info);
  }
  known_ = true;
}

}  // namespace kovra::arx
