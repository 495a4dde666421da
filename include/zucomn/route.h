#pragma once

#include "export.h"

#include <acarray.h>
#include <afxcoll.h>
#include <dbid.h>
#include <gepnt3d.h>

// Routes: the elements placed as block references, their connection points, the groups that tie a route
// together, and the search for connected elements.
//
// Everything returns 0 for success and -1 for failure unless it says otherwise. Nothing shows a message;
// every object that is opened is closed again. Connection points lie in plan: the height of a point that they
// are compared with does not count. A group that is named by its name is looked up in the group dictionary of
// the working drawing.

// ---- elements

/// What the start of a block's name says an element is, compared without regard to case; 100 for names
/// without an element prefix. 0 equipment ("KK"), 1 route line ("RT"), 2 main route line ("RTM"), other codes
/// fittings. -1 when the element is no block reference or can't be opened; the code is then untouched.
ZUCOMN_API int ZuComn_GetBlockElementCode(const AcDbObjectId& element, int& code);

/// Connection points: the points of the element's own block definition on the given layer (null or empty: the
/// connection layer), in the definition's order, in plan (Z is 0). The array is emptied first. With `text`
/// the points are also written out, one "x,y" a line. -1 when the element is no block reference, or when it,
/// its definition or a point in this can't be opened.
ZUCOMN_API int ZuComn_GetConnectPoint(const AcDbObjectId& element, AcArray<AcGePoint3d>& points,
                                      const wchar_t* layer = nullptr, CString* text = nullptr);

/// The link kind 0 to 6 from the element's "ZU_LINK" record; -1 when it has none. Always 0.
ZUCOMN_API int RootComn_GetBlockRootKind(const AcDbObjectId& element, int* kind);

/// The route kind of a group: the link kind of the first member whose kind is not 0, a missing record (-1)
/// included. 0 for kinds 1 to 4; else -1. `kind` receives the last kind read in any case, and is untouched
/// when the group can't be opened or is empty.
ZUCOMN_API int RootComn_GetRootKind(const AcDbObjectId& group, int* kind);
ZUCOMN_API int RootComn_GetRootKind(const CString& groupName, int* kind);
/// The same, but only a kind above 0 stops the walk and kinds 0 to 4 succeed.
ZUCOMN_API int RootComn_GetRootKind2(const AcDbObjectId& group, int* kind);

/// The number of the element's connection point within the connection tolerance of the point, the last when
/// there are several; -1 when there is none. `count` receives how many connection points the element has.
ZUCOMN_API int RootComn_GetConnectPointNo(const AcDbObjectId& element, const AcGePoint3d& point, int& count);

/// The connection point nearest to the point, the first of equally near ones, and its distance. -1, with
/// nothing written, when the element has no connection points or they can't be read.
ZUCOMN_API int RootComn_GetNearConnectPoint(const AcDbObjectId& element, const AcGePoint3d& point,
                                            AcGePoint3d& nearest, double* distance);

/// 1 when `joined` is what a test of the element's connection points against the point says: whether one of
/// them lies within the connection tolerance. 0 otherwise, -1 when the points can't be read.
ZUCOMN_API int RootComn_GetNearConnectPointInOutCheck(const AcDbObjectId& element, const AcGePoint3d& point,
                                                      bool joined);

/// `which` is 1 when b is strictly nearer to p than a, else 0. Returns 0.
ZUCOMN_API int RootComn_GetNearPointToPoint(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b,
                                            int& which);

/// The insertion point of a block reference.
ZUCOMN_API int RootComn_GetOriginPoint(const AcDbObjectId& element, AcGePoint3d& origin);
ZUCOMN_API int RootComn_SetOriginPoint(const AcDbObjectId& element, const AcGePoint3d& origin);

/// Heights from the attributes. Kind 0 (equipment, "KK-"): nothing else is written. Kind 4 ("RBS-"): from
/// S401 to S401 + S304. Kind 3 ("RT-", "RTM-") and 1 (other elements): low and high are S401. Kind 2 (others
/// with an S402 that is not 0): low and high are left as they were, on purpose. "KK-" counts in upper case
/// only, so that existing blocks such as "kk-tank" keep their heights; the other prefixes ignore case. -1
/// when the element is no block reference.
ZUCOMN_API int RootComn_GetOBlockHeight(const AcDbObjectId& element, int& kind, double& low, double& high);

/// Angle of the direction from b to a, in radians; the reversed order is intended.
ZUCOMN_API double RootComn_Get2PointRadian(const AcGePoint3d& a, const AcGePoint3d& b);
/// The same in degrees, [0, 360).
ZUCOMN_API double RootComn_Get2PointAngle(const AcGePoint3d& a, const AcGePoint3d& b);

/// (x + distance, y) turned about (x, y) by an angle in degrees.
ZUCOMN_API int RootComn_PointRotation(double x, double y, double distance, double angle, double* outX,
                                      double* outY);
/// centre + (distance, 0, 0) turned about the Z axis through the centre; angle in degrees, brought into
/// range.
ZUCOMN_API int RootComn_PointRotation2(const AcGePoint3d& centre, double distance, double angle,
                                       AcGePoint3d& out);
/// The same with an angle in radians.
ZUCOMN_API int RootComn_PointRotation3(const AcGePoint3d& centre, double distance, double angle,
                                       AcGePoint3d& out);
/// As RootComn_PointRotation2, the angle taken as it is.
ZUCOMN_API int RootComn_PointRotation4(const AcGePoint3d& centre, double distance, double angle,
                                       AcGePoint3d& out);

// ---- route groups
//
// A route group is anonymous ("*A" and a number) or named "RTGR" and five digits. An element is in at most
// one route group of each route kind (1 to 4); where it is in several, the repairs below keep it in the one
// with the lowest number (the earlier of equal ones) and take it out of the others. A group that a repair
// empties is deleted. A route group has the members that it lists: an element that names it as reactor
// without being listed is none, and one that is listed or that names it twice counts once.
//
// Merges and repairs change everything or nothing: when an object that they would read or change is open
// elsewhere, they return -1 and the drawing is as before.

/// Ties elements into one route group. Of the existing groups those that are route groups by name count: with
/// none, more than one element makes a new anonymous group; else the lowest-numbered one takes over the
/// members of the others, which are deleted, and every element is put at its front. Last, elements of link
/// kind 0 are repaired as above. Elements that are gone are skipped. 0, also when nothing was to be done; -1,
/// with nothing changed, when one of the existing groups can't be opened (a group that is gone included), or
/// something else that has to be changed is open elsewhere.
ZUCOMN_API int RootComn_MakeGroup(const AcArray<AcDbObjectId>& elements,
                                  const AcArray<AcDbObjectId>& existingGroups);

/// A new group in the group dictionary, described by its name; each element once, in order. "*" as name makes
/// it anonymous. -1 and nothing created without live elements, when one is open elsewhere, or when the name
/// is taken.
ZUCOMN_API int RootComn_CreateNewGroup(const CString& name, const AcArray<AcDbObjectId>& elements,
                                       AcDbObjectId& newGroup, bool selectable);
ZUCOMN_API int RootComn_CreateNewGroup(const CString& name, const AcDbObjectId& element,
                                       AcDbObjectId& newGroup, bool selectable);
/// The name that makes new route groups anonymous: "*".
ZUCOMN_API int RootComn_GetNewGroupName(CString& name);

/// Puts the element at the front of the group; one that is a member already keeps its place.
ZUCOMN_API int RootComn_AddGroupMember(const CString& groupName, const AcDbObjectId& element);
ZUCOMN_API int RootComn_AddGroupMember(const AcDbObjectId& group, const AcDbObjectId& element);
/// Takes the element out of the group; -1 when it is no member.
ZUCOMN_API int RootComn_DelGroupMember(const AcDbObjectId& group, const AcDbObjectId& element);
/// The same; gives back the group's name and how many members are left.
ZUCOMN_API int RootComn_DelGroupMember(const AcDbObjectId& group, const AcDbObjectId& element, CString& name,
                                       int* remaining);
ZUCOMN_API int RootComn_DelGroupMember(const CString& groupName, const AcDbObjectId& element, CString& name,
                                       int* remaining);
/// Takes the group out of the group dictionary; its members stay in the drawing.
ZUCOMN_API int RootComn_DelGroup(const CString& groupName);
ZUCOMN_API int RootComn_DelGroup(const AcDbObjectId& group);

/// All member ids in group order; the array is emptied first.
ZUCOMN_API int RootComn_GetGroupMember(const AcDbObjectId& group, AcArray<AcDbObjectId>& members);
ZUCOMN_API int RootComn_GetGroupSize(const CString& groupName, int* size);
ZUCOMN_API int RootComn_GetGroupSize(const AcDbObjectId& group, int* size);
/// The group's name in the group dictionary; -1 when it has none.
ZUCOMN_API int RootComn_GetGroupNameFromGroupOid(const AcDbObjectId& group, CString& name);
/// Appends the live members of the source to the target; those that it has already keep their places. -1,
/// with nothing changed, when a group can't be opened or a member is open elsewhere.
ZUCOMN_API int RootComn_GroupMemberCopy(const AcDbObjectId& source, const AcDbObjectId& target);
ZUCOMN_API int RootComn_GroupMemberCopy(const CString& source, const CString& target);

/// Appends the groups that list an element and pass the kind filter (0: all) with their names and route
/// kinds, in the order of the element's reactors, and counts them. A group of kind 0 passes any filter and is
/// listed with the filter as its kind. An element of link kind 0 is repaired first (RootComn_GetRootGroups3).
/// -1, with nothing appended, when the element or one of its groups can't be opened. `count` may be null; the
/// last argument changes nothing.
ZUCOMN_API int RootComn_GetRootGroups5(const AcDbObjectId& element, int* count, AcArray<AcDbObjectId>& groups,
                                       CStringArray& names, CUIntArray& kinds, int kindFilter, int = 0);
/// The same without the repair.
ZUCOMN_API int RootComn_GetRootGroups(const AcDbObjectId& element, int* count, AcArray<AcDbObjectId>& groups,
                                      CStringArray& names, CUIntArray& kinds, int kindFilter, int = 0);
/// The route group of the element for a route kind (0: its lowest-numbered route group); the null id when
/// there is none. The element is repaired first unless the setting "GR_SPEED_UP" of section "環境設定" is 1.
ZUCOMN_API AcDbObjectId RootComn_GetRootGroups2(const AcDbObjectId& element, int kind);
/// Repairs the element's membership in the route groups of one route kind (0: of each). Nothing changes for
/// other kinds. -1, with nothing changed, when the element is gone or something to be changed can't be
/// opened.
ZUCOMN_API int RootComn_GetRootGroups3(const AcDbObjectId& element, int kind);
/// Takes members that are gone out of the element's route groups, then repairs the element for each kind. -1,
/// with nothing changed, when the element is gone or something to be changed can't be opened.
ZUCOMN_API int RootComn_GetRootGroups4(const AcDbObjectId& element);

/// Gives the members of groups of unknown kind a route group. The first three arrays list groups of a known
/// kind, the next three those of unknown kind, as RootComn_GetRootGroups does, `knownCount` and
/// `unknownCount` of them (more than there are counts as all). The target is the lowest-numbered known group
/// of the kind (0: of any). Members of the unknown groups that are neither in a known group nor in another
/// route group of the target's kind are put at the target's end, in order, and appended to `moved`; the
/// unknown groups stay as they are. -1, with nothing changed, when there is no target, or when a group or a
/// member to be moved can't be opened.
/// The last argument changes nothing.
ZUCOMN_API int RootComn_SetGroupToUnknownGroupMember(
    const AcDbObjectId& element, int kind, int knownCount, int unknownCount,
    const AcArray<AcDbObjectId>& knownGroups, const CStringArray& knownNames, const CUIntArray& knownKinds,
    const AcArray<AcDbObjectId>& unknownGroups, const CStringArray& unknownNames,
    const CUIntArray& unknownKinds, AcArray<AcDbObjectId>& moved, int = 0);

// ---- connection search
//
// Each finds, among candidates, the elements with a connection point within the connection tolerance (in
// plan) of one of the tested points, and appends each once to the result: by tested point, then in the order
// of the candidates. The element itself and what is in another drawing never count. A kind filter other than
// 0 keeps candidates of that link kind and of link kind 0. `count` may be null; it receives the number of ids
// appended. Arguments without a name change nothing.
//
// Searches over the members of a group cost about the same whatever the group's size: what they need is kept
// from one search to the next and follows the changes of the drawing.

/// Candidates: the group's members; tested: the element's connection points. -1 when these or the group can't
/// be read.
ZUCOMN_API int RootComn_GetConnectBlock(const AcDbObjectId& group, const AcDbObjectId& element,
                                        AcArray<AcDbObjectId>& result, int* count, int kindFilter);
/// The same for fittings only: -1 unless the element's block name begins with "RB".
ZUCOMN_API int RootComn_GetConnectBlock2(const AcDbObjectId& group, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int* count, int = 0);
/// Appends the ids of both arrays to the result, each once. Returns 0.
ZUCOMN_API int RootComn_GetConnectBlock2Sub(const AcArray<AcDbObjectId>& a, const AcArray<AcDbObjectId>& b,
                                            AcArray<AcDbObjectId>& result);
ZUCOMN_API int RootComn_GetConnectBlock3(const AcDbObjectId& group, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int* count, int kindFilter, int = 0);
/// Candidates: the given ids.
ZUCOMN_API int RootComn_GetConnectBlock4(const AcArray<AcDbObjectId>& candidates, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int kindFilter, int = 0);
/// For elements with two or more connection points; -1 and an empty result for others. Empties the result
/// first. Two points join within 20.0 at drawing scales above 1.0, else within the second tolerance; the
/// large value is intended. `form` points to 1 for the full search code, to another value (or is null) for
/// the short one. Mode 1 keeps candidates with the search code of the element, mode 2 those with another one,
/// any other mode all. Search codes are case-sensitive; other prefixes of block names ignore case.
ZUCOMN_API int RootComn_GetConnectBlock4EX(int mode, const AcArray<AcDbObjectId>& candidates,
                                           const AcDbObjectId& element, AcArray<AcDbObjectId>& result,
                                           int* count, const int* form);
/// Tested: the given point only.
ZUCOMN_API int RootComn_GetConnectBlock5(const AcDbObjectId& group, const AcDbObjectId& element,
                                         const AcGePoint3d& point, AcArray<AcDbObjectId>& result, int* count,
                                         int kindFilter, int = 0);
ZUCOMN_API int RootComn_GetConnectBlock6(const AcDbObjectId& group, const AcDbObjectId& element,
                                         AcArray<AcDbObjectId>& result, int* count, int kindFilter, int = 0);
ZUCOMN_API int RootComn_GetConnectBlock7(const AcArray<AcDbObjectId>& candidates, const AcDbObjectId& element,
                                         const AcGePoint3d& point, AcArray<AcDbObjectId>& result, int* count,
                                         int kindFilter, int = 0);
