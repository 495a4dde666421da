#pragma once

#include "acutads.h"
#include "dbid.h"

#include <zuhost/platform/export.h>

#include <cstddef>

// Objects of the working database by name (ads_name) and as chains of their records. A name stays valid as
// long as its database is open, and is refused afterwards.

/// Sets the name of an object; eNullObjectId, and no name, for the null id.
ZUHOST_API Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id);
/// Returns the object with the name, erased or not; eInvalidAdsName, and the null id, when there is none.
ZUHOST_API Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
/// Sets the name of the object with the hexadecimal handle, erased or not; RTERROR when there is none.
ZUHOST_API int acdbHandEnt(const ACHAR* handle, ads_name name);

// ---- numbers as text, in the units of the working drawing

// Units of lengths: 1 scientific, 2 decimal, 3 engineering (feet and decimal inches), 4 architectural (feet
// and fractions of inches), 5 fractional. Units of angles: 0 degrees, 1 degrees, minutes and seconds, 2
// grads, 3 radians, 4 bearings. -1 stands for the drawing's (LUNITS, AUNITS), as precision too (LUPREC,
// AUPREC). Angles are in radians; their texts measure from ANGBASE in the direction of ANGDIR. DIMZIN
// suppresses zeros.

/// Writes a length as text; a longer text is cut. RTERROR for unknown units, a number that is not finite, or
/// no buffer.
ZUHOST_API int acdbRToS(ads_real value, int unit, int precision, ACHAR* text, std::size_t size);
/// Writes an angle as text.
ZUHOST_API int acdbAngToS(ads_real angle, int unit, int precision, ACHAR* text, std::size_t size);
/// Parses a length: a number, feet and inches (1'-3.5", 1'3-1/2") or a number with a fraction (15-1/2, 15
/// 1/2); the unit only makes plain numbers before "'" feet. RTERROR, and the result unchanged, for other
/// texts.
ZUHOST_API int acdbDisToF(const ACHAR* text, int unit, ads_real* value);
/// Parses an angle: "45", "45d30'15\"", "50g", "0.785r" or "N 45d E"; a plain number is in the unit.
ZUHOST_API int acdbAngToF(const ACHAR* text, int unit, ads_real* angle);

template <typename Buffer>
int acdbRToS(ads_real value, int unit, int precision, Buffer&& text) {
    return acdbRToS(value, unit, precision, text, zuhost::bufferSize<Buffer>());
}
template <typename Buffer>
int acdbAngToS(ads_real angle, int unit, int precision, Buffer&& text) {
    return acdbAngToS(angle, unit, precision, text, zuhost::bufferSize<Buffer>());
}

/// Prints "Application ERROR: " and the message on the command line; the command goes on.
ZUHOST_API void acdbFail(const ACHAR* message);

// ---- records of symbol tables as chains: type (0), name (2) and the values that drawings of all versions
// have

/// Returns the list of the record, which the caller frees; of a block that of its BLOCK and its first entity
/// (-2). Null when there is none. `table` is "LAYER", "LTYPE", "STYLE", "BLOCK", "APPID" ...; with `setNext`
/// acdbTblNext continues after the record.
[[nodiscard]] ZUHOST_API resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext);
/// Returns the list of the next record, of the first with `rewind`; null at the end. A table that was not
/// asked for last begins anew.
[[nodiscard]] ZUHOST_API resbuf* acdbTblNext(const ACHAR* table, int rewind);

// ---- entities as chains of their records: group codes and values, points as one item, handles as names

/// Returns the entity's list, which the caller frees: its name (-1), type (0) and records without extended
/// data. Null for a name without an object and for an erased one.
[[nodiscard]] ZUHOST_API resbuf* acdbEntGet(const ads_name entity);
/// The same with the extended data (-3, then 1001 items) of the applications whose names, which may have
/// wildcards, are the texts of the chain `applications`.
[[nodiscard]] ZUHOST_API resbuf* acdbEntGetX(const ads_name entity, const resbuf* applications);
/// Changes the entity that the list names to the list's values: the n-th item with a code replaces the
/// entity's n-th; a code's missing items are removed when the list has any with it; codes that the list lacks
/// stay, and so do type, handle and owner. Extended data (-3) replaces that of its applications. A layer that
/// the drawing lacks is added. RTERROR for a list without a name (-1), an entity that can't be opened for
/// write, and values that are not valid.
ZUHOST_API int acdbEntMod(const resbuf* list);
/// Adds an entity of the list's type to model space, or to the block that a list of type BLOCK began; ENDBLK
/// ends it, and VERTEX, ATTRIB and SEQEND belong to the entity before them. Layer 0 and the class markers are
/// added when the list lacks them. RTERROR for a list without a type and for what has no place there.
ZUHOST_API int acdbEntMake(const resbuf* list);
/// Erases the entity, or takes its erasing back. RTERROR when it can't be opened for write.
ZUHOST_API int acdbEntDel(const ads_name entity);
/// Sets the name of the entity after `entity` in model space, vertices and attributes included, of the first
/// one for null. RTERROR at the end. Skips erased entities.
ZUHOST_API int acdbEntNext(const std::int64_t* entity, ads_name result);
/// Sets the name of the entity of model space drawn last; RTERROR when there is none.
ZUHOST_API int acdbEntLast(ads_name result);
/// Does nothing: nothing is displayed. RTERROR for a name without an object.
ZUHOST_API int acdbEntUpd(const ads_name entity);
