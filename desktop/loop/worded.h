// Texts of the desktop's own in the language of this run.
#pragma once
#include <QString>

#include "platform/win/base/run_settings.h"

namespace kovra::desktop {

/// A text in UTF-8 in both languages.
struct Worded {
  const char* english;
  const char* japanese;

  QString text() const {
    const bool inJapanese = win::runSettings().language == win::Language::japanese;
    return QString::fromUtf8(inJapanese ? japanese : english);
  }
};

}  // namespace kovra::desktop
