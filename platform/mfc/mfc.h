#pragma once

/// All of the class library's names that programs written for it use.
#include "platform/mfc/collections.h"
#include "platform/mfc/cstring.h"
#include "platform/mfc/extension_module.h"
#include "platform/mfc/message_boxes.h"
#include "platform/mfc/object.h"
