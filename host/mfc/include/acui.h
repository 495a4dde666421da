#pragma once

/// Initialises the host's library of dialogs and controls, which needs no preparation here.
inline void InitAcUiDLL() {}
