#pragma once

/// The platform that the text tools are written against, in one place: nothing else under module/
/// includes its headers. A build against the vendor's own SDK replaces these lines and nothing
/// more.

#include "platform/arx/ads.h"
#include "platform/arx/block_reference.h"
#include "platform/arx/block_table_record.h"
#include "platform/arx/database.h"
#include "platform/arx/dialog_bases.h"
#include "platform/arx/documents.h"
#include "platform/arx/editor.h"
#include "platform/arx/entity.h"
#include "platform/arx/entity_lists.h"
#include "platform/arx/geometry.h"
#include "platform/arx/gi.h"
#include "platform/arx/jig.h"
#include "platform/arx/message_hooks.h"
#include "platform/arx/symbol_table.h"
#include "platform/arx/text.h"
#include "platform/arx/units.h"
#include "platform/arx/wildcard.h"
#include "platform/mfc/mfc.h"
#include "platform/win/win.h"
