// What texts need of their styles, for every measuring.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/dxf/structure.h"

namespace kovra::arx {

struct TextStyleInfo {
  bool vertical = false;
  double fixedHeight = 0;  ///< 0 for none
  double widthFactor = 1;
  double oblique = 0;  ///< radians
};

/// The text styles of a drawing by name, collected again after a style changed.
class TextStyles {
 public:
  TextStyles(const dxf::RecordStore& store, const dxf::Structure& structure)
      : store_(store), structure_(structure) {}

  /// The platform's defaults for a style that the table lacks.
  TextStyleInfo find(std::wstring_view name) const;
  /// The same by the name's bytes in the drawing.
  TextStyleInfo findBytes(std::string_view name) const;
  void stylesChanged() {
    known_ = false;
    last_.reset();
    lastOfBytes_.reset();
  }

 private:
  void collect() const;

  const dxf::RecordStore& store_;
  const dxf::Structure& structure_;
  mutable std::unordered_map<std::wstring, TextStyleInfo> styles_;  ///< by folded name
  mutable bool known_ = false;
  /// Texts mostly have the style of the text before them.
  mutable std::wstring lastName_;
  mutable std::optional<TextStyleInfo> last_;
  mutable std::string lastBytes_;
  mutable std::optional<TextStyleInfo> lastOfBytes_;
};

}  // namespace kovra::arx
