#include "platform/arx/error_status.h"

#include <array>
#include <cstddef>

namespace {

// In the order of the enumeration.
constexpr std::array<const wchar_t*, 51> kNames = {
    L"eOk",
    L"eNotImplementedYet",
    L"eNotApplicable",
    L"eInvalidInput",
    L"eAmbiguousInput",
    L"eOutOfMemory",
    L"eBufferTooSmall",
    L"eInvalidOpenState",
    L"eNullHandle",
    L"eUnknownHandle",
    L"eNullObjectPointer",
    L"eNullObjectId",
    L"eNullEntityPointer",
    L"eIllegalEntityType",
    L"eKeyNotFound",
    L"eDuplicateKey",
    L"eInvalidKey",
    L"eInvalidIndex",
    L"eAlreadyInDb",
    L"eNoDatabase",
    L"eNotInDatabase",
    L"eNotThatKindOfClass",
    L"eInvalidExtents",
    L"eNullExtents",
    L"eInvalidLayer",
    L"eOnLockedLayer",
    L"eInvalidTextStyle",
    L"eInvalidOwnerObject",
    L"eInvalidBlockName",
    L"eWasErased",
    L"eWasNotErased",
    L"ePermanentlyErased",
    L"eWasOpenForRead",
    L"eWasOpenForWrite",
    L"eWasOpenForUndo",
    L"eWasNotifying",
    L"eNotOpenForRead",
    L"eNotOpenForWrite",
    L"eNotTopTransaction",
    L"eNoActiveTransactions",
    L"eInvalidAdsName",
    L"eFileNotFound",
    L"eFileAccessErr",
    L"eFilerError",
    L"eFileSharingViolation",
    L"eDwgNeedsRecovery",
    L"eNotFromThisDocument",
    L"eLockViolation",
    L"eNoDocument",
    L"eEndOfObject",
    L"unknown status",
};

}  // namespace

const wchar_t* acadErrorStatusText(Acad::ErrorStatus status) {
  const auto index = static_cast<std::size_t>(status);
  return index < kNames.size() ? kNames[index] : kNames.back();
}
