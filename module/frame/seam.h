#pragma once

/// The platform that the text tools are written against, in one place: nothing else under module/
/// includes its headers. A build against the vendor's own SDK replaces these lines and nothing
/// more.

#include "platform/arx/base/ads.h"
#include "platform/arx/base/heap.h"
#include "platform/arx/base/wildcard.h"
#include "platform/arx/database/block_table_record.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/database/id_mapping.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/database/transaction_manager.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/editor/host/dialog_bases.h"
#include "platform/arx/editor/host/message_hooks.h"
#include "platform/arx/editor/picks/jig.h"
#include "platform/arx/entities/block_reference.h"
#include "platform/arx/entities/mtext.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/arx/geometry/gi.h"
#include "platform/arx/geometry/point_arrays.h"
#include "platform/arx/geometry/units.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/mfc/mfc.h"
#include "platform/spread/spread.h"
#include "platform/win/win.h"
