#include <algorithm>
#include <memory>
#include <optional>

#include "module/align/alignments.h"
#include "module/align/apply_values.h"
#include "module/align/cloned_texts.h"
#include "module/align/entities_jig.h"
#include "module/align/place_on_base.h"
#include "module/align/select_texts.h"
#include "module/align/text_align_form_dlg.h"
#include "module/drawing/layers.h"
#include "module/drawing/open_text.h"
#include "module/frame/attach.h"
#include "module/frame/commands.h"
#include "module/frame/resource_scope.h"

namespace kovra {
namespace {

/// Takes back what the drawing's texts were given, unless it is kept.
class DrawingChange {
 public:
  DrawingChange() : manager_(acDocManagerPtr()->curDocument()->transactionManager()) {
    manager_->startTransaction();
  }
  ~DrawingChange() {
    if (kept_) {
      manager_->endTransaction();
    } else {
      manager_->abortTransaction();
    }
  }
  DrawingChange(const DrawingChange&) = delete;
  DrawingChange& operator=(const DrawingChange&) = delete;

  void keep() { kept_ = true; }

 private:
  AcTransactionManager* manager_;
  bool kept_ = false;
};

/// What the user asked for; none when the dialog was cancelled.
std::optional<AlignSettings> askHow(const AcDbObjectIdArray& ids) {
  TextList layers;
  TextList styles;
  std::vector<UINT> lockedFlags;
  CollectLayers(layers, &lockedFlags);
  CollectTextStyles(styles);
  const ResourceScope resources;
  CTextAlignFormDlg dialog(acedGetAcadFrame(), ResourceModule);
  dialog.SetInput(std::move(layers), std::move(lockedFlags), std::move(styles),
                  GetCommonTextValues(ids), ids.length());
  if (dialog.DoModal() != IDOK) return std::nullopt;
  return dialog.GetResult();
}

/// The alignment that the dialog gave all texts; none when it gave none.
std::optional<AnchorModes> commonModes(const AlignSettings& settings) {
  if (!ReadApplySet(settings.apply.GetString())[kAlignmentProperty]) return std::nullopt;
  AnchorModes modes;
  AlignmentModes(settings.values[kAlignmentProperty].GetString(), modes.vertical, modes.horizontal);
  return modes;
}

/// Texts that are open for write, in the order of the column, each with its extent.
struct OpenColumn {
  std::vector<AcDbText*> texts;
  std::vector<TextExtent> extents;
};

OpenColumn openColumn(const AcDbObjectIdArray& ids, const std::vector<TextExtent>& extents,
                      bool forward) {
  OpenColumn column;
  for (int i = 0; i < ids.length(); ++i) {
    OpenText text(ids[i], AcDb::kForWrite);
    if (!text) continue;
    column.texts.push_back(text.release());
    column.extents.push_back(extents[static_cast<std::size_t>(i)]);
  }
  if (!forward) {
    std::reverse(column.texts.begin(), column.texts.end());
    std::reverse(column.extents.begin(), column.extents.end());
  }
  return column;
}

/// Drags the column; the texts are closed afterwards. False when the user gave no place.
bool drag(const OpenColumn& column, const AlignSettings& settings) {
  const std::optional<AnchorModes> modes = commonModes(settings);
  CEntitiesJig jig(ColumnDistances(column.extents, settings.spacing, 0), modes ? &*modes : nullptr);
  for (AcDbText* text : column.texts) jig.AddEntity(text);
  AcGePoint3d place;
  return jig.DragEntities(place) == RTNORM;
}

/// Rotation of a text in radians; none for an object that isn't one.
std::optional<double> stackingRotation(const AcDbObjectId& id) {
  const OpenText text(id, AcDb::kForRead);
  if (!text) return std::nullopt;
  return text->rotation();
}

/// @return false, with the texts as they were, when the user gave no place
bool dragTexts(const AcDbObjectIdArray& ids, const AlignSettings& settings) {
  const std::optional<double> rotation =
      ids.isEmpty() ? std::nullopt : stackingRotation(ids.first());
  if (!rotation) return false;
  DrawingChange change;
  ApplyTextValues(ids, settings.values, settings.apply.GetString());
  const std::vector<TextExtent> extents = MeasureTextExtents(ids);
  if (!drag(openColumn(ids, extents, StacksForward(*rotation)), settings)) return false;
  change.keep();
  return true;
}

void dragCopies(const AcDbObjectIdArray& ids, const AlignSettings& settings) {
  ClonedTexts clones(ids);
  if (dragTexts(clones.ids(), settings)) clones.keep();
}

void layOutAroundBase(const AcDbObjectIdArray& ids, const AlignSettings& settings) {
  AcDbObjectId base;
  if (!PickBaseText(ids, base)) return;
  PlaceOnBaseText(ids, base, settings.values, settings.apply.GetString(), settings.spacing);
}

}  // namespace

void TextAlignCommand() {
  AcDbObjectIdArray ids;
  if (!SelectAlignTexts(ids)) return;
  const std::optional<AlignSettings> settings = askHow(ids);
  if (!settings) return;
  switch (settings->placeMode) {
    case PlaceMode::drag:
      dragTexts(ids, *settings);
      break;
    case PlaceMode::onBase:
      layOutAroundBase(ids, *settings);
      break;
    case PlaceMode::copy:
      dragCopies(ids, *settings);
      break;
  }
}

}  // namespace kovra
