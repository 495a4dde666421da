#pragma once

/// Enumerations of the geometry classes.
struct AcGe {
    enum EntityId {
        kEntity2d,
        kEntity3d,
        kCurve2d,
        kCurve3d,
        kLinearEnt2d,
        kLinearEnt3d,
        kLine2d,
        kLine3d,
        kLineSeg2d,
        kLineSeg3d,
        kRay2d,
        kRay3d,
        kCircArc2d,
        kCircArc3d,
        kSurface,
        kPlanarEnt,
        kPlane
    };

    enum ErrorCondition {
        kOk,
        k0This,
        k0Arg1,
        k0Arg2,
        kPerpendicularArg1Arg2,
        kEqualArg1Arg2,
        kEqualArg1Arg3,
        kEqualArg2Arg3,
        kLinearlyDependentArg1Arg2Arg3,
        kArg1TooBig,
        kArg1OnThis,
        kArg1InsideThis
    };
};

using AcGeError = AcGe::ErrorCondition;
