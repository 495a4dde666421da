#pragma once

#include "export.h"

#include <acarray.h>
#include <afxcoll.h>
#include <dbid.h>
#include <gepnt3d.h>

// Routes: elements placed as block references, their connection points, the groups that tie the elements of a
// route together, and the search for connected elements.
//
// Functions of type int return 0 on success and -1 on failure, with outputs untouched, unless stated
// otherwise. No function shows a message; all of them close the objects that they open. Lengths are in
// drawing units. Connection points lie in plan (Z is 0), and the height of a point compared with them is
// ignored. Group names refer to the group dictionary of the working drawing. Pointers to outputs may be null.

// ---- elements

/// Determines what an element is from the prefix of its block name, ignoring case: 0 equipment ("KK"), 1
/// route line ("RT"), 2 main route line ("RTM"), 100 for a name without an element prefix, other codes
/// fittings. Returns -1 when the element is no block reference or cannot be opened.
ZUCOMN_API int ZuComn_GetBlockElementCode(const AcDbObjectId& element, int& code);

/// Replaces `points` by the element's connection points: the points of its own block definition on the given
/// layer (null or empty: the connection layer), in the order of the definition. Also stores them in `text`,
/// one "x,y" per line. Returns -1, with `points` empty, when the element is no block reference, or when it,
/// its definition or a point of that cannot be opened.
ZUCOMN_API int ZuComn_GetConnectPoint(const AcDbObjectId& element, AcArray<AcGePoint3d>& points,
                                      const wchar_t* layer = nullptr, CString* text = nullptr);

/// Stores the link kind, 0 to 6, of the element's "ZU_LINK" record; -1 when it has none. Always returns 0.
ZUCOMN_API int RootComn_GetBlockRootKind(const AcDbObjectId& element, int* kind);

/// Stores the route kind of a group: the link kind of its first member whose kind is not 0; a member without
/// a link record counts as -1. Returns 0 for kinds 1 to 4, else -1 with the last kind read in `*kind`.
/// Returns -1 with `*kind` untouched when the group cannot be opened or is empty.
ZUCOMN_API int RootComn_GetRootKind(const AcDbObjectId& group, int* kind);
/// Does the same for a group given by name.
ZUCOMN_API int RootComn_GetRootKind(const CString& groupName, int* kind);
/// Works as RootComn_GetRootKind, but takes the first kind above 0 and also returns 0 for kind 0.
ZUCOMN_API int RootComn_GetRootKind2(const AcDbObjectId& group, int* kind);

/// Returns the number, from 0, of the element's connection point within the connection tolerance of the
/// point, the last if there are several; -1 when there is none. `count` receives the number of connection
/// points.
ZUCOMN_API int RootComn_GetConnectPointNo(const AcDbObjectId& element, const AcGePoint3d& point, int& count);

/// Stores the connection point nearest to the point, the first of equally near ones, and its distance.
/// Returns -1 when the element has no connection points or they cannot be read.
ZUCOMN_API int RootComn_GetNearConnectPoint(const AcDbObjectId& element, const AcGePoint3d& point,
                                            AcGePoint3d& nearest, double* distance);

/// Returns 1 when `joined` states correctly whether a connection point of the element lies within the
/// connection tolerance of the point, else 0; -1 when the points cannot be read.
ZUCOMN_API int RootComn_GetNearConnectPointInOutCheck(const AcDbObjectId& element, const AcGePoint3d& point,
                                                      bool joined);

/// Sets `which` to 1 when b is strictly nearer to p than a, else to 0. Returns 0.
ZUCOMN_API int RootComn_GetNearPointToPoint(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b,
                                            int& which);

/// Reads the insertion point of a block reference.
ZUCOMN_API int RootComn_GetOriginPoint(const AcDbObjectId& element, AcGePoint3d& origin);
/// Moves the insertion point of a block reference.
ZUCOMN_API int RootComn_SetOriginPoint(const AcDbObjectId& element, const AcGePoint3d& origin);

/// Reads the heights of an element from its attributes. The block name determines `kind`:
///
/// - 0, equipment ("KK-"): no heights are stored.
/// - 4 ("RBS-"): from S401 to S401 + S304.
/// - 3 ("RT-", "RTM-"): both heights are S401.
/// - 2, other elements with an S402 that is not 0: no heights are stored, so that callers keep their own.
/// - 1, all others: both heights are S401.
///
/// "KK-" is compared in upper case only, so that existing blocks such as "kk-tank" keep their heights; the
/// other prefixes ignore case. Returns -1 when the element is no block reference or cannot be opened.
ZUCOMN_API int RootComn_GetOBlockHeight(const AcDbObjectId& element, int& kind, double& low, double& high);

/// Returns the angle of the direction from b to a in radians. The reversed order is intended.
ZUCOMN_API double RootComn_Get2PointRadian(const AcGePoint3d& a, const AcGePoint3d& b);
/// Returns the angle of the direction from b to a in degrees, in [0, 360).
ZUCOMN_API double RootComn_Get2PointAngle(const AcGePoint3d& a, const AcGePoint3d& b);

/// Stores the point (x + distance, y) rotated about (x, y) by an angle in degrees. Returns 0.
ZUCOMN_API int RootComn_PointRotation(double x, double y, double distance, double angle, double* outX,
                                      double* outY);
/// Stores the point centre + (distance, 0, 0) rotated about the Z axis through the centre. The angle is in
/// degrees and normalised first, see ZUComn_AngleAptitude. Returns 0.
ZUCOMN_API int RootComn_PointRotation2(const AcGePoint3d& centre, double distance, double angle,
                                       AcGePoint3d& out);
/// Works as RootComn_PointRotation2 with an angle in radians, not normalised.
ZUCOMN_API int RootComn_PointRotation3(const AcGePoint3d& centre, double distance, double angle,
                                       AcGePoint3d& out);
/// Works as RootComn_PointRotation2 without normalising the angle.
ZUCOMN_API int RootComn_PointRotation4(const AcGePoint3d& centre, double distance, double angle,
                                       AcGePoint3d& out);

// ---- route groups
//
// A route group is anonymous ("*A" and a number) or named "RTGR" and five digits. Only the members that a
// group lists count: an element that merely has the group among its reactors is not a member, and repeated
// entries count once.
//
// An element is in at most one route group of each route kind (1 to 4). The repairs below restore this rule:
// the element stays in the group with the lowest number (the earlier of equal ones) and is removed from the
// others; groups that become empty are deleted.
//
// Merges and repairs are atomic: when an object that they would read or change is open elsewhere, they return
// -1 and the drawing is unchanged.

/// Ties elements into one route group. Without a route group among `existingGroups`, more than one element
/// makes a new anonymous group. Otherwise the lowest-numbered route group takes over the members of the
/// others, which are deleted, and the elements that are not members yet are inserted at its front in reverse
/// order. Finally, elements of link kind 0 are repaired. Erased and missing elements are skipped.
///
/// Returns 0 on success, also when there is nothing to do; -1, with the drawing unchanged, when one of the
/// existing groups is missing or cannot be opened, or when another object to be changed is open elsewhere.
ZUCOMN_API int RootComn_MakeGroup(const AcArray<AcDbObjectId>& elements,
                                  const AcArray<AcDbObjectId>& existingGroups);

/// Creates a group in the group dictionary with the elements in order, each once; the name "*" makes it
/// anonymous. The name is also the group's description. Returns -1, with nothing created, when there are no
/// live elements, one of them is open elsewhere, or the name is in use or empty.
ZUCOMN_API int RootComn_CreateNewGroup(const CString& name, const AcArray<AcDbObjectId>& elements,
                                       AcDbObjectId& newGroup, bool selectable);
/// Creates a group with one element in the same way.
ZUCOMN_API int RootComn_CreateNewGroup(const CString& name, const AcDbObjectId& element,
                                       AcDbObjectId& newGroup, bool selectable);
/// Stores "*", the name that makes new route groups anonymous. Returns 0.
ZUCOMN_API int RootComn_GetNewGroupName(CString& name);

/// Inserts the element at the front of the group. An element that is a member already keeps its position.
ZUCOMN_API int RootComn_AddGroupMember(const CString& groupName, const AcDbObjectId& element);
/// Does the same for a group given by id.
ZUCOMN_API int RootComn_AddGroupMember(const AcDbObjectId& group, const AcDbObjectId& element);
/// Removes the element from the group. Returns -1 when it is no member.
ZUCOMN_API int RootComn_DelGroupMember(const AcDbObjectId& group, const AcDbObjectId& element);
/// Removes the element from the group and stores the group's name and the number of remaining members.
ZUCOMN_API int RootComn_DelGroupMember(const AcDbObjectId& group, const AcDbObjectId& element, CString& name,
                                       int* remaining);
/// Does the same for a group given by name.
ZUCOMN_API int RootComn_DelGroupMember(const CString& groupName, const AcDbObjectId& element, CString& name,
                                       int* remaining);
/// Deletes the group; its members stay in the drawing.
ZUCOMN_API int RootComn_DelGroup(const CString& groupName);
/// Does the same for a group given by id.
ZUCOMN_API int RootComn_DelGroup(const AcDbObjectId& group);

/// Replaces `members` by the ids of all members in group order.
ZUCOMN_API int RootComn_GetGroupMember(const AcDbObjectId& group, AcArray<AcDbObjectId>& members);
/// Stores the number of members.
ZUCOMN_API int RootComn_GetGroupSize(const CString& groupName, int* size);
/// Does the same for a group given by id.
ZUCOMN_API int RootComn_GetGroupSize(const AcDbObjectId& group, int* size);
/// Stores the group's name in the group dictionary. Returns -1 when it has none.
ZUCOMN_API int RootComn_GetGroupNameFromGroupOid(const AcDbObjectId& group, CString& name);
/// Appends the live members of the source to the target; members that the target has already keep their
/// positions. Returns -1, with the target unchanged, when the groups are in different drawings, one of them
/// cannot be opened or a member is open elsewhere.
ZUCOMN_API int RootComn_GroupMemberCopy(const AcDbObjectId& source, const AcDbObjectId& target);
/// Does the same for groups given by name.
ZUCOMN_API int RootComn_GroupMemberCopy(const CString& source, const CString& target);

/// Appends the groups that list an element and pass the kind filter (0: all), with their names and route
/// kinds, in the order of the element's reactors, and stores their number. A group of kind 0 passes any
/// filter and is returned with the filter as its kind. An element of link kind 0 is repaired first, see
/// RootComn_GetRootGroups3. Returns -1, with nothing appended and a count of 0, when the element or one of
/// its groups cannot be opened. The last argument is ignored.
ZUCOMN_API int RootComn_GetRootGroups5(const AcDbObjectId& element, int* count, AcArray<AcDbObjectId>& groups,
                                       CStringArray& names, CUIntArray& kinds, int kindFilter, int = 0);
/// Works as RootComn_GetRootGroups5 without the repair.
ZUCOMN_API int RootComn_GetRootGroups(const AcDbObjectId& element, int* count, AcArray<AcDbObjectId>& groups,
                                      CStringArray& names, CUIntArray& kinds, int kindFilter, int = 0);
/// Returns the element's route group of a route kind (0: its lowest-numbered route group); the null id when
/// there is none. Repairs the element first unless "GR_SPEED_UP" in section "環境設定" of the master settings
/// file is 1.
ZUCOMN_API AcDbObjectId RootComn_GetRootGroups2(const AcDbObjectId& element, int kind);
/// Repairs the element's membership in the route groups of one route kind (0: of all route kinds); does
/// nothing for other kinds. Returns -1, with the drawing unchanged, when the element is erased or missing, or
/// an object to be changed cannot be opened.
ZUCOMN_API int RootComn_GetRootGroups3(const AcDbObjectId& element, int kind);
/// Removes erased and missing members from the element's route groups, then repairs the element's membership
/// for all route kinds. Fails as RootComn_GetRootGroups3 does.
ZUCOMN_API int RootComn_GetRootGroups4(const AcDbObjectId& element);

/// Moves members of groups of unknown kind into a route group of known kind. The first three arrays list
/// `knownCount` groups of known kind, the next three `unknownCount` groups of unknown kind, in the form of
/// RootComn_GetRootGroups; greater counts mean all.
///
/// The target is the lowest-numbered known group of the kind (0: of any kind). Members of the unknown groups
/// that are neither in a known group nor in another route group of the target's kind are appended to the
/// target and to `moved`; the unknown groups are unchanged. Returns -1, with nothing changed, when there is
/// no target or when a group or a member to be moved cannot be opened. `element` and the last argument are
/// ignored.
ZUCOMN_API int RootComn_SetGroupToUnknownGroupMember(
    const AcDbObjectId& element, int kind, int knownCount, int unknownCount,
    const AcArray<AcDbObjectId>& knownGroups, const CStringArray& knownNames, const CUIntArray& knownKinds,
    const AcArray<AcDbObjectId>& unknownGroups, const CStringArray& unknownNames,
    const CUIntArray& unknownKinds, AcArray<AcDbObjectId>& moved, int = 0);

// ---- connection search
//
// Each function finds, among candidates, the elements with a connection point within the connection tolerance
// (in plan) of a tested point, and appends each to the result once: ordered by tested point, then by
// candidate. The element itself and elements of other drawings are never found. A kind filter other than 0
// keeps candidates of that link kind and of link kind 0. `count` receives the number of ids appended. Unnamed
// arguments are ignored.
//
// The library caches what searches need and updates it when the drawing changes, so that the cost of
// searching the members of a group hardly depends on the size of the group.

/// Tests the element's connection points against the members of a group. Returns -1 when the points or the
/// group cannot be read.
ZUCOMN_API int RootComn_GetConnectBlock(const AcDbObjectId& group, const AcDbObjectId& element,
                                        AcArray<AcDbObjectId>& result, int* count, int kindFilter);
/// Works as RootComn_GetConnectBlock without a kind filter, for fittings only: returns -1 unless the
/// element's block name begins with "RB".
ZUCOMN_API int RootComn_GetConnectBlock2(const AcDbObjectId& group, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int* count, int = 0);
/// Appends the ids of both arrays that are not yet in the result, each once. Returns 0.
ZUCOMN_API int RootComn_GetConnectBlock2Sub(const AcArray<AcDbObjectId>& a, const AcArray<AcDbObjectId>& b,
                                            AcArray<AcDbObjectId>& result);
/// Works as RootComn_GetConnectBlock.
ZUCOMN_API int RootComn_GetConnectBlock3(const AcDbObjectId& group, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int* count, int kindFilter, int = 0);
/// Tests the element's connection points against the given candidates. Returns -1 when the points cannot be
/// read.
ZUCOMN_API int RootComn_GetConnectBlock4(const AcArray<AcDbObjectId>& candidates, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int kindFilter, int = 0);
/// Replaces the result by the given candidates that are connected to an element with two or more connection
/// points; for other elements returns -1 with an empty result. The distance limit is 20.0 at drawing scales
/// above 1.0, else the second connection tolerance; the large limit is intended.
///
/// Mode 1 keeps candidates with the element's search code, mode 2 those with a different one, other modes
/// all. `form` points to 1 for full search codes; null or another value selects short ones. Search codes,
/// unlike other prefixes of block names, are case-sensitive.
ZUCOMN_API int RootComn_GetConnectBlock4EX(int mode, const AcArray<AcDbObjectId>& candidates,
                                           const AcDbObjectId& element, AcArray<AcDbObjectId>& result,
                                           int* count, const int* form);
/// Tests the given point against the members of a group. Returns -1 when the element's connection points or
/// the group cannot be read.
ZUCOMN_API int RootComn_GetConnectBlock5(const AcDbObjectId& group, const AcDbObjectId& element,
                                         const AcGePoint3d& point, AcArray<AcDbObjectId>& result, int* count,
                                         int kindFilter, int = 0);
/// Works as RootComn_GetConnectBlock.
ZUCOMN_API int RootComn_GetConnectBlock6(const AcDbObjectId& group, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int* count, int kindFilter, int = 0);
/// Tests the given point against the given candidates. Returns -1 when the element's connection points cannot
/// be read.
ZUCOMN_API int RootComn_GetConnectBlock7(const AcArray<AcDbObjectId>& candidates, const AcDbObjectId& element,
                                         const AcGePoint3d& point, AcArray<AcDbObjectId>& result, int* count,
                                         int kindFilter, int = 0);
