#pragma once

#include <memory>

#include "module/frame/seam.h"
#include "module/propedit/resize_entity.h"

namespace kovra {

/// The modeless dialog of Resize text. Its handlers never touch the drawing: a button stores what
/// is to be done in ResizeRequest and sends the command into the drawing, whose next pass does it.
/// The dialog lives until it is cancelled or its drawing is closed, and deletes itself then.
/// Meanwhile no other drawing can be activated.
class CResizeDlg : public CAcUiDialog {
 public:
  DECLARE_DYNAMIC(CResizeDlg)

  explicit CResizeDlg(CWnd* parent);
  ~CResizeDlg() override;

  /// Makes the window, hidden. False when it can't be made; the object is then still the caller's.
  bool Open(CWnd* parent);

  /// Takes the entity over, with its height into the field.
  void SetEntity(const ResizeEntity& entity);
  /// The fields into the controls.
  void ShowFields() { UpdateData(FALSE); }
  void UpdateResizeButtons();
  /// Shows the dialog unless it is visible.
  void ShowDialog();
  void FocusHeightField();

  double TextHeight = 2.0;  ///< drawing units
  double TxtStp = 0.5;      ///< what a press of the arrows adds
  ResizeEntity Entity;
  int ResizeRequest = 0;  ///< what the next pass does

 protected:
  void DoDataExchange(CDataExchange* exchange) override;
  BOOL PreTranslateMessage(MSG* message) override;
  void PostNcDestroy() override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

  LRESULT OnKeepFocus(WPARAM wParam, LPARAM lParam);
  LRESULT OnDrawingClosed(WPARAM wParam, LPARAM lParam);
  void OnDestroy();
  void OnSelectClicked();
  void OnMoveClicked();
  void OnHeightChanged();
  void OnSpin(NMHDR* notification, LRESULT* refused);
  DECLARE_MESSAGE_MAP()

 private:
  class DocReactor;

  CSpinButtonCtrl* spin() const;
  bool holdsCursor() const;
  void loadState();
  void saveState();
  /// The next pass, in the drawing.
  void request(int what);

  std::unique_ptr<DocReactor> docReactor_;
};

/// The open dialog; null without one. Whoever waits for the user asks again afterwards.
CResizeDlg* OpenResizeDlg();

}  // namespace kovra
