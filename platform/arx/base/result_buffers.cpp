// Memory of lists and texts that cross the platform's C functions.
#include <cstdarg>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>

#include "platform/arx/base/ads.h"
#include "platform/arx/base/list_values.h"
#include "platform/dxf/part_memory.h"

using kovra::arx::ListValue;
using kovra::arx::listValue;
using kovra::arx::takeListText;

namespace {

/// A text's memory begins with its size; the text itself stands so many bytes behind.
constexpr std::size_t kTextHead = alignof(std::max_align_t);

void giveBackListText(ACHAR* text) {
  if (text == nullptr) return;
  auto* part = reinterpret_cast<std::byte*>(text) - kTextHead;
  std::size_t size = 0;
  std::memcpy(&size, part, sizeof size);
  kovra::dxf::giveBackPart(part, size);
}

}  // namespace

ACHAR* kovra::arx::takeListText(std::size_t length) try {
  const std::size_t size = kTextHead + (length + 1) * sizeof(ACHAR);
  auto* part = static_cast<std::byte*>(kovra::dxf::takePart(size));
  std::memcpy(part, &size, sizeof size);
  return reinterpret_cast<ACHAR*>(part + kTextHead);
} catch (const std::bad_alloc&) {
  return nullptr;
}

// Lists of a drawing's entities come and go by the million, an element at a time.
resbuf* acutNewRb(int type) try {
  auto* element = ::new (kovra::dxf::takePart(sizeof(resbuf))) resbuf{};
  element->restype = static_cast<short>(type);
  return element;
} catch (const std::bad_alloc&) {
  return nullptr;
}

int acutRelRb(resbuf* list) {
  while (list != nullptr) {
    resbuf* next = list->rbnext;
    const ListValue kind = listValue(list->restype);
    if (kind == ListValue::kText) giveBackListText(list->resval.rstring);
    if (kind == ListValue::kBinary) std::free(list->resval.rbinary.buf);
    kovra::dxf::giveBackPart(list, sizeof(resbuf));
    list = next;
  }
  return RTNORM;
}

int acutCountRb(const resbuf* list) {
  int count = 0;
  for (; list != nullptr; list = list->rbnext) ++count;
  return count;
}

int acutNewString(const ACHAR* text, ACHAR*& copy) {
  copy = nullptr;
  if (text == nullptr) return RTERROR;
  const std::size_t length = std::wcslen(text);
  copy = takeListText(length);
  if (copy == nullptr) return RTERROR;
  std::memcpy(copy, text, (length + 1) * sizeof(ACHAR));
  return RTNORM;
}

void acutDelString(ACHAR*& text) {
  giveBackListText(text);
  text = nullptr;
}

void acutDelBuffer(void*& buffer) {
  std::free(buffer);
  buffer = nullptr;
}

namespace {

/// Takes the element's value from the arguments. False when a text can't be copied. A va_list that
/// is passed on may be an array, hence the struct.
struct Arguments {
  std::va_list list;

  bool read(resbuf& element) {
    switch (listValue(element.restype)) {
      case ListValue::kReal:
        element.resval.rreal = va_arg(list, double);
        return true;
      case ListValue::kPoint:
        std::memcpy(element.resval.rpoint, va_arg(list, const ads_real*), sizeof(ads_point));
        return true;
      case ListValue::kShort:
        element.resval.rint = static_cast<short>(va_arg(list, int));
        return true;
      case ListValue::kLong:
        element.resval.rlong = va_arg(list, int);
        return true;
      case ListValue::kInt64:
        element.resval.mnInt64 = va_arg(list, Adesk::Int64);
        return true;
      case ListValue::kText: {
        const ACHAR* text = va_arg(list, const ACHAR*);
        return acutNewString(text != nullptr ? text : L"", element.resval.rstring) == RTNORM;
      }
      case ListValue::kName:
        std::memcpy(element.resval.rlname, va_arg(list, const Adesk::IntPtr*), sizeof(ads_name));
        return true;
      case ListValue::kBinary:
      case ListValue::kNone:
        break;
    }
    return true;
  }
};

bool isKnownType(int type) {
  if (listValue(type) != ListValue::kNone) return listValue(type) != ListValue::kBinary;
  return type == RTLB || type == RTLE || type == RTDOTE || type == RTNIL || type == RTT ||
         type == RTVOID || type == kDxfXData;
}

}  // namespace

resbuf* acutBuildList(int type, ...) {
  resbuf* head = nullptr;
  resbuf** tail = &head;
  Arguments arguments;
  va_start(arguments.list, type);
  for (; type != 0 && type != RTNONE; type = va_arg(arguments.list, int)) {
    resbuf* element = isKnownType(type) ? acutNewRb(type) : nullptr;
    if (element != nullptr) {
      *tail = element;
      tail = &element->rbnext;
    }
    if (element == nullptr || !arguments.read(*element)) {
      acutRelRb(head);
      head = nullptr;
      break;
    }
  }
  va_end(arguments.list);
  return head;
}
