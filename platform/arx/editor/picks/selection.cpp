// Selection sets as commands have them: acedSSGet and its kin.
#include <algorithm>
#include <cwctype>
#include <string>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity_order.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/selection_sets.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/picks/hit_test.h"
#include "platform/arx/editor/picks/selection_prompt.h"
#include "platform/arx/lists/entity_lists.h"

namespace kovra::arx {

namespace {

/// The mode of acedSSGet without options of the prompt.
struct SelectionMode {
  std::wstring method;   ///< "", "I", "X", "A", "L", "P", "W", "C"
  bool prompts = false;  ///< ":$"
  bool single = false;   ///< ":S"
  bool nested = false;   ///< ":N"
};

std::optional<SelectionMode> readMode(const ACHAR* text) {
  SelectionMode mode;
  for (const ACHAR* at = text != nullptr ? text : L""; *at != 0; ++at) {
    if (*at == L'_') continue;
    if (*at != L':') {
      mode.method += static_cast<wchar_t>(std::towupper(static_cast<wint_t>(*at)));
      continue;
    }
    ++at;
    if (*at == L'$')
      mode.prompts = true;
    else if (*at == L'S' || *at == L's')
      mode.single = true;
    else if (*at == L'N' || *at == L'n')
      mode.nested = true;
    else if (*at != L'E' && *at != L'e')
      return std::nullopt;
  }
  return mode;
}

std::optional<AcGePoint3d> worldPoint(const AcApDocument& document, const void* point) {
  if (point == nullptr) return std::nullopt;
  const double* values = static_cast<const double*>(point);
  return toWorld(document, {values[0], values[1], values[2]});
}

std::vector<AcDbObjectId> entitiesOfAllSpaces(const AcDbDatabase& database) {
  std::vector<AcDbObjectId> ids;
  forEachEntityOfAllSpaces(database,
                           [&](dxf::RecordIndex record) { ids.push_back(database.idOf(record)); });
  return ids;
}

/// Candidates of a mode that asks nothing; nothing for an unknown mode or missing points.
std::optional<std::vector<AcDbObjectId>> candidates(AcApDocument& document,
                                                    const std::wstring& method, const void* first,
                                                    const void* second) {
  const AcDbDatabase& database = *document.database();
  if (method == L"I") return document.session().implied;
  if (method == L"P") return document.session().previous;
  if (method == L"X") return entitiesOfAllSpaces(database);
  if (method == L"A") return allEntities(document);
  if (method == L"L") {
    std::vector<AcDbObjectId> all = allEntities(document);
    if (all.size() > 1) all.erase(all.begin(), all.end() - 1);
    return all;
  }
  const std::optional<AcGePoint3d> a = worldPoint(document, first);
  const std::optional<AcGePoint3d> b = worldPoint(document, second);
  if (!a || !b || (method != L"W" && method != L"C")) return std::nullopt;
  return entitiesInBox(document, *a, *b, method == L"C");
}

int promptSelection(AcApDocument& document, const SelectionMode& mode, const void* prompts,
                    const SelectionFilter& filter, SelectionSet& set) {
  SelectionRequest request;
  request.filter = filter;
  request.single = mode.single;
  request.attributes = mode.nested;
  if (mode.prompts && prompts != nullptr) {
    const ACHAR* const* texts = static_cast<const ACHAR* const*>(prompts);
    if (texts[0] != nullptr) request.addPrompt = texts[0];
    if (texts[1] != nullptr) request.removePrompt = texts[1];
  }
  return askSelection(document, request, set) ? RTNORM : RTCAN;
}

int select(AcApDocument& document, const ACHAR* modeText, const void* first, const void* second,
           const resbuf* list, SelectionSet& set) {
  const std::optional<SelectionMode> mode = readMode(modeText);
  const std::optional<SelectionFilter> filter = SelectionFilter::fromList(list);
  if (!mode || !filter) return RTERROR;
  if (mode->method.empty() && (first == nullptr || mode->prompts))
    return promptSelection(document, *mode, first, *filter, set);
  std::optional<std::vector<AcDbObjectId>> ids;
  if (mode->method.empty()) {
    const std::optional<PickHit> hit = pickAt(document, *worldPoint(document, first));
    ids.emplace();
    if (hit) ids->push_back(hit->entity);
  } else {
    ids = candidates(document, mode->method, first, second);
  }
  if (!ids) return RTERROR;
  for (const AcDbObjectId& id : *ids)
    if (!id.isErased() && filter->matches(*document.database(), id.index())) set.add(id);
  return RTNORM;
}

}  // namespace
}  // namespace kovra::arx

using kovra::arx::SelectionSet;
using kovra::arx::SelectionSets;

int acedSSGet(const ACHAR* mode, const void* first, const void* second, const resbuf* filter,
              ads_name set) {
  AcApDocument* document = kovra::arx::DocumentList::instance().current();
  if (document == nullptr || set == nullptr) return RTERROR;
  ads_name_clear(set);
  SelectionSet chosen;
  const int status = kovra::arx::select(*document, mode, first, second, filter, chosen);
  if (status != RTNORM) return status;
  if (chosen.members().empty()) return RTERROR;
  SelectionSets::instance().create(set) = std::move(chosen);
  return RTNORM;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
  const SelectionSet* found = SelectionSets::instance().find(set);
  if (found == nullptr || length == nullptr) return RTERROR;
  *length = static_cast<Adesk::Int32>(found->members().size());
  return RTNORM;
}

int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity) {
  const SelectionSet* found = SelectionSets::instance().find(set);
  if (found == nullptr || index < 0 || static_cast<size_t>(index) >= found->members().size())
    return RTERROR;
  const AcDbObjectId id = found->members()[static_cast<size_t>(index)];
  return acdbGetAdsName(entity, id) == Acad::eOk ? RTNORM : RTERROR;
}

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
  AcDbObjectId id;
  const bool hasEntity = entity != nullptr && !ads_name_nil(entity);
  if (hasEntity && acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  const bool hasSet = set != nullptr && !ads_name_nil(set);
  SelectionSet* target = hasSet ? SelectionSets::instance().find(set) : nullptr;
  if (hasSet && target == nullptr) return RTERROR;
  if (!hasSet) {
    if (result == nullptr) return RTERROR;
    target = &SelectionSets::instance().create(result);
  } else if (result != nullptr && result != set) {
    ads_name_set(set, result);
  }
  if (hasEntity) target->add(id);
  return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name set) {
  AcDbObjectId id;
  SelectionSet* found = SelectionSets::instance().find(set);
  if (found == nullptr || acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  return found->remove(id) ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name entity, const ads_name set) {
  AcDbObjectId id;
  const SelectionSet* found = SelectionSets::instance().find(set);
  if (found == nullptr || acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  return found->contains(id) ? RTNORM : RTERROR;
}

int acedSSFree(const ads_name set) {
  return SelectionSets::instance().free(set) ? RTNORM : RTERROR;
}

int acedSSSetFirst(const ads_name set, const ads_name) {
  AcApDocument* document = kovra::arx::DocumentList::instance().current();
  if (document == nullptr) return RTERROR;
  document->session().implied.clear();
  if (set == nullptr || ads_name_nil(set)) return RTNORM;
  const SelectionSet* found = SelectionSets::instance().find(set);
  if (found == nullptr) return RTERROR;
  document->session().implied = found->members();
  return RTNORM;
}
