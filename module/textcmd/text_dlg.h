#pragma once

#include <memory>

#include "module/drawing/text_list.h"
#include "module/frame/seam.h"
#include "module/textcmd/txt_dlg_doc_reactor.h"

namespace kovra {

/// The modeless dialog beside the drawing while the Text command runs below data version "7.00". It
/// is the record of the next text: the command writes its fields and has them shown, its controls
/// write them and change the text that is dragged. What needs the command line it asks for by a
/// request line, which the prompt in progress reads. Nothing but the command closes it.
class CTextDlg : public CAcUiDialog {
  DECLARE_DYNAMIC(CTextDlg)
 public:
  explicit CTextDlg(CWnd* parent);
  ~CTextDlg() override;
  /// Notes place and layer in the fields first.
  BOOL DestroyWindow() override;

  /// Name of the layer that LayerIndex stands for: the current one for the list's last item, and
  /// for an index outside the list.
  CString LayerName() const;
  /// The same for the preview, which can only lie on a layer that the drawing has.
  AcDbObjectId PreviewLayer() const;

  CString StyleName;
  int WindowX = 0;  ///< left and top in pixels of the screen
  int WindowY = 0;
  TextList LayerList;  ///< the last item stands for the current layer
  TextList HeightList;
  TextList WidthList;
  TextList RotationList;
  AcDbText* Preview = nullptr;  ///< the command's; null until it has made it
  int LayerIndex = 0;           ///< selected item of the layer list
  CString LayerText;            ///< noted when the window ends, at most kLayerTextLimit characters
  double PaperHeight = 0;       ///< before Scale
  double WidthFactor = 0;
  double RotationDegrees = 0;
  double Scale = 1;                  ///< drawing units for a height of 1 on paper
  int AttachCode = 0;                ///< see AttachCodes
  AcApDocument* Document = nullptr;  ///< the current one when the dialog was made

 protected:
  static constexpr int kLayerTextLimit = 256;

  void DoDataExchange(CDataExchange* exchange) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

  void OnShowWindow(BOOL show, UINT status);
  void OnSysCommand(UINT command, LPARAM lParam);
  LRESULT OnKeepFocus(WPARAM wParam, LPARAM lParam);
  LRESULT OnSetInteractive(WPARAM enable, LPARAM lParam);
  void OnRequestClicked(UINT id);
  void FieldEntered(UINT id);
  void FieldLeft(UINT id);
  void ItemChosen(UINT id);
  void StyleChosen();
  void AttachmentChosen();
  void LayerChanged();
  DECLARE_MESSAGE_MAP()

 private:
  void keepOnScreen();
  void fillLists();
  /// False when the styles can't be read.
  bool fillStyles();
  void showModel();
  void UpdateLayerOk();

  HWND fieldOf(UINT id) const;
  bool applyNumber(UINT id, double value);
  /// Types a request into the current document, in place of what stands on its command line.
  void SendDialogRequest(int request);

  std::unique_ptr<TxtDlgDocReactor> TextDlgReactor;
  bool FieldEditing = false;        ///< a text field was entered and isn't accepted yet
  bool InputMethodWasOpen = false;  ///< when that field was entered
};

}  // namespace kovra
