#include "module/textcmd/placing.h"

#include <algorithm>
#include <iterator>

#include "module/drawing/attachment.h"
#include "module/drawing/coordinates.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_entity.h"
#include "module/drawing/text_styles.h"
#include "module/drawing/undo_mark.h"
#include "module/frame/reporting.h"
#include "module/textcmd/entity_jig.h"
#include "module/textcmd/text_states.h"

namespace kovra {
namespace {

constexpr UINT kTextNotPlaced = 3910;

TextCommonProps commonProps(const CTextDlg& dialog) {
  TextCommonProps properties;
  GetVar(L"CECOLOR", properties.color);
  const CString layer = dialog.LayerName();
  const auto length =
      std::min(static_cast<std::size_t>(layer.GetLength()), std::size(properties.layer) - 1);
  *std::copy_n(layer.GetString(), length, properties.layer) = ACHAR{};
  return properties;
}

}  // namespace

int PlaceText(TextRun& run) {
  const CTextDlg& dialog = *run.TextDialog;
  const TextCommonProps properties = commonProps(dialog);
  const TextGeometry geometry = {TextPreview->height(), TextPreview->widthFactor(),
                                 TextPreview->rotation(), AttachIndex(dialog.AttachCode)};
  ACHAR style[256] = L"";
  GTxtStyName(TextPreview->textStyle(), style);
  MarkUndo();
  ads_point point = {};
  UcsToWorld(run.TextPoint, point);
  ads_name entity = {};
  if (AddText(properties, geometry, style, run.TextBuffer, point, entity) != 0) {
    TraceError(L"Text error AddText");
    ProjectMessage(kTextNotPlaced);
    return -1;
  }
  SetVar(L"TEXTSTYLE", style);
  SetVar(L"TEXTSIZE", geometry.height);
  run.TextBuffer[0] = ACHAR{};
  run.TextState = kValueState;
  return 0;
}

}  // namespace kovra
