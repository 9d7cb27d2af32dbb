#pragma once

/// All of the windowing platform's names that programs written for it use.
#include "platform/win/cursors.h"
#include "platform/win/icons.h"
#include "platform/win/input_method.h"
#include "platform/win/message_box.h"
#include "platform/win/messages.h"
#include "platform/win/painting.h"
#include "platform/win/registry.h"
#include "platform/win/resources.h"
#include "platform/win/system_metrics.h"
#include "platform/win/wide_text.h"
#include "platform/win/window_api.h"
#include "platform/win/windows_types.h"
