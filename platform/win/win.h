#pragma once

/// All of the windowing platform's names that programs written for it use.
#include "platform/win/base/global_memory.h"
#include "platform/win/base/messages.h"
#include "platform/win/base/registry.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/base/windows_types.h"
#include "platform/win/controls/painting.h"
#include "platform/win/controls/tab_messages.h"
#include "platform/win/dialogs/message_box.h"
#include "platform/win/resources/cursors.h"
#include "platform/win/resources/icons.h"
#include "platform/win/resources/resources.h"
#include "platform/win/windows/clipboard.h"
#include "platform/win/windows/input_method.h"
#include "platform/win/windows/menus.h"
#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window_api.h"
