#include "adesk.h"

#include <array>
#include <cstddef>

namespace {

struct StatusText {
    Acad::ErrorStatus status;
    const ACHAR* text;
};

/// In the order of the statuses: a status is the index of its text.
constexpr std::array kTexts{
    StatusText{Acad::eOk, L"eOk"},
    StatusText{Acad::eNotImplementedYet, L"eNotImplementedYet"},
    StatusText{Acad::eNotApplicable, L"eNotApplicable"},
    StatusText{Acad::eInvalidInput, L"eInvalidInput"},
    StatusText{Acad::eAmbiguousInput, L"eAmbiguousInput"},
    StatusText{Acad::eOutOfMemory, L"eOutOfMemory"},
    StatusText{Acad::eNoInterface, L"eNoInterface"},
    StatusText{Acad::eInvalidKey, L"eInvalidKey"},
    StatusText{Acad::eNullObjectPointer, L"eNullObjectPointer"},
    StatusText{Acad::eNullHandle, L"eNullHandle"},
    StatusText{Acad::eNullObjectId, L"eNullObjectId"},
    StatusText{Acad::eInvalidObjectId, L"eInvalidObjectId"},
    StatusText{Acad::eInvalidAdsName, L"eInvalidAdsName"},
    StatusText{Acad::eUnknownHandle, L"eUnknownHandle"},
    StatusText{Acad::eHandleExists, L"eHandleExists"},
    StatusText{Acad::eHandleInUse, L"eHandleInUse"},
    StatusText{Acad::eWasErased, L"eWasErased"},
    StatusText{Acad::ePermanentlyErased, L"ePermanentlyErased"},
    StatusText{Acad::eWasOpenForRead, L"eWasOpenForRead"},
    StatusText{Acad::eWasOpenForWrite, L"eWasOpenForWrite"},
    StatusText{Acad::eWasOpenForUndo, L"eWasOpenForUndo"},
    StatusText{Acad::eWasOpenForNotify, L"eWasOpenForNotify"},
    StatusText{Acad::eWasNotifying, L"eWasNotifying"},
    StatusText{Acad::eAtMaxReaders, L"eAtMaxReaders"},
    StatusText{Acad::eIsReading, L"eIsReading"},
    StatusText{Acad::eIsWriting, L"eIsWriting"},
    StatusText{Acad::eNotOpenForRead, L"eNotOpenForRead"},
    StatusText{Acad::eNotOpenForWrite, L"eNotOpenForWrite"},
    StatusText{Acad::eNotThatKindOfClass, L"eNotThatKindOfClass"},
    StatusText{Acad::eWrongObjectType, L"eWrongObjectType"},
    StatusText{Acad::eNoDatabase, L"eNoDatabase"},
    StatusText{Acad::eNotInDatabase, L"eNotInDatabase"},
    StatusText{Acad::eAlreadyInDb, L"eAlreadyInDb"},
    StatusText{Acad::eAlreadyInGroup, L"eAlreadyInGroup"},
    StatusText{Acad::eNotInGroup, L"eNotInGroup"},
    StatusText{Acad::eWrongDatabase, L"eWrongDatabase"},
    StatusText{Acad::eNotInBlock, L"eNotInBlock"},
    StatusText{Acad::eKeyNotFound, L"eKeyNotFound"},
    StatusText{Acad::eDuplicateKey, L"eDuplicateKey"},
    StatusText{Acad::eDuplicateRecordName, L"eDuplicateRecordName"},
    StatusText{Acad::eInvalidIndex, L"eInvalidIndex"},
    StatusText{Acad::eInvalidOwnerObject, L"eInvalidOwnerObject"},
    StatusText{Acad::eNoOwner, L"eNoOwner"},
    StatusText{Acad::eOwnerNotSet, L"eOwnerNotSet"},
    StatusText{Acad::eOnLockedLayer, L"eOnLockedLayer"},
    StatusText{Acad::eCannotBeErasedByCaller, L"eCannotBeErasedByCaller"},
    StatusText{Acad::eContainerNotEmpty, L"eContainerNotEmpty"},
    StatusText{Acad::eXdataSizeExceeded, L"eXdataSizeExceeded"},
    StatusText{Acad::eRegappIdNotFound, L"eRegappIdNotFound"},
    StatusText{Acad::eBadDxfSequence, L"eBadDxfSequence"},
    StatusText{Acad::eNoFileName, L"eNoFileName"},
    StatusText{Acad::eFileNotFound, L"eFileNotFound"},
    StatusText{Acad::eFileAccessErr, L"eFileAccessErr"},
    StatusText{Acad::eFilerError, L"eFilerError"},
    StatusText{Acad::eBadDxfFile, L"eBadDxfFile"},
    StatusText{Acad::eUndoOperationNotAvailable, L"eUndoOperationNotAvailable"},
    StatusText{Acad::eNoActiveTransactions, L"eNoActiveTransactions"},
    StatusText{Acad::eNotTopTransaction, L"eNotTopTransaction"},
    StatusText{Acad::eNotNewlyCreated, L"eNotNewlyCreated"},
    StatusText{Acad::eDegenerateGeometry, L"eDegenerateGeometry"},
    StatusText{Acad::eNotFound, L"eNotFound"},
    StatusText{Acad::eCannotScaleNonUniformly, L"eCannotScaleNonUniformly"},
    StatusText{Acad::eInvalidExtents, L"eInvalidExtents"},
    StatusText{Acad::eNonPlanarEntity, L"eNonPlanarEntity"},
};

static_assert(
    [] {
        for (std::size_t i = 0; i < kTexts.size(); ++i)
            if (kTexts[i].status != static_cast<Acad::ErrorStatus>(i))
                return false;
        return kTexts.size() == std::size_t{Acad::eNonPlanarEntity} + 1;
    }(),
    "every status has its text, in order");

} // namespace

const ACHAR* acadErrorStatusText(Acad::ErrorStatus status) {
    const auto index = static_cast<std::size_t>(status);
    return index < kTexts.size() ? kTexts[index].text : L"unknown status";
}
