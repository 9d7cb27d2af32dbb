// acdbEntMake.
#include <string>

#include "platform/arx/base/table_flags.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/drawing_defaults.h"
#include "platform/arx/database/new_entity.h"
#include "platform/arx/entities/text_align.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/arx/lists/list_groups.h"
#include "platform/arx/lists/list_properties.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

namespace {

/// The type of group 0 in upper case; empty if the list has none.
std::string typeOf(const resbuf* list) {
  while (list != nullptr && list->restype != 0 && list->restype != RTDXF0) list = list->rbnext;
  std::string type;
  if (list == nullptr) return type;
  for (const wchar_t c : listText(*list))
    type += c >= L'a' && c <= L'z' ? static_cast<char>(c - 32)
                                   : (c < 0x80 ? static_cast<char>(c) : '?');
  return type;
}

const resbuf* lastOf(const resbuf* list, int code) {
  const resbuf* found = nullptr;
  for (; list != nullptr; list = skipAppGroup(list)->rbnext)
    if (list->restype == code) found = list;
  return found;
}

/// A text style without a name. Shape files have such entries as well, with flag 1.
bool hasUnnamedStyle(const AcDbDatabase& database) {
  const dxf::Structure& structure = database.structure();
  if (structure.lookUp(dxf::TableKind::kStyle, L"") == nullptr) return false;
  dxf::RecordDraft draft;
  for (dxf::RecordIndex entry = structure.firstEntry(dxf::TableKind::kStyle);
       entry != dxf::kNoRecord; entry = structure.nextEntry(entry)) {
    if (!structure.entryName(entry).empty()) continue;
    database.store().load(entry, draft);
    if ((readInteger(draft, {kStylePart, 70}, 0) & kStyleIsShape) == 0) return true;
  }
  return false;
}

/// A name that stands for style Standard as no group 7 does: none in a drawing without such a text
/// style, or Standard where the table lacks it.
bool meansStandard(const AcDbDatabase& database, const resbuf& element) {
  if (element.restype != 7) return false;
  const std::wstring_view name = listText(element);
  if (name.empty()) return !hasUnnamedStyle(database);
  return dxf::equalNames(name, L"Standard") &&
         database.structure().findEntry(dxf::TableKind::kStyle, L"Standard") == dxf::kNoRecord;
}

bool isUnnamedStyle(const resbuf& element) {
  return element.restype == 7 && listText(element).empty();
}

bool isAcceptable(const AcDbDatabase& database, const std::string& type, const resbuf* list) {
  if (subclassesOf(type).empty() || missingGroup(type, list) != 0) return false;
  for (const resbuf* element = list; element != nullptr; element = element->rbnext) {
    element = skipAppGroup(element);
    if (isStructural(element->restype) || isUnnamedStyle(*element) ||
        meansStandard(database, *element))
      continue;
    if (!isAllowed(database, type, *element)) return false;
  }
  return true;
}

/// The name of a layer or a text style is spelled as the drawing's table has it.
/// @return the element as it is written; `spelling` keeps a name that differs from the list's
resbuf spelledByTable(const AcDbDatabase& database, const resbuf& element, std::wstring& spelling) {
  resbuf written = element;
  if (element.restype != 8 && element.restype != 7) return written;
  const auto table = element.restype == 8 ? dxf::TableKind::kLayer : dxf::TableKind::kStyle;
  const auto* entry = database.structure().lookUp(table, listText(element));
  if (entry != nullptr && entry->name != listText(element)) {
    spelling = entry->name;
    written.resval.rstring = spelling.data();
  }
  return written;
}

/// The new record's groups: type, markers, the list's groups in their order in the format.
void fillDraft(AcDbDatabase& database, const std::string& type, const resbuf* list,
               dxf::RecordDraft& draft) {
  for (const std::string_view subclass : subclassesOf(type)) draft.appendMarker(subclass);
  if (type == "TEXT") draft.appendMarker(kTextPart);
  if (lastOf(list, 8) == nullptr)
    draft.insertText(placeOf(draft, {kEntityPart, 8}), 8, currentLayer(database.structure()),
                     database.store().codec());
  for (const resbuf* element = list; element != nullptr; element = element->rbnext) {
    element = skipAppGroup(element);
    const int code = element->restype;
    if (isStructural(code) || !isWritten(code, database.store().dialect()) ||
        meansStandard(database, *element))
      continue;
    const Property property = propertyOf(type, code);
    if (property.subclass.empty()) continue;
    std::wstring spelling;
    const resbuf written = spelledByTable(database, *element, spelling);
    // Of a code that is given twice the last counts, but for the chunks of a long text.
    const std::size_t present = code == 3 ? dxf::kNoGroup : findProperty(draft, property);
    if (present != dxf::kNoGroup) {
      setFromElement(database, draft, present, written);
    } else {
      insertFromElement(database, draft, placeOf(draft, property), written);
    }
  }
}

}  // namespace

int acdbEntMake(const resbuf* list) {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr || !database->hasDrawing()) return RTERROR;
  const std::string type = typeOf(list);
  if (!isAcceptable(*database, type, list)) return RTREJ;
  if (const resbuf* layer = lastOf(list, 8);
      layer != nullptr &&
      database->structure().findEntry(dxf::TableKind::kLayer, listText(*layer)) == dxf::kNoRecord)
    database->structure().addLayer(listText(*layer), 7);

  appendRecord(*database, database->structure().currentSpace(), type, [&](dxf::RecordDraft& draft) {
    fillDraft(*database, type, list, draft);
    RecordEdit edit(draft, nullptr, dxf::kNoRecord);
    const bool isText = type == "TEXT" || type == "ATTDEF";
    if (isText && usesAlignmentPoint(draft)) alignText(edit, *database);
  });
  return RTNORM;
}
