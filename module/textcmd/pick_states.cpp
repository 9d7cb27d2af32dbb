#include "module/textcmd/pick_states.h"

#include <algorithm>

#include "module/drawing/angles.h"
#include "module/drawing/attachment.h"
#include "module/drawing/group_list.h"
#include "module/drawing/nested_text.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_styles.h"
#include "module/frame/reporting.h"
#include "module/textcmd/entity_jig.h"
#include "module/textcmd/text_states.h"

namespace kovra {
namespace {

constexpr std::uint32_t kStillAsking = static_cast<std::uint32_t>(-1);

// What a state adopts.
constexpr unsigned kStyle = 1;
constexpr unsigned kHeight = 2;
constexpr unsigned kWidthFactor = 4;
constexpr unsigned kRotation = 8;
constexpr unsigned kAttachment = 16;

struct PickState {
  std::uint32_t state;
  UINT prompt;
  unsigned adopts;
};
constexpr PickState kPickStates[] = {
    {3, 2724, kStyle},       {4, 2725, kHeight},
    {5, 2726, kWidthFactor}, {6, 2727, kRotation},
    {7, 2728, kAttachment},  {8, 2729, kStyle | kHeight | kWidthFactor | kRotation | kAttachment},
};

/// What a text that was picked gives, as it looks in the drawing.
struct PickedText {
  AcDbObjectId style;
  double height = 0;    ///< drawing units
  double rotation = 0;  ///< radians
  double widthFactor = 1;
  AcDb::TextHorzMode horizontal = AcDb::kTextLeft;
  AcDb::TextVertMode vertical = AcDb::kTextBase;
  int attachCode = 0;

  /// Aligned and fitted texts have an attachment that no new text can have.
  bool attachmentIsUsable() const { return AttachIndex(attachCode) >= 0; }
};

PickedText readText(const AcDbText& text, const ads_matrix matrix) {
  PickedText picked;
  picked.style = text.textStyle();
  picked.height = text.height();
  picked.rotation = text.rotation();
  TransformHeightAndAngle(&picked.height, picked.rotation, matrix);
  picked.widthFactor = text.widthFactor();
  picked.horizontal = text.horizontalMode();
  picked.vertical = text.verticalMode();
  picked.attachCode = ModesToAttachCode(picked.horizontal, picked.vertical);
  return picked;
}

/// The text at a point of the UCS; false when there is none.
bool pickText(ads_point point, PickedText& picked) {
  ads_name entity = {};
  ads_matrix matrix = {};
  resbuf* containers = nullptr;
  const int found = acedNEntSelP(nullptr, entity, point, 1, matrix, &containers);
  const GroupList released(containers);
  AcDbObjectId id;
  if (found != RTNORM || acdbGetObjectId(id, entity) != Acad::eOk) return false;
  AcDbText* text = nullptr;
  if (acdbOpenObject(text, id, AcDb::kForRead) != Acad::eOk) return false;
  picked = readText(*text, matrix);
  text->close();
  return true;
}

/// A text may name a style that the drawing lacks; then there is nothing to adopt.
void adoptStyle(CTextDlg& dialog, const AcDbObjectId& style) {
  ACHAR name[256] = L"";
  if (GTxtStyName(style, name) != 0) return;
  TextPreview->setTextStyle(style);
  dialog.StyleName = name;
}

void adoptHeight(CTextDlg& dialog, double height) {
  if (TextPreview->setHeight(height) == Acad::eOk) dialog.PaperHeight = height / dialog.Scale;
}

void adoptWidthFactor(CTextDlg& dialog, double factor) {
  if (TextPreview->setWidthFactor(factor) == Acad::eOk) dialog.WidthFactor = factor;
}

void adopt(CTextDlg& dialog, unsigned adopts, const PickedText& picked) {
  if ((adopts & kStyle) != 0) adoptStyle(dialog, picked.style);
  if ((adopts & kHeight) != 0) adoptHeight(dialog, picked.height);
  if ((adopts & kWidthFactor) != 0) adoptWidthFactor(dialog, picked.widthFactor);
  if ((adopts & kRotation) != 0) {
    TextPreview->setRotation(picked.rotation);
    dialog.RotationDegrees = DegreesOf(picked.rotation);
  }
  if ((adopts & kAttachment) != 0 && picked.attachmentIsUsable()) {
    TextPreview->setHorizontalMode(picked.horizontal);
    TextPreview->setVerticalMode(picked.vertical);
    dialog.AttachCode = picked.attachCode;
  }
}

/// Asks for a point with the pick cursor, without the preview and without snaps. As
/// GetInsertPoint.
int askPlace(UINT prompt, ads_point point, int& request) {
  TextPreview->setVisibility(AcDb::kInvisible);
  int snap = 0;
  int objectSnap = 0;
  GetVar(L"SNAPMODE", snap);
  GetVar(L"OSMODE", objectSnap);
  SetVar(L"SNAPMODE", 0);
  SetVar(L"OSMODE", 0);
  const CString text = ResourceText(prompt);
  const int result = GetInsertPoint(text.GetString(), point, request, kEntitySelectCursor);
  SetVar(L"SNAPMODE", snap);
  SetVar(L"OSMODE", objectSnap);
  TextPreview->setVisibility(AcDb::kVisible);
  return result;
}

/// False when nothing was picked, or a text that doesn't have what is adopted.
bool adoptFrom(TextRun& run, const PickState& state, ads_point point) {
  PickedText picked;
  if (!pickText(point, picked)) return false;
  if (state.adopts == kAttachment && !picked.attachmentIsUsable()) return false;
  adopt(*run.TextDialog, state.adopts, picked);
  run.TextDialog->ShowWindow(SW_SHOWNA);
  return true;
}

void pickOnce(TextRun& run, const PickState& state) {
  ads_point point = {};
  int request = 0;
  switch (askPlace(state.prompt, point, request)) {
    case 0:
      if (adoptFrom(run, state, point)) run.TextState = run.TextReturnState;
      break;
    case 1:
      run.TextState = run.TextReturnState;
      break;
    case 2:
      run.TextState = StateOfRequest(request, run.TextReturnState);
      break;
    default:
      TraceError(L"Text error GetPointObj");
      run.TextState = run.TextReturnState;
  }
}

}  // namespace

int RunPickState(TextRun& run) {
  const auto* row =
      std::find_if(std::begin(kPickStates), std::end(kPickStates),
                   [&](const PickState& each) { return each.state == run.TextState; });
  run.TextState = kStillAsking;
  while (run.TextState == kStillAsking) pickOnce(run, *row);
  return 0;
}

}  // namespace kovra
