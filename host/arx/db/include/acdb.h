#pragma once

#include "adesk.h"

/// Enumerations of the drawing database.
struct AcDb {
    enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

    /// Versions of drawing files; kDHL_CURRENT is the newest one.
    enum AcDbDwgVersion {
        kDHL_Unknown = 0,
        kDHL_1006 = 13,
        kDHL_1009 = 16,
        kDHL_1012 = 19,
        kDHL_1014 = 21,
        kDHL_1015 = 23,
        kDHL_1800 = 25,
        kDHL_2100 = 27,
        kDHL_2400 = 29,
        kDHL_2700 = 31,
        kDHL_3200 = 33,
        kDHL_CURRENT = kDHL_3200
    };

    /// Drawing units of insertions.
    enum UnitsValue {
        kUnitsUndefined = 0,
        kUnitsInches = 1,
        kUnitsFeet = 2,
        kUnitsMiles = 3,
        kUnitsMillimeters = 4,
        kUnitsCentimeters = 5,
        kUnitsMeters = 6,
        kUnitsKilometers = 7,
        kUnitsMicroinches = 8,
        kUnitsMils = 9,
        kUnitsYards = 10,
        kUnitsAngstroms = 11,
        kUnitsNanometers = 12,
        kUnitsMicrons = 13,
        kUnitsDecimeters = 14,
        kUnitsDekameters = 15,
        kUnitsHectometers = 16,
        kUnitsGigameters = 17,
        kUnitsAstronomical = 18,
        kUnitsLightYears = 19,
        kUnitsParsecs = 20
    };

    enum MeasurementValue { kEnglish = 0, kMetric = 1 };

    /// What cloning does with a table record or dictionary entry whose name is in use at the target.
    enum DuplicateRecordCloning {
        kDrcNotApplicable = 0,
        kDrcIgnore = 1,
        kDrcReplace = 2,
        kDrcXrefMangleName = 3,
        kDrcMangleName = 4,
        kDrcUnmangleName = 5
    };

    /// The kind of cloning that an id mapping describes.
    enum DeepCloneType {
        kDcCopy = 0,
        kDcExplode = 1,
        kDcBlock = 2,
        kDcXrefBind = 3,
        kDcSymTableMerge = 4,
        kDcInsert = 6,
        kDcWblock = 7,
        kDcObjects = 8,
        kDcXrefInsert = 9,
        kDcInsertCopy = 10,
        kDcWblkObjects = 11
    };

    /// In hundredths of a millimetre; negative values are codes.
    enum LineWeight : int {
        kLnWt000 = 0,
        kLnWt005 = 5,
        kLnWt009 = 9,
        kLnWt013 = 13,
        kLnWt015 = 15,
        kLnWt018 = 18,
        kLnWt020 = 20,
        kLnWt025 = 25,
        kLnWt030 = 30,
        kLnWt035 = 35,
        kLnWt040 = 40,
        kLnWt050 = 50,
        kLnWt053 = 53,
        kLnWt060 = 60,
        kLnWt070 = 70,
        kLnWt080 = 80,
        kLnWt090 = 90,
        kLnWt100 = 100,
        kLnWt106 = 106,
        kLnWt120 = 120,
        kLnWt140 = 140,
        kLnWt158 = 158,
        kLnWt200 = 200,
        kLnWt211 = 211,
        kLnWtByLayer = -1,
        kLnWtByBlock = -2,
        kLnWtByLwDefault = -3
    };

    /// Group codes of records and of items of a resbuf chain.
    enum DxfCode : int {
        kDxfInvalid = -9999,
        kDxfXDictionary = -6,
        kDxfPReactors = -5,
        kDxfOperator = -4,
        kDxfXDataStart = -3,
        kDxfHeaderId = -2,
        kDxfFirstEntityId = -2,
        kDxfEnd = -1,
        kDxfStart = 0,
        kDxfText = 1,
        kDxfXRefPath = 1,
        kDxfShapeName = 2,
        kDxfBlockName = 2,
        kDxfAttributeTag = 2,
        kDxfSymbolTableName = 2,
        kDxfSymbolTableRecordName = 2,
        kDxfMlineStyleName = 2,
        kDxfAttributePrompt = 3,
        kDxfDimStyleName = 3,
        kDxfLinetypeProse = 3,
        kDxfTextFontFile = 3,
        kDxfDescription = 3,
        kDxfDimPostStr = 3,
        kDxfTextBigFontFile = 4,
        kDxfDimAltPostStr = 4,
        kDxfCLShapeName = 4,
        kDxfSymbolTableRecordComments = 4,
        kDxfHandle = 5,
        kDxfDimBlk = 5,
        kDxfLinetypeName = 6,
        kDxfTextStyleName = 7,
        kDxfLayerName = 8,
        kDxfCLShapeText = 9,
        kDxfXCoord = 10,
        kDxfYCoord = 20,
        kDxfZCoord = 30,
        kDxfElevation = 38,
        kDxfThickness = 39,
        kDxfReal = 40,
        kDxfViewportHeight = 40,
        kDxfTxtSize = 40,
        kDxfTxtStyleXScale = 41,
        kDxfViewWidth = 41,
        kDxfViewportAspect = 41,
        kDxfTxtStylePSize = 42,
        kDxfViewLensLength = 42,
        kDxfViewFrontClip = 43,
        kDxfViewBackClip = 44,
        kDxfShapeXOffset = 44,
        kDxfShapeYOffset = 45,
        kDxfViewHeight = 45,
        kDxfShapeScale = 46,
        kDxfPixelScale = 47,
        kDxfLinetypeScale = 48,
        kDxfDashLength = 49,
        kDxfMlineOffset = 49,
        kDxfLinetypeElement = 49,
        kDxfAngle = 50,
        kDxfViewportSnapAngle = 50,
        kDxfViewportTwist = 51,
        kDxfVisibility = 60,
        kDxfLayerLinetype = 61,
        kDxfColor = 62,
        kDxfHasSubentities = 66,
        kDxfViewportVisibility = 67,
        kDxfViewportActive = 68,
        kDxfViewportNumber = 69,
        kDxfInt16 = 70,
        kDxfViewMode = 71,
        kDxfTxtStyleFlags = 71,
        kDxfRegAppFlags = 71,
        kDxfCircleSides = 72,
        kDxfLinetypeAlign = 72,
        kDxfViewportZoom = 73,
        kDxfLinetypePDC = 73,
        kDxfViewportIcon = 74,
        kDxfViewportSnap = 75,
        kDxfViewportGrid = 76,
        kDxfViewportSnapStyle = 77,
        kDxfViewportSnapPair = 78,
        kDxfInt32 = 90,
        kDxfSubclass = 100,
        kDxfEmbeddedObjectStart = 101,
        kDxfControlString = 102,
        kDxfDimVarHandle = 105,
        kDxfUCSOrg = 110,
        kDxfUCSOriX = 111,
        kDxfUCSOriY = 112,
        kDxfXReal = 140,
        kDxfViewBrightness = 141,
        kDxfViewContrast = 142,
        kDxfInt64 = 160,
        kDxfXInt16 = 170,
        kDxfNormalX = 210,
        kDxfNormalY = 220,
        kDxfNormalZ = 230,
        kDxfXXInt16 = 270,
        kDxfInt8 = 280,
        kDxfRenderMode = 281,
        kDxfBool = 290,
        kDxfXTextString = 300,
        kDxfBinaryChunk = 310,
        kDxfArbHandle = 320,
        kDxfSoftPointerId = 330,
        kDxfHardPointerId = 340,
        kDxfSoftOwnershipId = 350,
        kDxfHardOwnershipId = 360,
        kDxfLineWeight = 370,
        kDxfPlotStyleNameType = 380,
        kDxfPlotStyleNameId = 390,
        kDxfExtendedInt16 = 400,
        kDxfLayoutName = 410,
        kDxfColorRGB = 420,
        kDxfColorName = 430,
        kDxfAlpha = 440,
        kDxfGradientObjType = 450,
        kDxfGradientPatType = 451,
        kDxfGradientTintType = 452,
        kDxfGradientColCount = 453,
        kDxfGradientAngle = 460,
        kDxfGradientShift = 461,
        kDxfGradientTintVal = 462,
        kDxfGradientColVal = 463,
        kDxfGradientName = 470,
        kDxfComment = 999,
        kDxfXdAsciiString = 1000,
        kDxfRegAppName = 1001,
        kDxfXdControlString = 1002,
        kDxfXdLayerName = 1003,
        kDxfXdBinaryChunk = 1004,
        kDxfXdHandle = 1005,
        kDxfXdXCoord = 1010,
        kDxfXdYCoord = 1020,
        kDxfXdZCoord = 1030,
        kDxfXdWorldXCoord = 1011,
        kDxfXdWorldYCoord = 1021,
        kDxfXdWorldZCoord = 1031,
        kDxfXdWorldXDisp = 1012,
        kDxfXdWorldYDisp = 1022,
        kDxfXdWorldZDisp = 1032,
        kDxfXdWorldXDir = 1013,
        kDxfXdWorldYDir = 1023,
        kDxfXdWorldZDir = 1033,
        kDxfXdReal = 1040,
        kDxfXdDist = 1041,
        kDxfXdScale = 1042,
        kDxfXdInteger16 = 1070,
        kDxfXdInteger32 = 1071,
        kDxfXdMax = 1071
    };

    enum Visibility { kInvisible = 1, kVisible = 0 };

    /// Which curves are extended for an intersection.
    enum Intersect { kOnBothOperands = 0, kExtendThis = 1, kExtendArg = 2, kExtendBoth = 3 };

    enum Planarity { kNonPlanar = 0, kPlanar = 1, kLinear = 2 };

    enum TextHorzMode : int {
        kTextLeft = 0,
        kTextCenter = 1,
        kTextRight = 2,
        kTextAlign = 3,
        kTextMid = 4,
        kTextFit = 5
    };
    enum TextVertMode : int { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };

    enum Poly2dType { k2dSimplePoly = 0, k2dFitCurvePoly = 1, k2dQuadSplinePoly = 2, k2dCubicSplinePoly = 3 };
    enum Poly3dType { k3dSimplePoly = 0, k3dQuadSplinePoly = 1, k3dCubicSplinePoly = 2 };
    enum Vertex2dType {
        k2dVertex = 0,
        k2dSplineCtlVertex = 1,
        k2dSplineFitVertex = 2,
        k2dCurveFitVertex = 3
    };
    enum Vertex3dType { k3dSimpleVertex = 0, k3dControlVertex = 1, k3dFitVertex = 2 };
};
