#pragma once

#include <functional>

#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_kind.h"

class AcDbDatabase;

namespace kovra::arx {

/// Changes a record that isn't open as an object; journalled. False when nothing changed.
bool changeRecord(AcDbDatabase& database, dxf::RecordIndex record,
                  const std::function<void(RecordEdit&)>& change);

}  // namespace kovra::arx
