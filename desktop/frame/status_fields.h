// The fields of the status bar.
#pragma once
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QStatusBar;
class QToolButton;

namespace kovra::desktop {

/// Coordinates of the cursor in the UCS, the current layer, the scale of dimensions, and switches
/// of modes, of the current drawing.
class StatusFields {
 public:
  explicit StatusFields(QStatusBar& bar);
  void refresh();
  /// Turns a mode such as ORTHOMODE off or on; lays that ready.
  void toggle(const wchar_t* variable);

 private:
  struct Switch {
    QToolButton* button;
    const wchar_t* variable;
  };
  void showLayers(const std::vector<std::wstring>& layers, const std::wstring& current);

  QLabel* coordinates_ = nullptr;
  QLabel* scale_ = nullptr;
  QComboBox* layers_ = nullptr;
  std::vector<Switch> switches_;
  std::vector<std::wstring> shownLayers_;
};

}  // namespace kovra::desktop
