#include "module/propcopy/property_writer.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "module/drawing/angles.h"
#include "module/drawing/layer_snapshot.h"
#include "module/drawing/symbol_tables.h"
#include "module/frame/companions/entity_attr_lib.h"
#include "module/frame/gates.h"
#include "module/propcopy/alignment_codes.h"
#include "module/propcopy/excluded_layers.h"

namespace kovra {
namespace {

const ACHAR* tagOf(const AcDbText* text) {
  if (const auto* definition = AcDbAttributeDefinition::cast(text)) return definition->tagConst();
  const auto* attribute = AcDbAttribute::cast(text);
  return attribute != nullptr ? attribute->tagConst() : nullptr;
}

/// A text without a tag matches nothing, not even "*".
bool matchesTag(const ACHAR* tag, const TagPatterns& patterns) {
  return tag != nullptr && *tag != ACHAR{} &&
         std::any_of(patterns.begin(), patterns.end(), [tag](const std::wstring& pattern) {
           return acutWcMatchEx(tag, pattern.c_str(), true);
         });
}

bool writeForm(AcDbText& text, const PropertySettings& settings) {
  bool written = false;
  if (!settings.Layer.empty()) {
    written |= text.setLayer(settings.Layer.c_str(), true, false) == Acad::eOk;
  }
  if (isSizeGiven(settings.Height)) written |= text.setHeight(settings.Height) == Acad::eOk;
  if (isSizeGiven(settings.WidthFactor)) {
    written |= text.setWidthFactor(settings.WidthFactor) == Acad::eOk;
  }
  if (isRotationGiven(settings.Rotation)) {
    written |= text.setRotation(settings.Rotation * kPi / 180) == Acad::eOk;
  }
  return written;
}

CodeModes modesOf(const AcDbText& text) {
  return {static_cast<int>(text.verticalMode()), static_cast<int>(text.horizontalMode())};
}

bool setModes(AcDbText& text, const CodeModes& modes) {
  const auto vertical = static_cast<AcDb::TextVertMode>(modes.vertical);
  const bool written = text.setVerticalMode(vertical) == Acad::eOk;
  if (modes.horizontal != kKeepHorizontal) {
    text.setHorizontalMode(static_cast<AcDb::TextHorzMode>(modes.horizontal));
  }
  return written;
}

/// Sets the modes of a code. A text whose kind of anchor changes stays at the point that fixed it.
bool writeAlignment(AcDbText& text, std::wstring_view code) {
  const Anchor before = anchorOf(modesOf(text));
  const AcGePoint3d position = text.position();
  const AcGePoint3d point = before == Anchor::point ? text.alignmentPoint() : position;
  const bool written = setModes(text, alignmentModes(code));
  const Anchor after = anchorOf(modesOf(text));
  if (before == Anchor::position && after == Anchor::point) text.setAlignmentPoint(position);
  if (before == Anchor::point && after == Anchor::position) text.setPosition(point);
  NotifyEntityEdited(&text, text.objectId().database());
  return written;
}

bool writeBlockAttributes(const AcDbBlockReference& block, const TagPatterns& patterns,
                          const PropertySettings& settings) {
  bool written = false;
  const std::unique_ptr<AcDbObjectIterator> attributes(block.attributeIterator());
  if (attributes == nullptr) return false;
  for (attributes->start(); !attributes->done(); attributes->step()) {
    AcDbAttribute* attribute = nullptr;
    if (block.openAttribute(attribute, attributes->objectId(), AcDb::kForRead) != Acad::eOk) {
      continue;
    }
    written |= WriteAttributeProperties(attribute, patterns, settings);
    attribute->close();
  }
  return written;
}

bool writeObject(const AcDbObjectId& id, const TagPatterns& patterns,
                 const PropertySettings& settings) {
  AcDbObject* object = nullptr;
  if (acdbOpenObject(object, id, AcDb::kForRead) != Acad::eOk) return false;
  bool written = false;
  if (const auto* block = AcDbBlockReference::cast(object)) {
    written = writeBlockAttributes(*block, patterns, settings);
  } else if (auto* definition = AcDbAttributeDefinition::cast(object)) {
    written = WriteAttributeProperties(definition, patterns, settings);
  }
  object->close();
  return written;
}

/// Whether the writer works on objects of this kind, which an id tells without its being opened.
bool isWritten(const AcDbObjectId& id) {
  const AcRxClass* kind = id.objectClass();
  return kind != nullptr && (kind->isDerivedFrom(AcDbBlockReference::desc()) ||
                             kind->isDerivedFrom(AcDbAttributeDefinition::desc()));
}

/// Keeps the id of the entity that the iterator stands on if the writer works on its kind.
void collectEntity(const AcDbBlockTableRecordIterator& entities, ExcludedLayers* excluded,
                   std::vector<AcDbObjectId>& ids) {
  AcDbObjectId id;
  if (entities.getEntityId(id) != Acad::eOk || !isWritten(id)) return;
  AcDbEntity* entity = nullptr;
  if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) return;
  if (excluded == nullptr || !excluded->contains(*entity)) ids.push_back(id);
  entity->close();
}

/// Ids of the block references and attribute definitions of the Model Space. False without one.
bool collectModelSpace(AcDbDatabase* database, ExcludedLayers* excluded,
                       std::vector<AcDbObjectId>& ids) {
  const BlockTable blocks(database);
  CRecord<AcDbBlockTableRecord> space;
  if (!blocks.openRecord(space, ACDB_MODEL_SPACE, AcDb::kForRead)) return false;
  AcDbBlockTableRecordIterator* made = nullptr;
  if (space->newIterator(made) != Acad::eOk) return false;
  const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
  for (entities->start(); !entities->done(); entities->step()) {
    collectEntity(*entities, excluded, ids);
  }
  return true;
}

}  // namespace

bool WriteAttributeProperties(AcDbText* text, const TagPatterns& patterns,
                              const PropertySettings& settings) {
  if (!matchesTag(tagOf(text), patterns)) return false;
  if (text->upgradeOpen() != Acad::eOk) return false;
  bool written = writeForm(*text, settings);
  if (!settings.Alignment.empty()) written |= writeAlignment(*text, settings.Alignment);
  return written;
}

int WriteObjectsProperties(std::span<const AcDbObjectId> ids, const TagPatterns& patterns,
                           const PropertySettings& settings) {
  if (ids.empty()) return 0;
  LayerSnapshot layers;
  layers.Capture(ids.front().database());
  layers.UnlockAll();
  int count = 0;
  for (const AcDbObjectId& id : ids) count += writeObject(id, patterns, settings) ? 1 : 0;
  layers.Restore();
  return count;
}

int WriteDatabaseProperties(AcDbDatabase* database, const TagPatterns& patterns,
                            const PropertySettings& settings) {
  ExcludedLayers excluded;
  const bool exclude = DataVersionAtLeast(L"7.00");
  std::vector<AcDbObjectId> ids;
  if (!collectModelSpace(database, exclude ? &excluded : nullptr, ids)) return -1;
  return WriteObjectsProperties(ids, patterns, settings);
}

}  // namespace kovra
