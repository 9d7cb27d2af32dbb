#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/arx/database/object_id_set.h"
#include "platform/arx/editor/documents/keywords.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/documents/view.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/file_bytes.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

/// What acedInitGet asked for: serves the next prompt, then goes.
struct PromptControl {
  int flags = 0;
  KeywordList keywords{};
};

/// The pointer over the drawing window: the pixel, and the exact world point that was meant.
struct Cursor {
  bool known = false;
  int pixelX = 0;
  int pixelY = 0;
  AcGePoint3d point{};
  AcGePoint3d effective{};  ///< where a click would count: on the snap grid, straight from the base
};

/// The current UCS as matrices, which commands ask for with every point.
struct UcsMatrices {
  bool known = false;
  dxf::RecordState header;  ///< what they were made from
  AcGeMatrix3d toWorld;
  AcGeMatrix3d fromWorld;
};

/// Whose place a drawing takes that was opened from a copy.
struct RecoveredFrom {
  std::string file;  ///< empty: it was never saved
  /// The file as the copy continues it; nothing when that is gone, or known to be another one now.
  std::optional<dxf::FileStamp> stamp;
};

/// What belongs to an open document and isn't part of its drawing.
struct DocumentSession {
  bool closing = false;  ///< every prompt is cancelled until the document is idle
  /// Of a drawing that was opened from a copy, until it is saved.
  std::optional<RecoveredFrom> recovered;
  std::vector<std::wstring> commands;                            ///< running, outermost first
  std::wstring lastCommand;                                      ///< for a plain Enter
  std::map<std::wstring, VariableValue, std::less<>> variables;  ///< by upper-case name
  AcGePoint3d lastPoint{};                                       ///< in world coordinates
  UcsMatrices ucs;
  std::vector<AcDbObjectId> implied;   ///< the implied selection
  std::vector<AcDbObjectId> previous;  ///< the last selection made
  ObjectIdSet highlighted;
  PromptControl promptControl;
  std::wstring lastInput;  ///< keyword or text for acedGetInput
  Cursor cursor;
  std::map<bool, View>
      views;  ///< of model space (true) and of paper space; as first shown unless set
};

}  // namespace kovra::arx
