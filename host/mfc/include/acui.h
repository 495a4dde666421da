#pragma once

/// Initialises the host's library of dialogs and controls; here it needs no preparation.
inline void InitAcUiDLL() {}
