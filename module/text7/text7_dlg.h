#pragma once

#include <array>
#include <memory>

#include "module/countup/array_buttons.h"
#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/seam.h"
#include "module/text7/adopt_style.h"
#include "module/textcmd/text_settings.h"
#include "module/textcmd/txt_dlg_doc_reactor.h"

namespace kovra {

/// The modeless dialog of the Text command from data version "7.00" on. Its handlers never draw: a
/// button stores what is to be done in PendingAction and sends the Text command into the drawing,
/// whose entry RunText7Command carries it out. The dialog lives until it is cancelled and deletes
/// itself then.
class CText7Dlg : public CAcUiDialog, public AdoptTextStyleWithButton {
 public:
  DECLARE_DYNAMIC(CText7Dlg)

  /// The template follows the data version of the current project.
  explicit CText7Dlg(CWnd* parent);
  ~CText7Dlg() override;
  BOOL DestroyWindow() override;

  /// Makes the window, shows it and puts the focus on the value. False when it can't be made; the
  /// object is then still the caller's.
  bool Open(CWnd* parent);

  /// Focus and selection on the field that holds the value.
  void FocusValueField();
  /// The fields from the controls.
  void CollectFields();
  /// Enables OK if everything that a placement needs is there, and brings along what follows from
  /// the fields. 1 if OK is enabled.
  int UpdateOkState();
  /// Lets the tips of the icon buttons show.
  void ActivateToolTip() { Buttons.ActivateTips(); }
  /// A number as the fields show it.
  CString NumberText(double number);

  /// What the next run of the command does: kNoAction, kPlaceAction, or the id of the pick button
  /// that was pressed.
  int PendingAction = 0;
  int Radio = 0;                     ///< mode: 0 one placement, 1 repeated, 2 an array
  bool CountUp = false;              ///< counts the value from text to text
  int Radix = 1;                     ///< row of RadixTable
  std::array<CString, 4> TextValue;  ///< the value, then prefix, number and suffix
  int CountUpStep = 1;               ///< a text, in decimal
  int Direction = 0;                 ///< filling order of an array
  int Rows = 4;
  int Cols = 4;
  double RowHeight = 1.0;  ///< before DrawingScale
  double ColWidth = 1.0;   ///< before DrawingScale
  bool MultiLine = false;  ///< the value is a text of several lines
  CString MultiLineText;

  /// Whether values are counted: never in the single mode.
  bool CountsValues() const { return CountUp && Radio != 0; }

 protected:
  BOOL PreTranslateMessage(MSG* message) override;
  void PostNcDestroy() override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

  bool IsAvailable() override;
  CWnd* GetDialog() override;

  LRESULT OnKeepFocus(WPARAM wParam, LPARAM lParam);
  LRESULT OnCheckRequested(WPARAM wParam, LPARAM lParam);
  LRESULT OnSetInteractive(WPARAM enable, LPARAM lParam);
  void OnGetMinMaxInfo(MINMAXINFO* limits);
  void OnSize(UINT type, int width, int height);
  void OnPaint();
  LRESULT OnNcHitTest(CPoint point);

  void OnCountUpClicked();
  void OnAdoptClicked();
  void ModeChanged(UINT id);
  void OnDirectionClicked(UINT id);
  void RequestCheck(UINT id);
  void OnPropertyChosen(UINT id);
  void CleanField(UINT id);
  void RadixChanged();
  void StepFieldChanged(UINT id);
  void OnPickClicked(UINT id);
  void OnStepModeClicked(UINT id);
  DECLARE_MESSAGE_MAP()

 private:
  /// Why OK does nothing.
  struct Refusal {
    UINT message = 0;  ///< 0: it isn't refused
    int focus = 0;     ///< field to be mended; 0: none
  };

  CText7Dlg(CWnd* parent, UINT templateId);

  // Start.
  void recordLayout();
  void fillLists();
  void showSettings();
  void showNumber(int comboId, double number);
  void showFields();
  void detachInputMethod();

  // Stored state.
  void loadFields();
  void loadAdoption(const DialogStateStore& store);
  void saveSettings();
  void saveFields();

  // Controls.
  bool offersRadixStep() const;
  bool offersLines() const;
  bool recomputeMultiLine();
  void UpdateControls();
  void UpdateRadixControls();
  void SetInteractive(bool enable);
  void syncStep(bool fromRadix);

  // What OK needs.
  bool chosenLayerIsLocked() const;
  bool layerCanBe() const;
  void followFixedHeight();
  void followLines(const CString& value);
  CString presentValue() const;
  bool propertiesAreGiven() const;
  bool distancesAreGiven() const;
  bool countsAreValid() const;
  Refusal firstRefusal();

  // Layout.
  void ShowArraySection(bool show);
  void LayoutControls();
  int heightWithoutArray() const;
  void setWindowSize(int width, int height);
  int windowHeight() const;

  AcApDocument* Document = nullptr;  // the current one when the dialog started
  std::unique_ptr<TxtDlgDocReactor> DocReactor;
  ArrayButtons Buttons;
  CRect FullRect;         // of the window at the start, with the array section
  int ButtonsTop = 0;     // of OK at the start, in the client area
  int FrameHeight = 0;    // of the frame around the lines at the start
  int LinesHeight = 0;    // of the field in it
  CRect GripRect;         // in the client area
  int CompactHeight = 0;  // of the window without the array section; 0 until it is measured
  int ChngblHeight = 0;   // of the window in the single mode
  UINT TemplateId;
  int RadixMode = 0;  // 0: the step is typed in decimal, 26: in the numbering system
};

/// The open dialog; null without one. Whoever waits for the user asks again afterwards.
CText7Dlg* OpenText7Dlg();

/// Drawing units for a length of 1 on paper, set anew at each start of the dialog.
extern double DrawingScale;

}  // namespace kovra
