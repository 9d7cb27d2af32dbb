// acdbEntMod and acdbEntDel.
#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/arx/lists/list_groups.h"
#include "platform/arx/lists/list_properties.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

namespace {

/// Walks a list beside the record that it was made of: the nth element of a code below a marker
/// means the nth group of that code below that marker.
class ListToRecord {
 public:
  ListToRecord(AcDbDatabase& database, RecordEdit& edit)
      : database_(database), draft_(edit.draft()), type_(draft_.typeName()) {
    constexpr std::size_t kUsualCodes = 24;
    constexpr std::size_t kUsualMarkers = 4;
    seen_.reserve(kUsualCodes);
    markers_.reserve(kUsualMarkers);
    markers_.emplace_back();
  }

  /// False when an element isn't allowed; the draft is then of no use.
  bool apply(const resbuf* list) {
    for (; list != nullptr; list = list->rbnext) {
      if (list->restype == 100) enter(narrow(listText(*list)));
      list = skipAppGroup(list);
      if (!isStructural(list->restype) && !applyOne(*list)) return false;
    }
    return true;
  }

  bool changed() const { return changed_; }
  /// A layer that has to be made, or empty.
  const std::wstring& newLayer() const { return newLayer_; }

 private:
  /// A list has few codes, so looking through them is quicker than a map.
  struct Seen {
    std::size_t marker;
    int code;
    std::size_t count;
  };

  static std::string narrow(std::wstring_view text) {
    std::string result(text.size(), '?');
    for (std::size_t i = 0; i < text.size(); ++i)
      if (text[i] < 0x80) result[i] = static_cast<char>(text[i]);
    return result;
  }

  /// Elements below a marker follow. Nothing that a list changes is a marker.
  void enter(std::string marker) {
    marked_ = !marker.empty() && draft_.hasMarker(marker);
    const auto known = std::find(markers_.begin(), markers_.end(), marker);
    marker_ = static_cast<std::size_t>(known - markers_.begin());
    if (known == markers_.end()) markers_.push_back(std::move(marker));
  }

  std::size_t find(const Property& known) {
    // Common properties, and elements added at the end of a list, stand below another marker than
    // in the record.
    if (known.subclass == kEntityPart) return findProperty(draft_, known);
    const std::size_t nth = countSeen(marked_ ? marker_ : kNoMarker, known.code);
    const std::size_t group =
        marked_ ? draft_.find(markers_[marker_], known.code, nth) : draft_.find(known.code, nth);
    if (group != dxf::kNoGroup || known.subclass.empty() || nth > 0) return group;
    return findProperty(draft_, known);
  }

  /// How many elements of a code came before below a marker; this one counts from now on.
  std::size_t countSeen(std::size_t marker, int code) {
    for (Seen& seen : seen_) {
      if (seen.code == code && seen.marker == marker) return seen.count++;
    }
    seen_.push_back({marker, code, 1});
    return 0;
  }

  bool applyOne(const resbuf& given) {
    const Property known = propertyOf(type_, given.restype);
    const std::size_t group = find(known);
    if (group != dxf::kNoGroup && isEqual(group, given)) return true;
    if (group == dxf::kNoGroup && isDefault(given, known)) return true;
    if (!isAllowed(database_, type_, given)) return false;
    resbuf element = given;
    if (given.restype == 8 || given.restype == 7) element.resval.rstring = spelling(given);
    if (group != dxf::kNoGroup) {
      setFromElement(database_, draft_, group, element);
    } else {
      const std::size_t at =
          known.subclass.empty() ? draft_.endOf(markers_[marker_]) : placeOf(draft_, known);
      insertFromElement(database_, draft_, at, element);
    }
    changed_ = true;
    return true;
  }

  /// Names are equal without regard to case, and keep their bytes then.
  bool isEqual(std::size_t group, const resbuf& given) const {
    const int code = given.restype;
    if ((code == 8 || code == 7 || code == 6) && draft_.part(group) == dxf::GroupPart::kData)
      return dxf::equalNames(database_.store().codec().decode(draft_.text(group)), listText(given));
    return equalsElement(database_, draft_, group, given);
  }

  /// Values that a missing group stands for.
  bool isDefault(const resbuf& given, const Property& known) const {
    switch (given.restype) {
      case 62:
        return given.resval.rint == 256;
      case 6:
        return dxf::equalNames(listText(given), L"BYLAYER");
      case 60:
        return given.resval.rint == 0;
      default:
        break;
    }
    if (known.subclass != kTextPart && known.subclass != kAttributePart &&
        known.subclass != kDefinitionPart)
      return false;
    switch (given.restype) {
      case 41:
        return given.resval.rreal == 1;
      case 50:
      case 51:
        return given.resval.rreal == 0;
      case 71:
      case 72:
      case 73:
      case 74:
        return given.resval.rint == 0;
      default:
        return false;
    }
  }

  /// The table's spelling of a name; a layer that the table lacks is noted.
  wchar_t* spelling(const resbuf& given) {
    const auto table = given.restype == 8 ? dxf::TableKind::kLayer : dxf::TableKind::kStyle;
    if (const auto* entry = database_.structure().lookUp(table, listText(given)))
      spelled_ = entry->name;
    else
      spelled_ = newLayer_ = listText(given);
    return spelled_.data();
  }

  AcDbDatabase& database_;
  dxf::RecordDraft& draft_;
  std::string type_;
  static constexpr std::size_t kNoMarker = 0;
  std::vector<std::string> markers_;  ///< those that came, behind none at all
  std::size_t marker_ = kNoMarker;    ///< the one that elements stand below
  bool marked_ = false;               ///< the record has it too
  std::vector<Seen> seen_;
  std::wstring newLayer_;
  std::wstring spelled_;
  bool changed_ = false;
};

/// The entity of the list's -1; null if it can't be opened for write, with the result to give.
AcDbObject* openNamed(const resbuf* list, int& result) {
  result = RTERROR;
  while (list != nullptr && list->restype != kDxfEntityName) list = list->rbnext;
  AcDbObjectId id;
  if (list == nullptr || acdbGetObjectId(id, list->resval.rlname) != Acad::eOk || id.isErased())
    return nullptr;
  result = RTREJ;
  AcDbObject* object = nullptr;
  acdbOpenObject(object, id, AcDbObject::desc(), AcDb::kForWrite, false);
  return object;
}

bool isOfType(const resbuf* list, std::string_view type) {
  while (list != nullptr && list->restype != 0 && list->restype != RTDXF0) list = list->rbnext;
  if (list == nullptr) return true;
  const std::wstring_view given = listText(*list);
  return std::equal(given.begin(), given.end(), type.begin(), type.end()) ||
         dxf::equalNames(given, std::wstring(type.begin(), type.end()));
}

/// The current layer, thawed, which must stay so; else null.
const AcDbLayerTableRecord* layerToStayThawed(const AcDbObject& object) {
  const auto* layer = AcDbLayerTableRecord::cast(&object);
  const bool isCurrent = layer != nullptr && object.database()->clayer() == object.objectId();
  return isCurrent && !layer->isFrozen() ? layer : nullptr;
}

}  // namespace

int acdbEntMod(const resbuf* list) {
  int result = RTERROR;
  AcDbObject* object = openNamed(list, result);
  if (object == nullptr) return result;
  AcDbDatabase& database = *object->database();
  std::wstring newLayer;
  bool accepted = false;
  const AcDbLayerTableRecord* thawed = layerToStayThawed(*object);
  const auto applyList = [&](RecordEdit& edit) {
    if (!isOfType(list, edit.draft().typeName())) return false;
    ListToRecord change(database, edit);
    accepted = change.apply(list);
    newLayer = change.newLayer();
    return accepted && change.changed();
  };
  object->applyGroups(std::ref(applyList));  // which needs no memory
  if (!accepted || (thawed != nullptr && thawed->isFrozen())) {
    object->cancel();
    return RTREJ;
  }
  if (!newLayer.empty()) database.structure().addLayer(newLayer, 7);
  object->close();
  return RTNORM;
}

int acdbEntDel(const ads_name name) {
  AcDbObjectId id;
  if (name == nullptr || acdbGetObjectId(id, name) != Acad::eOk) return RTERROR;
  AcDbEntity* entity = nullptr;
  const Acad::ErrorStatus status = acdbOpenObject(entity, id, AcDb::kForWrite, true);
  if (status != Acad::eOk) return status == Acad::eNotThatKindOfClass ? RTERROR : RTREJ;
  entity->erase(!entity->isErased());
  entity->close();
  return RTNORM;
}
