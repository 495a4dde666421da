#pragma once

namespace zu::text {

// Ids of the library's texts; see src/resources.
inline constexpr unsigned kEnvironmentSection = 134;
inline constexpr unsigned kRouteLineWeight = 144;
inline constexpr unsigned kEquipmentLineWeight = 145;
inline constexpr unsigned kExtraFineLineWeight = 146;
inline constexpr unsigned kSeparator = 147;
inline constexpr unsigned kFileOperation = 150; ///< 151 open, 152 write, 153 close.
inline constexpr unsigned kFileReason = 154;    ///< 154 unknown; 156 to 168 causes 2 to 14.
inline constexpr unsigned kFileFailed = 169;
inline constexpr unsigned kSystemFolder = 178;
inline constexpr unsigned kSaveFailed = 179;
inline constexpr unsigned kCommonCategory = 190;
inline constexpr unsigned kGeneralCategory = 191;
inline constexpr unsigned kModify = 192;
inline constexpr unsigned kLayerLocked = 194;
inline constexpr unsigned kModifyAttributes = 195;
inline constexpr unsigned kConfirmAttributes = 196;
inline constexpr unsigned kBack = 197;
inline constexpr unsigned kCannotSave = 198;
inline constexpr unsigned kItem = 199;
inline constexpr unsigned kValue = 200;
inline constexpr unsigned kQuantitySection = 3140;
inline constexpr unsigned kSizeIds = 3141;
inline constexpr unsigned kUseIds = 3142;
inline constexpr unsigned kHeightIds = 3143;
inline constexpr unsigned kNoLineEndInValues = 3700;
inline constexpr unsigned kNoTableFolder = 3701;
inline constexpr unsigned kNoTitleTable = 3702;
inline constexpr unsigned kNoParameterTable = 3703;
inline constexpr unsigned kCannotEditWithoutTable = 3704;
inline constexpr unsigned kAllOnLockedLayer = 3705;
inline constexpr unsigned kSomeOnLockedLayers = 3706;
inline constexpr unsigned kEditCounts = 3707;
inline constexpr unsigned kNothingChanged = 3708;
inline constexpr unsigned kSelectedElements = 3709;
inline constexpr unsigned kSearch = 3710;
inline constexpr unsigned kNotFound = 3711;
inline constexpr unsigned kHandle = 3712;
inline constexpr unsigned kFactsCategory = 3713;
inline constexpr unsigned kElementKind = 3714;
inline constexpr unsigned kLinkKind = 3715;
inline constexpr unsigned kGroup = 3716;
inline constexpr unsigned kPosition = 3717;
inline constexpr unsigned kHeights = 3718;
inline constexpr unsigned kJoinedElements = 3719;
inline constexpr unsigned kElementCount = 3720;
inline constexpr unsigned kDiscardedChanges = 3721;
inline constexpr unsigned kUnnamedElementKind = 3722;
inline constexpr unsigned kFirstElementKind = 3800; ///< Plus the element code.
inline constexpr unsigned kElement = 5005;
inline constexpr unsigned kNoBarInValues = 5007;
inline constexpr unsigned kReadingAttributes = 5008;
inline constexpr unsigned kLayer = 5009;
inline constexpr unsigned kWritingAttributes = 5020;
inline constexpr unsigned kHeightsNotNumbers = 5021;

} // namespace zu::text
