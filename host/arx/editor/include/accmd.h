#pragma once

#include "rxdlinkr.h"

#include <zuhost/platform/export.h>

/// The function that a command runs.
using AcRxFunctionPtr = void (*)();

inline constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x00000000;
inline constexpr Adesk::Int32 ACRX_CMD_TRANSPARENT = 0x00000001;
inline constexpr Adesk::Int32 ACRX_CMD_USEPICKSET = 0x00000002;
inline constexpr Adesk::Int32 ACRX_CMD_REDRAW = 0x00000004;
inline constexpr Adesk::Int32 ACRX_CMD_SESSION = 0x00200000;

/// The registered commands, in groups. Names are compared ignoring the case of ASCII letters.
class ZUHOST_API AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);

    /// Registers a command under its global and its local name; a null or empty local name is the global one.
    /// The flags have no effect. eInvalidInput for an empty group or global name or a null function,
    /// eDuplicateKey when the group has the command already.
    virtual Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName,
                                         Adesk::Int32 flags, AcRxFunctionPtr function);
    /// Both return eKeyNotFound when there is no command or group of that name.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName);
    virtual Acad::ErrorStatus removeGroup(const ACHAR* group);
};

namespace zuhost {
ZUHOST_API AcEdCommandStack& commandStack();
}

inline constexpr zuhost::Service<AcEdCommandStack, zuhost::commandStack> acedRegCmds;
