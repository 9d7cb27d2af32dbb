#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Owns a selection set of the editor.
class SelectionSet {
 public:
  SelectionSet() = default;
  ~SelectionSet() { release(); }
  SelectionSet(SelectionSet&& other) noexcept;
  SelectionSet& operator=(SelectionSet&& other) noexcept;

  /// Makes a new empty set. False when the editor can't.
  bool create();
  /// Takes the implied selection. False when there is none that passes the filter.
  bool takeImplied(const resbuf* filter);
  /// Lets the user select. False when nothing was selected.
  /// @param prompt asks for entities to add and to remove; null: the editor's own prompts
  bool prompt(const resbuf* filter, const ACHAR* prompt = nullptr);
  /// Takes every entity of the drawing, in any space. False when none passes the filter.
  bool takeAll(const resbuf* filter);

  /// False when the editor refuses the entity.
  bool add(const ads_name entity);

  int length() const;
  /// Name of an entity, from 0 in the order of selection. False when it can't be had.
  bool entityAt(int index, ads_name entity) const;
  /// Calls `visit(id)` in the order of selection, for all entities whose ids can be had.
  template <typename Visit>
  void forEachId(Visit visit) const {
    const int count = length();
    for (int i = 0; i < count; ++i) {
      ads_name entity = {};
      AcDbObjectId id;
      if (entityAt(i, entity) && acdbGetObjectId(id, entity) == Acad::eOk) visit(id);
    }
  }
  const ads_name& name() const { return name_; }

 private:
  bool get(const ACHAR* mode, const void* prompts, const resbuf* filter);
  void release();

  ads_name name_ = {};
};

/// The implied selection, or with none what the user selects while the grid snap is off.
/// @param prompt as in SelectionSet::prompt
/// @return false when nothing is selected
bool SelectEntities(SelectionSet& selection, const resbuf* filter, const ACHAR* prompt = nullptr);

}  // namespace kovra
