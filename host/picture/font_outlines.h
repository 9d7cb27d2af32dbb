#pragma once

#include <memory>
#include <string_view>

#include "host/picture/path.h"

namespace kovra::host {

/// Outlines of texts (UTF-8, one line) in a font of kSize pixels.
class FontOutlines {
 public:
  static constexpr double kSize = 100;

  /// Names of font families, the best one first; what they lack comes from the machine's others.
  explicit FontOutlines(const char* families);
  ~FontOutlines();
  FontOutlines(const FontOutlines&) = delete;
  FontOutlines& operator=(const FontOutlines&) = delete;

  /// From the left end of the base line, y down. What no font has is a box.
  Path outline(std::string_view text);
  double advance(std::string_view text);

 private:
  struct Pango;

  void set(std::string_view text);

  std::unique_ptr<Pango> pango_;
};

bool isLetter(char32_t character);

}  // namespace kovra::host
