#pragma once

#include "dbents.h"

#include <zuhost/platform/export.h>

/// The definition of an attribute in a block.
class ZUHOST_API AcDbAttributeDefinition : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
    AcDbAttributeDefinition() = default;
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                            const ACHAR* prompt, AcDbObjectId style = AcDbObjectId::kNull);

    /// The name of the attribute; the caller frees it with acutDelString.
    [[nodiscard]] ACHAR* tag() const;
    /// Valid until the next call or the object's end.
    [[nodiscard]] const ACHAR* tagConst() const;
    Acad::ErrorStatus tag(AcString& text) const;
    /// eInvalidInput for an empty name and one with blanks.
    Acad::ErrorStatus setTag(const ACHAR* tag);
    /// The caller frees the text with acutDelString.
    [[nodiscard]] ACHAR* prompt() const;
    [[nodiscard]] const ACHAR* promptConst() const;
    Acad::ErrorStatus prompt(AcString& text) const;
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    [[nodiscard]] bool isInvisible() const;
    Acad::ErrorStatus setInvisible(bool invisible);
    [[nodiscard]] bool isConstant() const;
    Acad::ErrorStatus setConstant(bool constant);
    [[nodiscard]] bool isVerifiable() const;
    Acad::ErrorStatus setVerifiable(bool verifiable);
    [[nodiscard]] bool isPreset() const;
    Acad::ErrorStatus setPreset(bool preset);
    [[nodiscard]] Adesk::UInt16 fieldLength() const;
    Acad::ErrorStatus setFieldLength(Adesk::UInt16 length);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    friend class AcDbAttribute;
    [[nodiscard]] std::wstring tagText() const;
    [[nodiscard]] std::wstring styleName() const;
    [[nodiscard]] std::int64_t flags() const;
    [[nodiscard]] int verticalCode() const override { return 74; }

    mutable std::unique_ptr<std::wstring> tag_;
    mutable std::unique_ptr<std::wstring> prompt_;
};

/// The value of an attribute of a block reference, which owns it.
class ZUHOST_API AcDbAttribute : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute);
    AcDbAttribute() = default;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                  AcDbObjectId style = AcDbObjectId::kNull);

    /// The name of the attribute; the caller frees it with acutDelString.
    [[nodiscard]] ACHAR* tag() const;
    /// Valid until the next call or the object's end.
    [[nodiscard]] const ACHAR* tagConst() const;
    Acad::ErrorStatus tag(AcString& text) const;
    /// eInvalidInput for an empty name and one with blanks.
    Acad::ErrorStatus setTag(const ACHAR* tag);
    [[nodiscard]] bool isInvisible() const;
    Acad::ErrorStatus setInvisible(bool invisible);
    [[nodiscard]] bool isConstant() const;
    [[nodiscard]] bool isVerifiable() const;
    [[nodiscard]] bool isPreset() const;
    [[nodiscard]] Adesk::UInt16 fieldLength() const;
    Acad::ErrorStatus setFieldLength(Adesk::UInt16 length);

    /// Sets tag, flags, text style, height, position and all other properties, but not the text, to those of
    /// the definition placed by the block reference's transform.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                            const AcGeMatrix3d& blockTransform);
    /// Uses the definition with this tag in the block of the owning reference; eNotApplicable for an
    /// attribute of no reference, eKeyNotFound when the block has no such definition.
    Acad::ErrorStatus setAttributeFromBlock(const AcGeMatrix3d& blockTransform);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] std::int64_t flags() const;
    [[nodiscard]] int verticalCode() const override { return 74; }

    mutable std::unique_ptr<std::wstring> tag_;
};
