#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/dxf/file_bytes.h"
#include "platform/dxf/part_memory.h"
#include "platform/dxf/record_order.h"
#include "platform/dxf/record_overlay.h"
#include "platform/dxf/record_scan.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/record_table.h"

namespace kovra::dxf {

/// The parts of a RecordStore.
struct RecordStore::Impl {
  /// The state of a record that was changed at some time, and what the file on disk has of it.
  struct Slot {
    RecordState now;
    RecordState saved;
  };

  Impl(FileBytes bytes, ScannedFile scanned)
      : file(std::move(bytes)),
        records(std::move(scanned.records)),
        structural(std::move(scanned.structural)),
        recordsEnd(scanned.recordsEnd),
        greatestHandle(scanned.greatestHandle),
        originals(static_cast<RecordIndex>(records.size())),
        handles(records),
        order(originals) {
    slots.emplace_back();
  }

  std::string_view original(RecordIndex record) const {
    if (record >= originals) return {};
    const std::uint64_t begin = records[record].begin();
    const std::uint64_t end = record + 1 < originals ? records[record + 1].begin() : recordsEnd;
    return file.view().substr(begin, end - begin);
  }
  const RecordState& state(RecordIndex record) const { return slots[records.slot(record)].now; }
  Slot& slotOf(RecordIndex record) {
    if (records.slot(record) == 0) {
      records.setSlot(record, static_cast<std::uint32_t>(slots.size()));
      slots.emplace_back();
    }
    return slots[records.slot(record)];
  }
  void fill(RecordIndex record, std::string& out) const {
    const std::string_view bytes = original(record);
    const RecordOverlay* overlay = state(record).overlay.get();
    if (overlay == nullptr) {
      out.append(bytes);
      return;
    }
    out.append(bytes.substr(0, overlay->head));
    out.append(overlay->middle);
    out.append(bytes.substr(bytes.size() - overlay->tail));
  }

  /// Moments of all stores, so that none is like another's.
  static std::uint64_t newMoment() {
    static std::uint64_t last = 0;
    return ++last;
  }

  FileBytes file;
  RecordTable records;
  std::vector<RecordIndex> structural;
  std::uint64_t recordsEnd;
  std::uint64_t greatestHandle;
  RecordIndex originals;
  mutable HandleMap handles;
  mutable bool handlesMapped = false;
  RecordOrder order;
  std::deque<Slot, PartAllocator<Slot>> slots;  ///< slot 0 stands for all records as in the file
  std::uint64_t moment = newMoment();           ///< a new one with each change
  std::size_t differing = 0;                    ///< records that aren't what the file on disk has
  OverlayBuilder overlays;
  std::string newBytes;  ///< of the record being inserted; keeps its memory for the next one
  std::vector<StoreListener*> listeners;
  std::uint64_t nextHandle = 0;  ///< 0: not asked for yet
  std::string path;
  std::optional<FileStamp> stamp;
};

}  // namespace kovra::dxf
