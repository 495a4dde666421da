#include "dbents.h"

#include "database_core.h"
#include "drawing/tag_view.h"
#include "new_text.h"

#include <algorithm>

ACRX_CONS_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText)
ACRX_CONS_DEFINE_MEMBERS(AcDbAttribute, AcDbText)

namespace {

constexpr std::string_view kText = "AcDbText";
constexpr std::string_view kDefinition = "AcDbAttributeDefinition";
constexpr std::string_view kAttribute = "AcDbAttribute";
constexpr int kTag = 2;
constexpr int kPrompt = 3;
constexpr int kFlags = 70;
constexpr int kFieldLength = 73;

constexpr std::int64_t kInvisible = 1;
constexpr std::int64_t kConstant = 2;
constexpr std::int64_t kVerifiable = 4;
constexpr std::int64_t kPreset = 8;

bool isTag(const ACHAR* tag) {
    const std::wstring_view text(tag != nullptr ? tag : L"");
    return !text.empty() && std::none_of(text.begin(), text.end(), [](wchar_t c) { return c <= L' '; });
}

std::int64_t withFlag(std::int64_t flags, std::int64_t flag, bool on) {
    return on ? flags | flag : flags & ~flag;
}

} // namespace

zuhost::TagList AcDbAttributeDefinition::newRecords() const {
    zuhost::TagList records = recordsOf("ATTDEF", {"AcDbEntity", kText, kDefinition});
    records.add(3, "");
    records.add(2, "");
    records.add(70, "0");
    return records;
}

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text,
                                                 const ACHAR* tag, const ACHAR* prompt, AcDbObjectId style)
    : AcDbAttributeDefinition() {
    setPosition(position);
    setHeight(0.0);
    setTextString(text);
    setTag(tag);
    setPrompt(prompt);
    if (!style.isNull())
        setTextStyle(style);
}

ACHAR* AcDbAttributeDefinition::tag() const {
    return zuhost::newText(textTag(kDefinition, kTag));
}
const ACHAR* AcDbAttributeDefinition::tagConst() const {
    return kept(tag_, textTag(kDefinition, kTag));
}
Acad::ErrorStatus AcDbAttributeDefinition::tag(AcString& text) const {
    text = textTag(kDefinition, kTag).c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag) {
    return isTag(tag) ? setTextTag(kDefinition, kTag, tag) : Acad::eInvalidInput;
}
ACHAR* AcDbAttributeDefinition::prompt() const {
    return zuhost::newText(textTag(kDefinition, kPrompt));
}
const ACHAR* AcDbAttributeDefinition::promptConst() const {
    return kept(prompt_, textTag(kDefinition, kPrompt));
}
Acad::ErrorStatus AcDbAttributeDefinition::prompt(AcString& text) const {
    text = textTag(kDefinition, kPrompt).c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
    return prompt != nullptr ? setTextTag(kDefinition, kPrompt, prompt) : Acad::eInvalidInput;
}
bool AcDbAttributeDefinition::isInvisible() const {
    return (flags() & kInvisible) != 0;
}
Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(bool invisible) {
    return setIntegerTag(kDefinition, kFlags, withFlag(flags(), kInvisible, invisible));
}
bool AcDbAttributeDefinition::isConstant() const {
    return (flags() & kConstant) != 0;
}
Acad::ErrorStatus AcDbAttributeDefinition::setConstant(bool constant) {
    return setIntegerTag(kDefinition, kFlags, withFlag(flags(), kConstant, constant));
}
bool AcDbAttributeDefinition::isVerifiable() const {
    return (flags() & kVerifiable) != 0;
}
Acad::ErrorStatus AcDbAttributeDefinition::setVerifiable(bool verifiable) {
    return setIntegerTag(kDefinition, kFlags, withFlag(flags(), kVerifiable, verifiable));
}
bool AcDbAttributeDefinition::isPreset() const {
    return (flags() & kPreset) != 0;
}
Acad::ErrorStatus AcDbAttributeDefinition::setPreset(bool preset) {
    return setIntegerTag(kDefinition, kFlags, withFlag(flags(), kPreset, preset));
}
Adesk::UInt16 AcDbAttributeDefinition::fieldLength() const {
    return static_cast<Adesk::UInt16>(integerTag(kDefinition, kFieldLength, 0));
}
std::wstring AcDbAttributeDefinition::tagText() const {
    return textTag(kDefinition, kTag);
}
std::wstring AcDbAttributeDefinition::styleName() const {
    return textTag(kText, 7);
}
std::int64_t AcDbAttributeDefinition::flags() const {
    return integerTag(kDefinition, kFlags, 0);
}
Acad::ErrorStatus AcDbAttributeDefinition::setFieldLength(Adesk::UInt16 length) {
    return setIntegerTag(kDefinition, kFieldLength, length);
}

zuhost::TagList AcDbAttribute::newRecords() const {
    zuhost::TagList records = recordsOf("ATTRIB", {"AcDbEntity", kText, kAttribute});
    records.add(2, "");
    records.add(70, "0");
    return records;
}

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                             AcDbObjectId style)
    : AcDbAttribute() {
    setPosition(position);
    setHeight(0.0);
    setTextString(text);
    setTag(tag);
    if (!style.isNull())
        setTextStyle(style);
}

ACHAR* AcDbAttribute::tag() const {
    return zuhost::newText(textTag(kAttribute, kTag));
}
const ACHAR* AcDbAttribute::tagConst() const {
    return kept(tag_, textTag(kAttribute, kTag));
}
Acad::ErrorStatus AcDbAttribute::tag(AcString& text) const {
    text = textTag(kAttribute, kTag).c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag) {
    return isTag(tag) ? setTextTag(kAttribute, kTag, tag) : Acad::eInvalidInput;
}
bool AcDbAttribute::isInvisible() const {
    return (flags() & kInvisible) != 0;
}
Acad::ErrorStatus AcDbAttribute::setInvisible(bool invisible) {
    return setIntegerTag(kAttribute, kFlags, withFlag(flags(), kInvisible, invisible));
}
bool AcDbAttribute::isConstant() const {
    return (flags() & kConstant) != 0;
}
bool AcDbAttribute::isVerifiable() const {
    return (flags() & kVerifiable) != 0;
}
bool AcDbAttribute::isPreset() const {
    return (flags() & kPreset) != 0;
}
Adesk::UInt16 AcDbAttribute::fieldLength() const {
    return static_cast<Adesk::UInt16>(integerTag(kAttribute, kFieldLength, 0));
}
std::int64_t AcDbAttribute::flags() const {
    return integerTag(kAttribute, kFlags, 0);
}
Acad::ErrorStatus AcDbAttribute::setFieldLength(Adesk::UInt16 length) {
    return setIntegerTag(kAttribute, kFieldLength, length);
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& blockTransform) {
    if (definition == nullptr)
        return Acad::eNullObjectPointer;
    const Acad::ErrorStatus status = setTextTag(kAttribute, kTag, definition->tagText());
    if (status != Acad::eOk)
        return status;
    setPropertiesFrom(definition);
    setIntegerTag(kAttribute, kFlags, definition->flags());
    setFieldLength(definition->fieldLength());
    setNormalTag(kText, definition->normal());
    setPosition(definition->position());
    setHeight(definition->height());
    setRotation(definition->rotation());
    setOblique(definition->oblique());
    setWidthFactor(definition->widthFactor());
    setThickness(definition->thickness());
    mirrorInX(definition->isMirroredInX());
    mirrorInY(definition->isMirroredInY());
    setHorizontalMode(definition->horizontalMode());
    setVerticalMode(definition->verticalMode());
    if (!isDefaultAlignment())
        setAlignmentPoint(definition->alignmentPoint());
    if (const std::wstring style = definition->styleName(); !style.empty())
        setTextTag(kText, 7, style);
    return transformBy(blockTransform);
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcGeMatrix3d& blockTransform) {
    AcDbStub* const owner = ownerId();
    // The reference may be open.
    const auto* const reference =
        owner != nullptr ? AcDbBlockReference::cast(&core()->object(*owner)) : nullptr;
    if (reference == nullptr)
        return Acad::eNotApplicable;
    const std::wstring wanted = textTag(kAttribute, kTag);
    for (const AcDbEntity* const entity : reference->definitionEntities()) {
        const auto* const definition = AcDbAttributeDefinition::cast(entity);
        if (definition != nullptr && definition->tagText() == wanted)
            return setAttributeFromBlock(definition, blockTransform);
    }
    return Acad::eKeyNotFound;
}
