// The fields of the status bar.
#pragma once
#include <QString>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QStatusBar;
class QToolButton;

namespace kovra::desktop {

class DrawingView;

/// Coordinates of the cursor in the UCS, the current layer, the scale of dimensions, and switches
/// of modes, of the current drawing.
class StatusFields {
 public:
  StatusFields(QStatusBar& bar, DrawingView& view);
  void refresh();
  /// Turns a mode such as ORTHOMODE off or on; lays that ready.
  void toggle(const wchar_t* variable);

 private:
  struct Switch {
    QToolButton* button;
    const wchar_t* variable;
  };
  QToolButton* addSwitch(QStatusBar& bar, const QString& text);
  void showLayers(const std::vector<std::wstring>& layers);

  DrawingView& view_;
  QToolButton* snaps_ = nullptr;
  QLabel* coordinates_ = nullptr;
  QLabel* scale_ = nullptr;
  QComboBox* layers_ = nullptr;
  std::vector<Switch> switches_;
  std::vector<std::wstring> shownLayers_;
  std::wstring shownState_;
};

}  // namespace kovra::desktop
