#pragma once

#include "module/drawing/text_list.h"
#include "module/frame/seam.h"

/// Look-ups in the text-style table of the current database. Failure is a result; nothing is shown.
namespace kovra {

/// @return 0, or -1 when the table can't be opened or lacks the name
int GTxtStyId(const ACHAR* name, AcDbObjectId& id);

/// Name of a style. The buffer must hold any style name (256 characters).
/// @return 0, or -1 with an empty buffer
int GTxtStyName(const AcDbObjectId& id, ACHAR* buffer);

/// Appends the names of all text styles in table order; styles without a name are left out.
/// @return 0, or -1 when a style or the table couldn't be read
int GTxtStyL(TextList& names);

/// A real of a text style, such as AcDbTextStyleTableRecord::xScale or textSize.
using TextStyleAccessor = double (AcDbTextStyleTableRecord::*)() const;

/// @return the style's value, or `fallback` when it can't be found or opened
double TextStyleValue(const ACHAR* name, double fallback, TextStyleAccessor accessor);

/// False also when the style can't be found or opened.
bool IsVerticalStyle(const ACHAR* name);

using TextStyleCallback = void (*)(void* context, AcDbTextStyleTableRecord* style);

/// Hands each style that can be opened for read to `callback`, in table order.
/// @return whether the table could be opened
bool ForEachTextStyle(void* context, TextStyleCallback callback);

}  // namespace kovra
