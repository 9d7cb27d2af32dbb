#pragma once

/// All of the class library's names that programs written for it use.
#include "platform/mfc/collections.h"
#include "platform/mfc/controls.h"
#include "platform/mfc/cstring.h"
#include "platform/mfc/data_exchange.h"
#include "platform/mfc/dialog.h"
#include "platform/mfc/extension_module.h"
#include "platform/mfc/frame.h"
#include "platform/mfc/menu.h"
#include "platform/mfc/message_boxes.h"
#include "platform/mfc/message_map.h"
#include "platform/mfc/object.h"
#include "platform/mfc/rectangles.h"
#include "platform/mfc/tool_tip.h"
#include "platform/mfc/wnd.h"
