#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/arx/database/database.h"
#include "platform/arx/database/id_mapping.h"
#include "platform/arx/database/new_entity.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {
namespace {

constexpr std::string_view kExtensionDictionary = "{ACAD_XDICTIONARY";

/// Handles that are kept as they are by their very meaning.
bool isArbitraryHandle(int code) {
  return code >= 320 && code <= 329;
}

/// Attributes, vertices and the ends of their lists are copied with what they belong to.
bool isPart(const AcDbDatabase& database, dxf::RecordIndex record) {
  switch (database.store().kind(record)) {
    case dxf::RecordKind::kVertex:
    case dxf::RecordKind::kSeqEnd:
      return true;
    case dxf::RecordKind::kAttrib:
      return database.structure().insertOf(record) != dxf::kNoRecord;
    default:
      return false;
  }
}

/// One run of AcDbDatabase::deepCloneObjects: first all that is to be copied is collected and gets
/// its new handles, then the copies are made with their references led to one another.
class DeepClone {
 public:
  /// `target`: the block or space that the copies go to.
  DeepClone(AcDbDatabase& database, dxf::BlockNumber target);

  /// An entity, with its parts and what they own. A second time is ignored.
  Acad::ErrorStatus add(const AcDbObjectId& id);
  void run(AcDbIdMapping& mapping);

 private:
  struct Copy {
    dxf::RecordIndex source;
    std::uint64_t handle;
    bool primary;
    dxf::RecordIndex made = dxf::kNoRecord;
  };

  bool note(std::vector<Copy>& copies, dxf::RecordIndex source, bool primary);
  void collectOwned(dxf::RecordIndex owner);
  bool owns(const Copy& copy, dxf::RecordIndex object) const;
  void make(Copy& copy, dxf::RecordIndex anchor);
  void translate(dxf::RecordDraft& draft) const;
  void place(const Copy& copy, dxf::RecordDraft& draft) const;
  dxf::RecordIndex endOfObjects() const;

  AcDbDatabase& database_;
  dxf::BlockNumber target_;
  std::vector<Copy> entities_;  ///< those asked for, each followed by its parts
  std::vector<Copy> objects_;   ///< what they own
  std::unordered_set<dxf::RecordIndex> noted_;
  std::unordered_map<dxf::RecordIndex, dxf::RecordIndex> ownerOf_;  ///< by a copied object
  std::unordered_map<std::uint64_t, std::uint64_t> handles_;  ///< of the copies, by the sources'
};

DeepClone::DeepClone(AcDbDatabase& database, dxf::BlockNumber target)
    : database_(database), target_(target) {}

/// False for a record that is noted already.
bool DeepClone::note(std::vector<Copy>& copies, dxf::RecordIndex source, bool primary) {
  if (!noted_.insert(source).second) return false;
  const std::uint64_t handle = database_.store().handle(source);
  const std::uint64_t fresh = handle != 0 ? database_.store().newHandle() : 0;
  if (handle != 0) handles_.try_emplace(handle, fresh);
  copies.push_back({source, fresh, primary});
  return true;
}

Acad::ErrorStatus DeepClone::add(const AcDbObjectId& id) {
  if (id.database() != &database_ || !id.isValid()) return Acad::eNullObjectId;
  if (id.isErased()) return Acad::eWasErased;
  const dxf::RecordIndex record = id.index();
  if (!database_.objects().isEntity(record)) return Acad::eInvalidInput;
  if (isPart(database_, record)) return Acad::eInvalidOwnerObject;
  if (!note(entities_, record, true)) return Acad::eOk;
  collectOwned(record);
  const dxf::RecordStore& store = database_.store();
  const dxf::RecordIndex end = database_.structure().pastSubordinates(record);
  for (dxf::RecordIndex part = store.next(record); part != end; part = store.next(part)) {
    if (store.erased(part)) continue;
    note(entities_, part, false);
    collectOwned(part);
  }
  return Acad::eOk;
}

void DeepClone::collectOwned(dxf::RecordIndex owner) {
  const std::size_t first = objects_.size();
  const auto collect = [&](dxf::RecordIndex from) {
    for (const dxf::RecordIndex owned : database_.objects().ownedObjects(from)) {
      if (note(objects_, owned, false)) ownerOf_[owned] = from;
    }
  };
  collect(owner);
  for (std::size_t i = first; i < objects_.size(); ++i) collect(objects_[i].source);
}

/// Leads references to copied objects to the copies.
void DeepClone::translate(dxf::RecordDraft& draft) const {
  for (std::size_t i = 1; i < draft.size(); ++i) {
    if (draft.type(i) != dxf::ValueType::kHandle || isArbitraryHandle(draft.code(i))) continue;
    const auto found = handles_.find(draft.handle(i));
    if (found != handles_.end()) draft.setHandle(i, found->second);
  }
}

/// Owner and space of a copied entity.
void DeepClone::place(const Copy& copy, dxf::RecordDraft& draft) const {
  const dxf::Structure& structure = database_.structure();
  if (copy.primary) {
    const std::uint64_t owner = structure.blockHandle(target_);
    if (owner != 0) draft.setHandle(findProperty(draft, {kEntityPart, 330}), owner);
  }
  if (structure.blockOf(copy.source) == target_) return;
  for (const int code : {67, 410}) {
    const std::size_t group = findProperty(draft, {kEntityPart, code});
    if (group != dxf::kNoGroup) draft.erase(group);
  }
  markPaperSpace(database_, target_, draft);
}

bool DeepClone::owns(const Copy& copy, dxf::RecordIndex object) const {
  const auto found = ownerOf_.find(object);
  return found != ownerOf_.end() && found->second == copy.source;
}

void DeepClone::make(Copy& copy, dxf::RecordIndex anchor) {
  const ScratchDraft scratch(database_.objects());
  dxf::RecordDraft& draft = *scratch;
  database_.objects().loadCurrent(copy.source, draft);
  const bool entity = database_.objects().isEntity(copy.source);
  // A dictionary that isn't the entity's own can't be shared by two.
  const dxf::RecordDraft::Range extension = draft.appGroup(kExtensionDictionary);
  const std::size_t dictionary = draft.findIn(extension, 360);
  if (dictionary != dxf::kNoGroup && !owns(copy, database_.store().find(draft.handle(dictionary))))
    draft.erase(extension);
  translate(draft);
  if (copy.handle != 0) draft.setHandle(draft.find(5), copy.handle);
  if (entity) place(copy, draft);
  copy.made = database_.store().insertBefore(anchor, draft);
}

/// The record that ends the section of objects, which has at least one.
dxf::RecordIndex DeepClone::endOfObjects() const {
  const dxf::RecordStore& store = database_.store();
  dxf::RecordIndex at = objects_.front().source;
  while (at != dxf::kNoRecord && store.section(at) == dxf::SectionKind::kObjects &&
         store.kind(at) != dxf::RecordKind::kEndSec)
    at = store.next(at);
  return at;
}

void DeepClone::run(AcDbIdMapping& mapping) {
  if (entities_.empty()) return;
  const dxf::RecordIndex anchor = database_.structure().entityAnchor(target_);
  for (Copy& copy : entities_) make(copy, anchor);
  const dxf::RecordIndex objectsEnd = objects_.empty() ? dxf::kNoRecord : endOfObjects();
  for (Copy& copy : objects_) make(copy, objectsEnd);
  for (const Copy& copy : entities_)
    if (copy.primary)
      mapping.assign({database_.idOf(copy.source), database_.idOf(copy.made), true, true, true});
}

}  // namespace
}  // namespace kovra::arx

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& objectIds,
                                                 const AcDbObjectId& owner, AcDbIdMapping& mapping,
                                                 bool /*deferXlation*/) {
  if (owner.database() != this || !owner.isValid()) return Acad::eNullObjectId;
  const kovra::dxf::BlockNumber target = objects().blockOfObject(owner.index());
  if (target == kovra::dxf::kNoBlock) return Acad::eInvalidOwnerObject;
  kovra::arx::DeepClone clone(*this, target);
  for (const AcDbObjectId& id : objectIds)
    if (const Acad::ErrorStatus status = clone.add(id); status != Acad::eOk) return status;
  clone.run(mapping);
  return Acad::eOk;
}
