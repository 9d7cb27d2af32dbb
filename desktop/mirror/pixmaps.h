#pragma once
#include <QPixmap>

#include "platform/win/base/windows_types.h"

namespace kovra::desktop {

/// The picture of an icon; null for a handle that is no icon's.
QPixmap pixmapOf(HICON icon);

}  // namespace kovra::desktop
