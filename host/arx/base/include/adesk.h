#pragma once

#include <zuhost/platform/export.h>

#include <cstdint>

using ACHAR = wchar_t;

/// Simple types of the host's interface.
struct Adesk {
    using Int8 = std::int8_t;
    using Int16 = std::int16_t;
    using Int32 = std::int32_t;
    using Int64 = std::int64_t;
    using UInt8 = std::uint8_t;
    using UInt16 = std::uint16_t;
    using UInt32 = std::uint32_t;
    using UInt64 = std::uint64_t;
    using Boolean = bool;
    using GsMarker = std::intptr_t;
    static constexpr bool kTrue = true;
    static constexpr bool kFalse = false;
};

struct AcRx {
    enum Ordering { kLessThan = -1, kEqual = 0, kGreaterThan = 1, kNotOrderable = 2 };

    /// Messages to a module's acrxEntryPoint.
    enum AppMsgCode {
        kNullMsg = 0,
        kInitAppMsg = 1,
        kUnloadAppMsg = 2,
        kLoadDwgMsg = 3,
        kUnloadDwgMsg = 4,
        kInvkSubrMsg = 5,
        kCfgMsg = 6,
        kEndMsg = 7,
        kQuitMsg = 8,
        kSaveMsg = 9,
        kDependencyMsg = 10,
        kNoDependencyMsg = 11,
        kOleUnloadAppMsg = 12,
        kPreQuitMsg = 13,
        kInitDialogMsg = 14,
        kEndDialogMsg = 15
    };

    enum AppRetCode { kRetOK = 0, kRetError = 3 };
};

/// Results of operations on the drawing database. Their numeric values carry no meaning.
struct Acad {
    enum ErrorStatus {
        eOk = 0,
        eNotImplementedYet,
        eNotApplicable,
        eInvalidInput,
        eAmbiguousInput,
        eOutOfMemory,
        eNoInterface,
        eInvalidKey,
        eNullObjectPointer,
        eNullHandle,
        eNullObjectId,
        eInvalidObjectId,
        eInvalidAdsName,
        eUnknownHandle,
        eHandleExists,
        eHandleInUse,
        eWasErased,
        ePermanentlyErased,
        eWasOpenForRead,
        eWasOpenForWrite,
        eWasOpenForUndo,
        eWasOpenForNotify,
        eWasNotifying,
        eAtMaxReaders,
        eIsReading,
        eIsWriting,
        eNotOpenForRead,
        eNotOpenForWrite,
        eNotThatKindOfClass,
        eWrongObjectType,
        eNoDatabase,
        eNotInDatabase,
        eAlreadyInDb,
        eAlreadyInGroup,
        eNotInGroup,
        eWrongDatabase,
        eNotInBlock,
        eKeyNotFound,
        eDuplicateKey,
        eDuplicateRecordName,
        eInvalidIndex,
        eInvalidOwnerObject,
        eNoOwner,
        eOwnerNotSet,
        eOnLockedLayer,
        eCannotBeErasedByCaller,
        eContainerNotEmpty,
        eXdataSizeExceeded,
        eRegappIdNotFound,
        eBadDxfSequence,
        eNoFileName,
        eFileNotFound,
        eFileAccessErr,
        eFilerError,
        eBadDxfFile,
        eUndoOperationNotAvailable,
        eNoActiveTransactions,
        eNotTopTransaction,
        eNotNewlyCreated,
        eDegenerateGeometry,
        eNotFound,
        eCannotScaleNonUniformly,
        eInvalidExtents,
        eNonPlanarEntity
    };
};

/// Returns the name of a status, for messages.
ZUHOST_API const ACHAR* acadErrorStatusText(Acad::ErrorStatus status);

/// Returns whether the status is eOk.
inline bool eOkVerify(Acad::ErrorStatus status) {
    return status == Acad::eOk;
}
