#include "module/text7/placement.h"

#include <memory>
#include <span>
#include <vector>

#include "module/countup/count_up_value.h"
#include "module/countup/radix_table.h"
#include "module/drawing/angles.h"
#include "module/drawing/attachment.h"
#include "module/drawing/auto_var.h"
#include "module/drawing/current_database.h"
#include "module/drawing/group_list.h"
#include "module/drawing/layer_snapshot.h"
#include "module/drawing/layers.h"
#include "module/drawing/model_space.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_styles.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"
#include "module/text7/array_layout.h"
#include "module/text7/split_lines.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"
#include "module/textcmd/text_jig.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace text7;
using namespace textrows;

namespace {

constexpr UINT kCurrentLayerName = 2731;
constexpr UINT kInsertionPointPrompt = 2774;
constexpr UINT kNoModelSpace = 3912;

/// The texts of one drag, in the order of building, outside any database.
struct TextBatch {
  std::vector<std::unique_ptr<AcDbText>> texts;
  std::vector<AcGeVector3d> offsets;  ///< from the point that the user gives, world coordinates
};

/// What the dialog says of every text that it places.
struct TextProperties {
  CString layer;
  CString style;
  double height;  ///< drawing units
  double widthFactor;
  double degrees;
  int horizontal = 0;
  int vertical = 0;
};

/// The time in which the user places texts: the dialog is out of the way and commands are silent.
class PlacementTurn {
 public:
  explicit PlacementTurn(CText7Dlg& dialog) {
    dialog.BeginEditorCommand();
    dialog.ShowWindow(SW_HIDE);
    echo_.Set(L"CMDECHO", 0);
  }
  ~PlacementTurn() {
    CText7Dlg* dialog = OpenText7Dlg();
    if (dialog == nullptr) return;
    dialog->ShowWindow(SW_SHOWNA);
    dialog->CompleteEditorCommand(TRUE);
  }
  PlacementTurn(const PlacementTurn&) = delete;
  PlacementTurn& operator=(const PlacementTurn&) = delete;

 private:
  CAutoVar echo_;
};

TextProperties propertiesOf(const CText7Dlg& dialog) {
  TextProperties properties;
  properties.layer = ItemText(dialog, kLayer);
  properties.style = ItemText(dialog, kStyle);
  properties.height = ItemReal(dialog, kHeight) * DrawingScale;
  properties.widthFactor = ItemReal(dialog, kWidthFactor);
  properties.degrees = ItemReal(dialog, kRotation);
  AttachIndexToModes(SelectedIndex(dialog, kJustification), properties.horizontal,
                     properties.vertical);
  return properties;
}

/// From the origin of the user's coordinate system, in world coordinates.
AcGeVector3d worldOffset(const ads_point offset) {
  const ads_point origin = {};
  ads_point from = {};
  ads_point to = {};
  acdbUcs2Wcs(origin, from, false);
  acdbUcs2Wcs(offset, to, false);
  return {to[X] - from[X], to[Y] - from[Y], to[Z] - from[Z]};
}

/// @param offset in the user's coordinate system
bool MakeTextEntity(const TextProperties& properties, const AcDbDatabase* database,
                    TextBatch& batch, const CString& text, const ads_point offset) {
  auto entity = std::make_unique<AcDbText>(AcGePoint3d(), text.GetString());
  entity->setDatabaseDefaults();
  entity->setTextString(text.GetString());
  AcDbObjectId id;
  if (GLayerIdAt(id, properties.layer.GetString())) entity->setLayer(id, true, false);
  if (GTxtStyId(properties.style.GetString(), id) == 0 && id.isValid()) entity->setTextStyle(id);
  entity->setHeight(properties.height);
  entity->setWidthFactor(properties.widthFactor);
  entity->setHorizontalMode(static_cast<AcDb::TextHorzMode>(properties.horizontal));
  entity->setVerticalMode(static_cast<AcDb::TextVertMode>(properties.vertical));
  entity->setNormal(database->ucsxdir().crossProduct(database->ucsydir()));
  entity->setRotation(RadiansOf(properties.degrees));
  batch.texts.push_back(std::move(entity));
  batch.offsets.push_back(worldOffset(offset));
  return true;
}

/// @return false when the user has had enough
bool dragBatch(const TextBatch& batch) {
  std::vector<AcDbText*> texts;
  for (const auto& text : batch.texts) texts.push_back(text.get());
  TextJig jig(texts, batch.offsets);
  return RunTextJig(jig, ResourceText(kInsertionPointPrompt).GetString());
}

/// The texts pass to the drawing.
void appendBatch(TextBatch batch, AcDbDatabase* database, const CString& layer) {
  std::vector<AcDbEntity*> entities;
  for (auto& text : batch.texts) entities.push_back(text.release());
  AppendToModelSpace(database, entities, layer.GetString());
}

Pattern patternOf(const CText7Dlg& dialog) {
  return {dialog.Direction, dialog.Rows, dialog.Cols, dialog.RowHeight, dialog.ColWidth};
}

std::vector<GroupText> linesOf(CText7Dlg& dialog) {
  std::vector<CString> lines;
  SplitFieldLines(dialog.MultiLineText, lines);
  return layOutLines(lines, ItemReal(dialog, kHeight), ItemReal(dialog, kLineSpacing),
                     DrawingScale);
}

/// @param value the running value; afterwards the one that follows
std::vector<GroupText> arrayOf(const CText7Dlg& dialog, CString& value) {
  ArrayValue parts;
  parts.value = value;
  CountOn countOn;
  if (dialog.CountsValues()) {
    parts.prefix = dialog.TextValue[1];
    parts.suffix = dialog.TextValue[3];
    const int step = dialog.CountUpStep;
    const int code = RadixCodeOf(dialog.Radix);
    if (step != 0) countOn = [=](CString& text) { return CountUpValue(text, code, step); };
  }
  std::vector<GroupText> texts = layOutArray(patternOf(dialog), DrawingScale, parts, countOn);
  value = parts.value;
  return texts;
}

/// Places a group of texts with one drag.
void PlaceTextArray(AcDbDatabase* database, const CString& layer) {
  CText7Dlg& dialog = *OpenText7Dlg();
  const PlacementTurn turn(dialog);
  CString value = dialog.TextValue[dialog.CountUp ? 2 : 0];
  const auto group = dialog.MultiLine ? linesOf(dialog) : arrayOf(dialog, value);
  const TextProperties properties = propertiesOf(dialog);
  TextBatch batch;
  for (const auto& [text, offset] : group) {
    const ads_point place = {offset.x, offset.y, 0.0};
    MakeTextEntity(properties, database, batch, text, place);
  }
  if (!dragBatch(batch)) return;
  appendBatch(std::move(batch), database, layer);
  if (CText7Dlg* open = OpenText7Dlg()) open->SetDlgItemText(kNumber, value);
}

CString presentText(const CText7Dlg& dialog) {
  if (!dialog.CountsValues()) return TrimmedItemText(dialog, kValue);
  return TrimmedItemText(dialog, kPrefix) + TrimmedItemText(dialog, kNumber) +
         TrimmedItemText(dialog, kSuffix);
}

/// Counts the number field on for the next text. False when there is nothing more to count.
bool countNumberOn(CText7Dlg& dialog) {
  if (!dialog.CountsValues()) return true;
  CString number = TrimmedItemText(dialog, kNumber);
  if (number.IsEmpty()) return true;
  if (!CountUpValue(number, RadixCodeOf(dialog.Radix), dialog.CountUpStep)) return false;
  dialog.SetDlgItemText(kNumber, number);
  return true;
}

/// Places one text. False when it was the last one.
bool placeOne(const CText7Dlg& dialog, AcDbDatabase* database, const CString& layer) {
  const ads_point origin = {};
  TextBatch batch;
  MakeTextEntity(propertiesOf(dialog), database, batch, presentText(dialog), origin);
  if (!dragBatch(batch)) return false;
  appendBatch(std::move(batch), database, layer);
  CText7Dlg* open = OpenText7Dlg();
  return open != nullptr && countNumberOn(*open) && open->Radio == kRepeated;
}

/// Places texts one by one. The fields are the state between them.
void PlaceTextLoop(AcDbDatabase* database, const CString& layer) {
  const PlacementTurn turn(*OpenText7Dlg());
  while (placeOne(*OpenText7Dlg(), database, layer)) {
  }
}

/// The layer that the dialog names; made if the drawing lacks it.
CString ensureLayer(const CText7Dlg& dialog) {
  CString layer = ItemText(dialog, kLayer);
  if (layer.CompareNoCase(ResourceText(kCurrentLayerName)) == 0) {
    CString current;
    if (GetVar(L"CLAYER", current) == 0) layer = current;
  }
  const GroupList record(acdbTblSearch(L"LAYER", layer.GetString(), 1));
  if (record != nullptr) return layer;
  CAutoVar echo;
  echo.Set(L"CMDECHO", 0);
  const GroupList command(
      acutBuildList(RTSTR, L"-LAYER", RTSTR, L"N", RTSTR, layer.GetString(), RTSTR, L"", 0));
  acedCmdS(command.get());
  return layer;
}

}  // namespace

void PrepareAndPlace() {
  AcDbDatabase* database = CurrentDatabase();
  if (!HasModelSpace(database)) {
    ShowMessage(kNoModelSpace);
    return;
  }
  LayerSnapshot layers;
  layers.Capture(database);
  layers.UnlockAll();
  const CText7Dlg& dialog = *OpenText7Dlg();
  const CString layer = ensureLayer(dialog);
  if (dialog.Radio == kArray || dialog.MultiLine) {
    PlaceTextArray(database, layer);
  } else {
    PlaceTextLoop(database, layer);
  }
  layers.Restore();
  CText7Dlg* open = OpenText7Dlg();
  if (open == nullptr) return;
  open->ShowWindow(SW_SHOWNA);
  open->FocusValueField();
}

}  // namespace kovra
