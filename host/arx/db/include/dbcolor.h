#pragma once

#include "adesk.h"

/// A colour: by layer, by block, of an index of the palette, or of red, green and blue parts.
class AcCmEntityColor {
public:
    enum ColorMethod {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
        kByPen = 0xC4,
        kForeground = 0xC5,
        kLayerOff = 0xC6,
        kLayerFrozen = 0xC7,
        kNone = 0xC8
    };
    enum ACIcolorMethod {
        kACIbyBlock = 0,
        kACIRed = 1,
        kACIYellow = 2,
        kACIGreen = 3,
        kACICyan = 4,
        kACIBlue = 5,
        kACIMagenta = 6,
        kACIWhite = 7,
        kACIforeground = 7,
        kACIbyLayer = 256
    };

    constexpr AcCmEntityColor() = default;
    constexpr AcCmEntityColor(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue) {
        setRGB(red, green, blue);
    }

    [[nodiscard]] constexpr ColorMethod colorMethod() const { return method_; }
    /// Other methods than by layer, block, colour and index return eInvalidInput.
    constexpr Acad::ErrorStatus setColorMethod(ColorMethod method) {
        if (method < kByLayer || method > kByACI)
            return Acad::eInvalidInput;
        method_ = method;
        return Acad::eOk;
    }
    [[nodiscard]] constexpr bool isByColor() const { return method_ == kByColor; }
    [[nodiscard]] constexpr bool isByLayer() const { return method_ == kByLayer; }
    [[nodiscard]] constexpr bool isByBlock() const { return method_ == kByBlock; }
    [[nodiscard]] constexpr bool isByACI() const { return method_ == kByACI; }

    constexpr Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue) {
        method_ = kByColor;
        value_ = (Adesk::UInt32{red} << 16) | (Adesk::UInt32{green} << 8) | blue;
        return Acad::eOk;
    }
    /// The parts of a colour of that kind; 0 for others, as the palette is not modelled.
    [[nodiscard]] constexpr Adesk::UInt8 red() const { return part(16); }
    [[nodiscard]] constexpr Adesk::UInt8 green() const { return part(8); }
    [[nodiscard]] constexpr Adesk::UInt8 blue() const { return part(0); }

    /// 1 to 255, 0 by block, 256 by layer; 7 for a colour of parts.
    [[nodiscard]] constexpr Adesk::UInt16 colorIndex() const {
        switch (method_) {
        case kByLayer:
            return kACIbyLayer;
        case kByBlock:
            return kACIbyBlock;
        case kByACI:
            return static_cast<Adesk::UInt16>(value_);
        default:
            return kACIWhite;
        }
    }
    /// eInvalidInput beyond 256.
    constexpr Acad::ErrorStatus setColorIndex(Adesk::UInt16 index) {
        if (index > kACIbyLayer)
            return Acad::eInvalidInput;
        method_ = index == kACIbyLayer ? kByLayer : index == kACIbyBlock ? kByBlock : kByACI;
        value_ = index;
        return Acad::eOk;
    }

    constexpr bool operator==(const AcCmEntityColor& other) const {
        const bool hasValue = method_ == kByColor || method_ == kByACI;
        return method_ == other.method_ && (!hasValue || value_ == other.value_);
    }

private:
    [[nodiscard]] constexpr Adesk::UInt8 part(unsigned int shift) const {
        return method_ == kByColor ? static_cast<Adesk::UInt8>(value_ >> shift) : Adesk::UInt8{0};
    }

    ColorMethod method_ = kByLayer;
    Adesk::UInt32 value_ = kACIbyLayer; ///< Index, or 0xRRGGBB.
};

/// The colour of an entity or layer. Names of colour books are not modelled.
class AcCmColor : public AcCmEntityColor {
public:
    using AcCmEntityColor::AcCmEntityColor;
};
