#include "module/propcopy/copy_to_selection.h"

#include <vector>

#include "module/drawing/auto_var.h"
#include "module/drawing/current_database.h"
#include "module/drawing/group_list.h"
#include "module/drawing/regenerate.h"
#include "module/drawing/selection_set.h"
#include "module/frame/companions/ui_tools_lib.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/propcopy/copy_result.h"
#include "module/propcopy/property_writer.h"

namespace kovra {
namespace {

constexpr UINT kSelectPrompt = 2785;
constexpr UINT kObjectsLeftOut = 2794;

bool select(SelectionSet& selection, bool wholeDrawing) {
  const GroupList filter(acutBuildList(RTDXF0, L"INSERT,ATTDEF", RTNONE));
  if (wholeDrawing) return selection.takeAll(filter.get());
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  return selection.prompt(filter.get(), ResourceText(kSelectPrompt).GetString());
}

void leaveOutExcluded(const SelectionSet& selection) {
  if (!DataVersionAtLeast(L"7.00")) return;
  const int count = RemoveExcludedObjects(selection.name());
  if (count <= 0) return;
  acutPrintf(L"%s", PrintfResourceText(kObjectsLeftOut, count).GetString());
}

std::vector<AcDbObjectId> idsOf(const SelectionSet& selection, int length) {
  std::vector<AcDbObjectId> ids;
  ids.reserve(static_cast<std::size_t>(length));
  selection.forEachId([&ids](const AcDbObjectId& id) { ids.push_back(id); });
  return ids;
}

}  // namespace

void CopyToSelection(const CopyJob& job, bool wholeDrawing) {
  SelectionSet selection;
  if (!select(selection, wholeDrawing)) return;
  leaveOutExcluded(selection);
  const int length = selection.length();
  if (length == 0) return;
  const AcDbDatabase* database = CurrentDatabase();
  const double scale = database != nullptr ? database->dimscale() : 1;
  const int count =
      WriteObjectsProperties(idsOf(selection, length), job.patterns, job.settingsAt(scale));
  if (count != 0) RegenerateDrawing();
  PrintObjectsChanged(count);
}

}  // namespace kovra
