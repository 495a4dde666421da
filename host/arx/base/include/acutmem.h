#pragma once

#include "adsdef.h"

/// Returns a new item of the type; the caller frees it with acutRelRb.
resbuf* acutNewRb(int type);
/// Frees the item, those after it and what they own.
int acutRelRb(resbuf* chain);
/// Copies the text for `resval.rstring`; acutRelRb or acutDelString frees the copy. RTERROR and a null copy
/// for a null text.
int acutNewString(const ACHAR* text, ACHAR*& copy);
/// As above, and frees the previous text, which may be null.
int acutUpdString(const ACHAR* text, ACHAR*& copy);
void acutDelString(ACHAR*& text);
