// Texts between the platform and Qt.
#pragma once
#include <QString>
#include <string>
#include <string_view>

namespace kovra::desktop {

inline QString toQt(std::wstring_view text) {
  return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::wstring fromQt(const QString& text) {
  return text.toStdWString();
}

}  // namespace kovra::desktop
