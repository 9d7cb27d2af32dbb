#include "module/drawing/group_list.h"
#include "module/drawing/highlight.h"
#include "module/drawing/regenerate.h"
#include "module/drawing/selection_set.h"
#include "module/frame/attach.h"
#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/frame/resource_scope.h"
#include "module/propedit/prop_dlg.h"

namespace kovra {
namespace {

constexpr UINT kDataVersionTooLow = 2753;
constexpr UINT kSelectPrompt = 2771;

bool selectTexts(SelectionSet& texts) {
  const GroupList filter(acutBuildList(RTDXF0, L"TEXT", RTNONE));
  return SelectEntities(texts, filter.get(), ResourceText(kSelectPrompt).GetString());
}

GrowingList<AcDbObjectId> idsOf(const SelectionSet& texts) {
  GrowingList<AcDbObjectId> ids;
  texts.forEachId([&ids](const AcDbObjectId& id) { ids.add(id); });
  return ids;
}

/// Shows entities as highlighted until the end of its scope.
class Highlight {
 public:
  explicit Highlight(const GrowingList<AcDbObjectId>& ids) : ids_(ids) { redraw(true); }
  ~Highlight() { redraw(false); }
  Highlight(const Highlight&) = delete;
  Highlight& operator=(const Highlight&) = delete;

 private:
  void redraw(bool on) const {
    for (const AcDbObjectId& id : ids_) {
      ads_name entity = {};
      if (acdbGetAdsName(entity, id) == Acad::eOk) HighlightEntity(entity, on);
    }
  }

  const GrowingList<AcDbObjectId>& ids_;
};

}  // namespace

void ChangePropertiesCommand() {
  if (!CurrentProjectAtLeast(L"7.00")) {
    AfxMessageBox(ResourceText(kDataVersionTooLow).GetString());
    return;
  }
  SelectionSet texts;
  if (!selectTexts(texts)) return;
  const GrowingList<AcDbObjectId> ids = idsOf(texts);
  if (ids.size() == 0) return;
  const ResourceScope resources;
  ParamTables tables;
  if (LoadParamTables(tables) != 0) return;
  CPropDlg dialog(acedGetAcadFrame(), ResourceModule, tables);
  dialog.InitPropValues(ids);
  const Highlight highlight(ids);
  if (dialog.DoModal() == IDOK) RegenerateDrawing();
}

}  // namespace kovra
