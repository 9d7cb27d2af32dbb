// Every change of a drawing, for undo, redo and transactions.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/dxf/record_store.h"

namespace kovra::arx {

/// The old states of the records that changed, oldest first, with boundaries between them. Whoever
/// is about to replace a record calls note first. Undo stops at the latest boundary behind which
/// something changed; boundaries without a change behind them are skipped.
class Journal {
 public:
  /// `restored` is called for each record whose state the journal put back.
  Journal(dxf::RecordStore& store, std::function<void(dxf::RecordIndex)> restored);

  /// Keeps the record's present state. The next change of a drawing forgets what could be redone.
  void note(dxf::RecordIndex record);

  /// A command begins at the idle host: what follows is one step. The name is what undo reports.
  void beginStep(std::wstring name);
  /// An undo mark: a boundary that undoBack finds.
  void setMark();
  /// Steps from here to endGroup are one. An open group is ended first.
  void beginGroup();
  void endGroup();
  bool groupOpen() const { return groupBegin_ >= 0; }
  bool hasMark() const;

  /// Takes back up to `count` steps; returns their names, latest first. Within an open group it
  /// stops at the group's beginning.
  std::vector<std::wstring> undo(int count);
  /// Takes back everything to the latest mark and removes it; without a mark, everything.
  bool undoBack();
  /// Does again what the latest undo took back; false when there is nothing.
  bool redo();
  bool canUndo() const;
  bool canRedo() const { return !undone_.empty(); }

  void startTransaction();
  bool endTransaction();
  bool abortTransaction();
  int transactions() const { return static_cast<int>(transactions_.size()); }

 private:
  struct Entry {
    dxf::RecordIndex record;
    dxf::RecordState state;
  };
  enum class BoundaryKind : std::uint8_t { kStep, kMark, kGroup };
  struct Boundary {
    std::size_t position;
    BoundaryKind kind;
    std::wstring name;
  };
  /// What one undo took back: entries with the newer states, and the boundaries that stood before
  /// them.
  struct Undone {
    std::vector<Entry> entries;
    std::vector<Boundary> boundaries;
  };

  void addBoundary(BoundaryKind kind, std::wstring name);
  bool undoTo(std::size_t position, Undone* keep);
  bool undoStep(Undone& keep, std::wstring& name);

  dxf::RecordStore& store_;
  std::function<void(dxf::RecordIndex)> restored_;
  std::vector<Entry> entries_;
  std::vector<Boundary> boundaries_;
  std::vector<Undone> undone_;
  std::vector<std::size_t> transactions_;
  std::ptrdiff_t groupBegin_ = -1;
};

}  // namespace kovra::arx
