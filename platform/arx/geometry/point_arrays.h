#pragma once
#include "platform/arx/base/array.h"
#include "platform/arx/geometry/geometry.h"

using AcGePoint3dArray = AcArray<AcGePoint3d>;
