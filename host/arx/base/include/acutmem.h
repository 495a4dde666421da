#pragma once

#include "adsdef.h"

#include <zuhost/platform/export.h>

/// Returns a new item of the type; the caller frees it with acutRelRb.
ZUHOST_API resbuf* acutNewRb(int type);
/// Frees the item, those after it and what they own.
ZUHOST_API int acutRelRb(resbuf* chain);
/// Copies the text for `resval.rstring`; acutRelRb or acutDelString frees the copy. RTERROR and a null copy
/// for a null text.
ZUHOST_API int acutNewString(const ACHAR* text, ACHAR*& copy);
/// As above, and frees the previous text, which may be null.
ZUHOST_API int acutUpdString(const ACHAR* text, ACHAR*& copy);
ZUHOST_API void acutDelString(ACHAR*& text);
