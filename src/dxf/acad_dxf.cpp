#include <zucomn/dxf.h>

#include "frame/text_view.h"
#include "part_memory.h"
#include "record_input.h"
#include "values.h"

#include <array>

using zu::dxf::CodeTable;
using zu::dxf::RecordInput;

// Where libraries are imported, programs may refer to these constants by their addresses.
constexpr int CAcadDxf::kWhite;
constexpr int CAcadDxf::kStrictTable;
constexpr int CAcadDxf::kNoEntities;

ACRX_NO_CONS_DEFINE_MEMBERS(CAcadDxf, AcRxObject)

namespace {

constexpr int kMarkLength = 18;
// Longest texts kept, in characters.
constexpr std::size_t kAsciiLimit = 512;
constexpr std::size_t kBinaryLimit = 255;

/// Returns the key of a layer or block name, which ignores case.
std::wstring folded(const wchar_t* name) {
    CString text(name);
    text.MakeUpper();
    return std::wstring(zu::view(text));
}

bool hasZufExtension(const CString& path) {
    return path.Right(4).CompareNoCase(L".zuf") == 0;
}

/// Joins the lines to one text of records. A line end within a line would misalign all following records.
std::string joined(const CStringArray& lines) {
    std::string text;
    std::string bytes;
    for (int i = 0; i < lines.GetSize(); ++i) {
        CString line = lines[i];
        line.Replace(L'\n', L' ');
        line.TrimRight(L'\r');
        const int size =
            WideCharToMultiByte(CP_UTF8, 0, line, line.GetLength(), nullptr, 0, nullptr, nullptr);
        bytes.resize(static_cast<std::size_t>(size));
        WideCharToMultiByte(CP_UTF8, 0, line, line.GetLength(), bytes.data(), size, nullptr, nullptr);
        text += bytes;
        text += '\n';
    }
    return text;
}

template <typename Object>
const Object* found(const std::unordered_map<std::wstring, const Object*>& index, const wchar_t* name) {
    const auto position = index.find(folded(name));
    return position == index.end() ? nullptr : position->second;
}

} // namespace

CAcadDxf::CAcadDxf() : memory_(std::make_shared<zu::dxf::PartMemory>()) {}

CAcadDxf::CAcadDxf(const wchar_t* path, int colorOption, int tableOption, int drawingOption) : CAcadDxf() {
    colorOption_ = colorOption;
    tableOption_ = tableOption;
    drawingOption_ = drawingOption;
    if (!hasZufExtension(path)) {
        LoadDxf(path);
        return;
    }
    path_ = path;
    LoadZufData();
}

CAcadDxf::CAcadDxf(const CStringArray& lines, int colorOption, int drawingOption) : CAcadDxf() {
    colorOption_ = colorOption;
    drawingOption_ = drawingOption;
    LoadDxf(lines);
}

CAcadDxf::~CAcadDxf() = default;

void CAcadDxf::clear() {
    ascii_ = 1;
    isDrawing_ = false;
    findings_ = {};
    version_ = 0;
    defaultColor_ = 1;
    minX_ = minY_ = maxX_ = maxY_ = 0;
    layerIndex_.clear();
    blockIndex_.clear();
    for (CEntList* list : {&layers_, &blocks_, &entities_, &tables_})
        list->Free();
    zufLines_.RemoveAll();
    memory_ = std::make_shared<zu::dxf::PartMemory>();
}

// ---- the drawing

void CAcadDxf::GetSave(double& minX, double& minY, double& maxX, double& maxY) const {
    minX = minX_;
    minY = minY_;
    maxX = maxX_;
    maxY = maxY_;
}

const CLayer* CAcadDxf::FindLayer(const wchar_t* name) const {
    return found(layerIndex_, name);
}

const CBlock* CAcadDxf::FindBlock(const wchar_t* name) const {
    return found(blockIndex_, name);
}

int CAcadDxf::GetLyColor(const wchar_t* layer) const {
    const CLayer* const known = FindLayer(layer);
    return known != nullptr ? known->m_color : defaultColor_;
}

CString CAcadDxf::GetLinetype(const wchar_t* layer) const {
    const CLayer* const known = FindLayer(layer);
    return known != nullptr && !known->m_linetype.IsEmpty() ? known->m_linetype : CString(L"CONTINUOUS");
}

int CAcadDxf::GetLineWeight(const wchar_t* layer) const {
    const CLayer* const known = FindLayer(layer);
    return known != nullptr ? known->m_lineWeight : CEnt::kWeightDefault;
}

// ---- files

int CAcadDxf::IsAscii(const wchar_t* path) {
    CFile file;
    if (path == nullptr ||
        file.Open(path, CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary) == FALSE)
        return 1;
    std::array<char, kMarkLength> bytes{};
    try {
        const UINT got = file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
        return zuhost::dxf::isBinaryDrawing({bytes.data(), got}) ? 0 : 1;
    } catch (CFileException* error) {
        error->Delete();
        return 1;
    }
}

bool CAcadDxf::Open(const wchar_t* path) {
    clear();
    path_ = path;
    input_ = RecordInput::open(path, tableOption_ == kStrictTable ? CodeTable::strict : CodeTable::complete);
    if (input_ == nullptr)
        return false;
    ascii_ = input_->isBinary() ? 0 : 1;
    memory_->arena.expect(input_->length());
    memory_->text.setMark(input_->hasMark());
    memory_->text.setLimit(input_->isBinary() ? kBinaryLimit : kAsciiLimit);
    return true;
}

bool CAcadDxf::Open(const CStringArray& lines) {
    clear();
    path_.Empty();
    input_ = RecordInput::fromText(joined(lines));
    memory_->text.setUtf8();
    return true;
}

int CAcadDxf::LoadDxf(const wchar_t* path) {
    if (!Open(path))
        return 0;
    load();
    return 1;
}

int CAcadDxf::LoadDxf(const CStringArray& lines) {
    Open(lines);
    load();
    return 1;
}

void CAcadDxf::load() {
    LoadDxfData();
    findings_ = input_->findings();
    input_.reset();
}

const zu::dxf::Findings& CAcadDxf::GetFindings() const {
    return input_ != nullptr ? input_->findings() : findings_;
}

// ---- records

int CAcadDxf::GetRecord() {
    return input_ != nullptr && input_->next() ? 1 : 0;
}

int CAcadDxf::GetCode() const {
    return input_ != nullptr ? input_->record().code : 0;
}

CString CAcadDxf::GetText() const {
    return input_ != nullptr ? memory_->text.decode(input_->record().value) : CString();
}

double CAcadDxf::GetReal() const {
    return input_ != nullptr ? zu::dxf::realOf(input_->record(), input_->isBinary()).number : 0;
}

int CAcadDxf::GetInteger() const {
    return input_ != nullptr ? zu::dxf::integerOf(input_->record(), input_->isBinary()).number : 0;
}

int CAcadDxf::ReadBinData(wchar_t* buffer, int count) {
    if (input_ == nullptr || count <= 0)
        return 0;
    return static_cast<int>(
        input_->readBytes(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(count)));
}

bool CAcadDxf::at(int code, std::string_view value) const {
    const zu::dxf::Record& record = input_->record();
    return record.code == code && record.value == value;
}

int CAcadDxf::Skip(int code, const wchar_t* name) {
    while (GetRecord() != 0)
        if (GetCode() == code && (name == nullptr || GetText() == name))
            return 1;
    return 0;
}

void CAcadDxf::FreePtrArray(CPtrArray& objects) {
    for (int i = 0; i < objects.GetSize(); ++i)
        delete static_cast<CObject*>(objects[i]);
    objects.RemoveAll();
}

void CAcadDxf::FreePtrArray2(CObArray& objects) {
    for (int i = 0; i < objects.GetSize(); ++i)
        delete objects[i];
    objects.RemoveAll();
}
