#pragma once

// Results of the acut, aced and acdb functions.

inline constexpr int RTNORM = 5100;   ///< Done.
inline constexpr int RTERROR = -5001; ///< An invalid argument, or the request failed.
inline constexpr int RTCAN = -5002;   ///< Cancelled by the user; headless: the input ended.
inline constexpr int RTREJ = -5003;   ///< Rejected as invalid.
inline constexpr int RTFAIL = -5004;
inline constexpr int RTKWORD = -5005; ///< The user entered a keyword: acedGetInput returns it.

// Types of values in a resbuf that are not group codes; RTNONE also ends lists of values, and is returned for
// an empty reply.

inline constexpr short RTNONE = 5000;
inline constexpr short RTREAL = 5001;
inline constexpr short RTPOINT = 5002;
inline constexpr short RTSHORT = 5003;
inline constexpr short RTANG = 5004;
inline constexpr short RTSTR = 5005;
inline constexpr short RTENAME = 5006;
inline constexpr short RTPICKS = 5007;
inline constexpr short RTORINT = 5008;
inline constexpr short RT3DPOINT = 5009;
inline constexpr short RTLONG = 5010;
inline constexpr short RTVOID = 5014;
inline constexpr short RTLB = 5016;
inline constexpr short RTLE = 5017;
inline constexpr short RTDOTE = 5018;
inline constexpr short RTNIL = 5019;
inline constexpr short RTDXF0 = 5020; ///< Group code 0 in a list that 0 would end.
inline constexpr short RTT = 5021;
inline constexpr short RTRESBUF = 5023;
inline constexpr short RTINT64 = 5031;

// Flags of acedInitGet.

inline constexpr int RSG_NONULL = 0x01; ///< No empty reply.
inline constexpr int RSG_NOZERO = 0x02;
inline constexpr int RSG_NONEG = 0x04;
inline constexpr int RSG_NOLIM = 0x08; ///< No effect: drawing limits are never checked.
inline constexpr int RSG_DASH = 0x20;  ///< No effect: nothing is displayed.
inline constexpr int RSG_2D = 0x40;    ///< Distances ignore z.
inline constexpr int RSG_OTHER = 0x80; ///< Any other text is returned as a keyword.
