#pragma once

#include "rxclass.h"
#include "zuhost/service.h"

/// What a command runs.
using AcRxFunctionPtr = void (*)();

inline constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x00000000;
inline constexpr Adesk::Int32 ACRX_CMD_TRANSPARENT = 0x00000001;
inline constexpr Adesk::Int32 ACRX_CMD_USEPICKSET = 0x00000002;
inline constexpr Adesk::Int32 ACRX_CMD_REDRAW = 0x00000004;
inline constexpr Adesk::Int32 ACRX_CMD_SESSION = 0x00200000;

/// The commands that modules registered, in groups. Names are compared without regard to the case of ASCII
/// letters.
class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);

    /// Registers a command under its global and its local name (null: the same). The flags are kept for
    /// callers that ask; nothing depends on them. eInvalidInput for an empty name or no function,
    /// eDuplicateKey when the group has the command.
    virtual Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName,
                                         Adesk::Int32 flags, AcRxFunctionPtr function);
    /// Each eKeyNotFound when there is none of that name.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName);
    virtual Acad::ErrorStatus removeGroup(const ACHAR* group);

    /// What a name typed by the user runs: a local name, or a global one after "_"; null when there is none.
    /// With the same name in several groups the group registered last counts.
    [[nodiscard]] AcRxFunctionPtr lookup(const ACHAR* name) const;
};

namespace zuhost {
AcEdCommandStack& commandStack();
}

inline constexpr zuhost::Service<AcEdCommandStack, zuhost::commandStack> acedRegCmds;
