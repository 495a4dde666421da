#pragma once

#include "acutads.h"

#include <zuhost/platform/export.h>

// Input from the user. Prompts are printed on the command line, each with its answer. Headless, answers are
// the words that were sent (acedCommandS, sendStringToExecute), then those of the input source
// (zuhost/input.h). A word ends with a blank or a line end; a word without characters is a plain Enter. An
// answer that a function can't use is reported, and the prompt repeated, up to 100 times; then the function
// returns RTERROR.
//
// All return RTNORM with a value, RTNONE for a plain Enter, RTKWORD for a keyword of the last acedInitGet
// (acedGetInput returns it), RTCAN when the input ends or holds a Ctrl-C or Escape, RTERROR for a null
// result. Other than with RTNORM the result is unchanged. Null prompts are not printed.

/// Determines for the next input function which values it refuses (RSG flags) and which keywords it accepts:
/// names separated by blanks, each abbreviated to its capital letters or to the form after a comma
/// ("LType,LT"). Names after
/// "_" are the ones returned ("Ja Nein _Yes No"). RTERROR for unknown flags.
ZUHOST_API int acedInitGet(int flags, const ACHAR* keywords);

/// Copies the keyword that the last input function returned.
ZUHOST_API int acedGetInput(ACHAR* keyword, std::size_t size);

/// A real number; feet and inches and fractions are accepted as acdbDisToF accepts them.
ZUHOST_API int acedGetReal(const ACHAR* prompt, ads_real* result);
/// An integer of 16 bits.
ZUHOST_API int acedGetInt(const ACHAR* prompt, int* result);
/// Accepts keywords only. RTERROR without keywords of acedInitGet.
ZUHOST_API int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t size);
/// A line of text, or a word unless `allowsBlanks`; a plain Enter is an empty text. A longer text is cut.
ZUHOST_API int acedGetString(int allowsBlanks, const ACHAR* prompt, ACHAR* result, std::size_t size);
/// A point "x,y" or "x,y,z", relative to the base point, or else the last point, with "@", polar as
/// "distance<angle";
/// "@" alone is the last point. Coordinates are of the world. `base` may be null.
ZUHOST_API int acedGetPoint(const ads_real* base, const ACHAR* prompt, ads_point result);
/// As above; a base point is required.
ZUHOST_API int acedGetCorner(const ads_real* base, const ACHAR* prompt, ads_point result);
/// A distance, or a point at the distance from the base point; without one, two points.
ZUHOST_API int acedGetDist(const ads_real* base, const ACHAR* prompt, ads_real* result);
/// An angle in radians from the direction of ANGBASE, entered in the units of AUNITS, or a point (two without
/// a base point) in its direction. acedGetOrient measures from the x axis.
ZUHOST_API int acedGetAngle(const ads_real* base, const ACHAR* prompt, ads_real* result);
ZUHOST_API int acedGetOrient(const ads_real* base, const ACHAR* prompt, ads_real* result);

/// The same with an array; a buffer of unknown size holds at least 133 characters.
template <typename Buffer>
int acedGetInput(Buffer&& keyword) {
    return acedGetInput(keyword, zuhost::bufferSize<Buffer>());
}
template <typename Buffer>
int acedGetKword(const ACHAR* prompt, Buffer&& result) {
    return acedGetKword(prompt, result, zuhost::bufferSize<Buffer>());
}
template <typename Buffer>
int acedGetString(int allowsBlanks, const ACHAR* prompt, Buffer&& result) {
    return acedGetString(allowsBlanks, prompt, result, zuhost::bufferSize<Buffer>());
}

// ---- functions for scripts are not modelled: nothing calls them. Write a command (accmd.h).

/// Returns the arguments of the function that a script called: null, as for a call without any.
inline resbuf* acedGetArgs() {
    return nullptr;
}
/// Return RTERROR: there is no call to answer, and no function to be defined.
inline int acedGetFunCode() {
    return RTERROR;
}
inline int acedDefun(const ACHAR* /*name*/, int /*code*/) {
    return RTERROR;
}
inline int acedUndef(const ACHAR* /*name*/, int /*code*/) {
    return RTERROR;
}
inline int acedRetVoid() {
    return RTERROR;
}
inline int acedRetNil() {
    return RTERROR;
}
inline int acedRetT() {
    return RTERROR;
}
inline int acedRetInt(int /*value*/) {
    return RTERROR;
}
inline int acedRetReal(ads_real /*value*/) {
    return RTERROR;
}
inline int acedRetStr(const ACHAR* /*text*/) {
    return RTERROR;
}
inline int acedRetList(const resbuf* /*chain*/) {
    return RTERROR;
}

/// Prints a text as it is; RTERROR for a null one.
ZUHOST_API int acedPrompt(const ACHAR* text);
/// Shows a message box (zuhost/message_box.h); headless programs print it.
ZUHOST_API int acedAlert(const ACHAR* text);

/// Nothing is displayed: there is nothing to redraw, and vectors can't be drawn (RTERROR).
inline int acedRedraw(const ads_name /*entity*/, int /*mode*/) {
    return RTNORM;
}
inline int acedGrDraw(const ads_point /*from*/, const ads_point /*to*/, int /*color*/, int /*highlight*/) {
    return RTERROR;
}
inline void acedUpdateDisplay() {}

/// Runs a command with the values as its name and its answers; those left over are further commands. A name
/// of an entity or a selection set answers a selection. RTERROR when there is no such command, when it fails
/// or asks for more than was given, and for a pause ("\\").
ZUHOST_API int acedCmdS(const resbuf* chain);
template <typename... Arguments>
int acedCommandS(int type, const Arguments&... arguments) {
    resbuf* const chain = acutBuildList(type, arguments...);
    const int result = chain != nullptr || type == RTNONE || type == 0 ? acedCmdS(chain) : RTERROR;
    acutRelRb(chain);
    return result;
}

/// Returns a system variable: one of the session, or one that the working drawing's header has under the same
/// name. The caller frees a text (acutDelString). RTERROR when there is none of that name.
ZUHOST_API int acedGetVar(const ACHAR* name, resbuf* value);
/// RTERROR for an unknown or read-only variable and a value of another kind or out of range.
ZUHOST_API int acedSetVar(const ACHAR* name, const resbuf* value);

/// Finds a file: a full path, or a name in the current folder, the drawing's, the program's or the host's;
/// RTERROR when there is none or its path does not fit.
ZUHOST_API int acedFindFile(const ACHAR* name, ACHAR* result, std::size_t size);
template <typename Buffer>
int acedFindFile(const ACHAR* name, Buffer&& result) {
    constexpr std::size_t kPath = 260;
    return acedFindFile(name, result, zuhost::bufferSize<Buffer, kPath>());
}

/// Asks for an entity: its expression (handent "2F"), "L" for the one drawn last, or a point that it passes
/// through, of several the one drawn last. A point of a block reference or a text is one within its extents.
/// `point` is the point entered, else the entity's first one. RTERROR when there is none (ERRNO 7) and for a
/// plain Enter (ERRNO 52).
ZUHOST_API int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);

// ---- selection sets: up to 128 at a time, each until acedSSFree

/// Selects entities that the filter admits into a new set, the newest first, which the caller frees. Modes:
/// - "X": all of model and paper space; "A": all of model space that is not on a frozen layer;
/// - "W", "C": those within, or within or crossing, the rectangle of two points (ads_point);
/// - "WP", "CP", "F": those within a polygon, within or crossing it, crossing a fence; `point1` is a chain of
///   points;
/// - "L": the entity drawn last; "P": those selected before; "I": none, as nothing is selected before a
///   command;
/// - null with a point: the entity there; null without one: those that the user selects.
///
/// A prefix "_" is ignored. What is selected by its place, or as the last entity, is on a layer that is
/// neither off nor frozen. Curves of all classes, splines, the boundaries of hatches, leaders, solids, faces,
/// points, texts (by their approximate frames) and, with their content, block references and dimensions have
/// a place; other entities have none.
///
/// The filter is a chain of group codes and values that an entity's list (acdbEntGet) must have:
/// - texts may have wildcards and, but for code 1, ignore case;
/// - (-4, operator) before an item compares otherwise: = != /= <> < <= > >= & &= *, for points one for each
///   coordinate, as ">,>,*";
/// - (-4, "<AND") ... (-4, "AND>") group items, likewise OR, XOR and NOT;
/// - (-3) before (1001, name) asks for extended data of an application.
///
/// RTERROR when nothing is selected and for an invalid mode, point or filter, RTCAN when the user cancels.
ZUHOST_API int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter,
                         ads_name set);

/// Adds an entity to a set, which `result` then names. Without a set (null) makes a new one; without an
/// entity as well, an empty one. RTERROR for an erased entity.
ZUHOST_API int acedSSAdd(const std::int64_t* entity, const std::int64_t* set, ads_name result);
/// RTERROR when the entity is not a member.
ZUHOST_API int acedSSDel(const ads_name entity, const ads_name set);
ZUHOST_API int acedSSLength(const ads_name set, Adesk::Int32* length);
/// Returns RTNORM for a member, else RTERROR.
ZUHOST_API int acedSSMemb(const ads_name entity, const ads_name set);
/// Sets the name of the member at an index from 0.
ZUHOST_API int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
ZUHOST_API int acedSSFree(const ads_name set);
