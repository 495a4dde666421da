#pragma once

#include "export.h"

#include <afxcoll.h>
#include <rxclass.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// Part drawings: parses ASCII and binary DXF files, and the ".zuf" files beside them, into a light drawing in
// memory, without a drawing database.
//
// Lengths are in drawing units, angles in degrees counter-clockwise unless a field states otherwise, line
// weights in hundredths of a millimetre; colours are the host's colour numbers. The numbers in field comments
// are DXF group codes and flag values. Z coordinates of entities are not stored.

namespace zu::dxf {
class Arena;
class RecordInput;
struct EntityFields;
struct KeptPart;
struct KeptText;
struct PartMemory;

/// An array in the memory pool of a drawing, which owns the elements.
template <typename Element>
struct KeptArray {
    Element* items = nullptr;
    std::size_t count = 0;
    std::size_t capacity = 0;
};

/// A fault in a file, around which the reader continued or at which it stopped.
struct Finding {
    std::uint64_t line = 0;   ///< Line of the group code, from 1; 0 in binary files.
    std::uint64_t offset = 0; ///< Offset of the value from the start of the file, in bytes.
    int code = 0;             ///< Group code; Findings::kNoCode if there is none.
    std::string_view problem; ///< The fault and how the reader handled it, in English; a constant text.
};

/// The faults of a file.
struct Findings {
    static constexpr int kNoCode = -1;
    std::vector<Finding> kept; ///< The first faults, in file order.
    std::size_t count = 0;     ///< Number of all faults, kept or not.
};
} // namespace zu::dxf

/// The type of an entity, which corresponds to its class.
enum class EntType : std::uint8_t {
    line,
    lwPolyline,
    circle,
    arc,
    ellipse,
    polyline,
    vertex,
    insert,
    text,
    mtext,
    dimension,
    point
};

/// Base class of the entities of a part drawing. A field whose record is missing in the file keeps its
/// initial value; Has distinguishes the two cases.
///
/// Entities live in a memory pool that exists as long as the drawing or any list filled with its entities.
/// Deleting an entity only runs its destructor.
class ZUCOMN_API CEnt : public CObject {
    DECLARE_DYNAMIC(CEnt)
public:
    static constexpr short kByBlock = 0;
    static constexpr short kByLayer = 256;
    static constexpr short kWeightByLayer = -1;
    static constexpr short kWeightByBlock = -2;
    static constexpr short kWeightDefault = -3;

    /// Returns the DXF type name, such as "LINE"; "POLYLINE" also for entities that the file calls "PLINE".
    [[nodiscard]] const wchar_t* GetTypeName() const;
    /// Returns the handle in upper-case hexadecimal digits; empty when the file has none.
    [[nodiscard]] CString GetHandle() const;
    /// Returns the layer name.
    [[nodiscard]] const CString& GetLayer() const { return nameOf(layer_); }
    /// Returns true when the file has a record of the group code, which must be one that the entity stores.
    [[nodiscard]] bool Has(int code) const;

    // Entities are allocated in a memory pool only.
    static void* operator new(std::size_t) = delete;
    static void* operator new(std::size_t size, zu::dxf::Arena& arena);
    static void operator delete(void*) {}
    static void operator delete(void*, zu::dxf::Arena&) {}

    const EntType m_type;
    bool m_paper = false;                ///< 67: in paper space.
    bool m_mirrored = false;             ///< 230 is -1: drawn on a plane seen from below.
    short m_color = kByLayer;            ///< 62; kByLayer for numbers below 0 or above 256.
    short m_lineWeight = kWeightByLayer; ///< 370.

protected:
    /// An entity without fields.
    explicit CEnt(EntType type) : m_type(type) {}
    /// Returns the name; an empty one for null.
    static const CString& nameOf(const CString* name);

private:
    friend struct zu::dxf::EntityFields;

    std::uint64_t handle_ = 0;
    const CString* layer_ = nullptr;
    std::uint32_t present_ = 0;
};

/// A list that owns its objects.
class ZUCOMN_API CEntList : public CObList {
public:
    CEntList() = default;
    ~CEntList() override { Free(); }
    /// Deletes the objects and empties the list.
    void Free();
    /// Keeps the memory pool of the objects alive until the list is freed.
    void Share(std::shared_ptr<zu::dxf::PartMemory> memory);

private:
    std::vector<std::shared_ptr<zu::dxf::PartMemory>> memory_;
};

/// LINE.
class ZUCOMN_API CLine : public CEnt {
    DECLARE_DYNAMIC(CLine)
public:
    CLine() : CEnt(EntType::line) {}

    double m_x1 = 0, m_y1 = 0, m_x2 = 0, m_y2 = 0;
};

/// A vertex of a CLwPline; the bulge applies to the segment that starts here.
struct CDblPoint {
    double x = 0;
    double y = 0;
    double bulge = 0;
};

/// Start and end width of the segment that starts at a vertex.
struct CDblWidth {
    double start = 0;
    double end = 0;
};

/// LWPOLYLINE.
class ZUCOMN_API CLwPline : public CEnt {
    DECLARE_DYNAMIC(CLwPline)
public:
    CLwPline() : CEnt(EntType::lwPolyline) {}

    /// Returns the vertices, valid as long as the entity.
    [[nodiscard]] std::span<const CDblPoint> GetPoints() const { return {points_.items, points_.count}; }
    /// Returns the widths by vertex (40, 41), up to the last vertex that has any; valid as long as the
    /// entity.
    [[nodiscard]] std::span<const CDblWidth> GetWidths() const { return {widths_.items, widths_.count}; }

    double m_width = 0; ///< 43: width of segments without an entry in GetWidths.
    int m_flags = 0;    ///< 70; 1 closed.

private:
    friend struct zu::dxf::EntityFields;
    zu::dxf::KeptArray<CDblPoint> points_;
    zu::dxf::KeptArray<CDblWidth> widths_;
};

/// CIRCLE.
class ZUCOMN_API CCircle : public CEnt {
    DECLARE_DYNAMIC(CCircle)
public:
    CCircle() : CEnt(EntType::circle) {}

    double m_x = 0, m_y = 0, m_radius = 0;
};

/// ARC.
class ZUCOMN_API CArc : public CEnt {
    DECLARE_DYNAMIC(CArc)
public:
    CArc() : CEnt(EntType::arc) {}

    double m_x = 0, m_y = 0, m_radius = 0, m_start = 0, m_end = 0;
};

/// ELLIPSE.
class ZUCOMN_API CEllipse : public CEnt {
    DECLARE_DYNAMIC(CEllipse)
public:
    CEllipse() : CEnt(EntType::ellipse) {}

    double m_x = 0, m_y = 0;
    double m_majorX = 0, m_majorY = 0; ///< End of the major axis relative to the centre.
    double m_ratio = 1;                ///< Ratio of the minor to the major axis.
    double m_start = 0, m_end = 0;     ///< Parameters in radians.
};

/// VERTEX of a CPline.
class ZUCOMN_API CVertex : public CEnt {
    DECLARE_DYNAMIC(CVertex)
public:
    CVertex() : CEnt(EntType::vertex) {}

    double m_x = 0, m_y = 0, m_bulge = 0;
    double m_startWidth = 0, m_endWidth = 0;
    double m_tangent = 0;                              ///< 50: tangent direction for curve fitting.
    int m_flags = 0;                                   ///< 70; 16: control point of a spline frame.
    short m_corner1 = 0, m_corner2 = 0, m_corner3 = 0; ///< 71 to 73: vertex numbers of a face, from 1; a
                                                       ///< negative number hides the edge from there.
};

/// POLYLINE.
class ZUCOMN_API CPline : public CEnt {
    DECLARE_DYNAMIC(CPline)
public:
    CPline() : CEnt(EntType::polyline) {}

    double m_startWidth = 0, m_endWidth = 0; ///< 40, 41: widths of vertices without their own.
    int m_flags = 0;                         ///< 70; 1: closed, 16: mesh, 64: polyface mesh.
    short m_rows = 0, m_columns = 0; ///< 71, 72: size of a mesh; vertices and faces of a polyface mesh.
    short m_density = 0;             ///< 73: rows of a smoothed mesh.
    CEntList m_vertices;             ///< CVertex.
};

/// INSERT: a block reference.
class ZUCOMN_API CInsert : public CEnt {
    DECLARE_DYNAMIC(CInsert)
public:
    CInsert() : CEnt(EntType::insert) {}
    /// Returns the name of the block.
    [[nodiscard]] const CString& GetBlock() const { return nameOf(block_); }

    double m_x = 0, m_y = 0, m_xScale = 1, m_yScale = 1, m_rotation = 0;
    double m_columnSpacing = 0, m_rowSpacing = 0; ///< 44, 45.
    int m_columns = 1, m_rows = 1;                ///< 70, 71: not validated; damaged files hold huge values.

private:
    friend struct zu::dxf::EntityFields;
    const CString* block_ = nullptr;
};

/// TEXT.
class ZUCOMN_API CText : public CEnt {
    DECLARE_DYNAMIC(CText)
public:
    CText() : CEnt(EntType::text) {}
    /// Returns the text. Each call decodes it again, as do the text functions of the other types.
    [[nodiscard]] CString GetText() const;
    /// Returns the name of the style.
    [[nodiscard]] const CString& GetStyle() const { return nameOf(style_); }

    double m_x = 0, m_y = 0;
    double m_x2 = 0, m_y2 = 0; ///< Alignment point; unused for left, baseline.
    double m_height = 0, m_width = 1, m_rotation = 0, m_oblique = 0;
    int m_halign = 0;     ///< 72: 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit.
    int m_valign = 0;     ///< 73: 0 baseline, 1 bottom, 2 middle, 3 top.
    int m_generation = 0; ///< 71; 2: backward, 4: upside down.

private:
    friend struct zu::dxf::EntityFields;
    const zu::dxf::KeptText* text_ = nullptr;
    const CString* style_ = nullptr;
};

/// MTEXT.
class ZUCOMN_API CMtext : public CEnt {
    DECLARE_DYNAMIC(CMtext)
public:
    CMtext() : CEnt(EntType::mtext) {}
    /// Returns the pieces of the text before the last one (3).
    [[nodiscard]] std::vector<CString> GetParts() const;
    /// Returns the last piece of the text (1).
    [[nodiscard]] CString GetText() const;
    /// Returns the whole text: all pieces joined, with their format codes.
    [[nodiscard]] CString GetFullText() const;
    /// Returns the name of the style.
    [[nodiscard]] const CString& GetStyle() const { return nameOf(style_); }

    double m_x = 0, m_y = 0;
    double m_x2 = 0, m_y2 = 0; ///< Direction of the text; applies when the file has no angle.
    double m_height = 0, m_width = 0, m_rotation = 0;
    double m_writtenWidth = 0; ///< 42: width of the characters.
    int m_attach = 1;          ///< 71: 1 to 9, row by row from top left to bottom right.
    short m_direction = 1;     ///< 72: 1 left to right, 3 top to bottom, 5 by style.
    short m_lineSpacing = 1;   ///< 73: 1 at least, 2 exactly.

private:
    friend struct zu::dxf::EntityFields;
    zu::dxf::KeptArray<zu::dxf::KeptPart> parts_;
    const zu::dxf::KeptText* text_ = nullptr;
    const CString* style_ = nullptr;
};

/// DIMENSION.
class ZUCOMN_API CDim : public CEnt {
    DECLARE_DYNAMIC(CDim)
public:
    CDim() : CEnt(EntType::dimension) {}
    /// Returns the name of the block with the dimension's graphics.
    [[nodiscard]] const CString& GetBlock() const { return nameOf(block_); }
    /// Returns the name of the style.
    [[nodiscard]] const CString& GetStyle() const { return nameOf(style_); }
    /// Returns the text that replaces or surrounds the measured value.
    /// Returns the text that stands for the measured value.
    [[nodiscard]] CString GetText() const;

    double m_x = 0, m_y = 0, m_x2 = 0, m_y2 = 0, m_angle = 0;
    double m_leader = 0;          ///< 40: leader length of radius and diameter dimensions.
    double m_lineSpacing = 1;     ///< 41: factor of the line spacing.
    double m_measurement = 0;     ///< 42: the measured value.
    double m_horizontal = 0;      ///< 51: horizontal direction.
    int m_flags = 0;              ///< 70: dimension type.
    short m_attach = 5;           ///< 71: as for CMtext.
    short m_lineSpacingStyle = 1; ///< 72: as 73 of CMtext.

private:
    friend struct zu::dxf::EntityFields;
    const zu::dxf::KeptText* text_ = nullptr;
    const CString* block_ = nullptr;
    const CString* style_ = nullptr;
};

/// POINT.
class ZUCOMN_API CAcPoint : public CEnt {
    DECLARE_DYNAMIC(CAcPoint)
public:
    CAcPoint() : CEnt(EntType::point) {}

    double m_x = 0, m_y = 0;
    double m_angle = 0; ///< 50: x direction of the point mark.
};

/// A layer of the LAYER table.
class ZUCOMN_API CLayer : public CObject {
public:
    CString m_name;
    CString m_linetype;
    int m_color = 7; ///< 62, unchanged; negative when the layer is off.
    int m_flags = 0; ///< 70; 1: frozen.
    int m_lineWeight = CEnt::kWeightDefault;
};

/// A block definition with its own entities.
class ZUCOMN_API CBlock : public CObject {
public:
    CString m_name;
    double m_x = 0, m_y = 0, m_z = 0; ///< Base point.
    int m_flags = 0;
    CEntList m_entities;
};

/// A table of the TABLES section.
class ZUCOMN_API CTable : public CObject {
public:
    CString m_name;
};

/// Reads a part drawing and owns its contents.
///
/// Reading is tolerant; GetFindings lists the faults. A file that cannot be opened yields an empty drawing,
/// as does a pipe without a writer; other pipes are read to their end. Reading stops at the last complete
/// record of a truncated file, at a group code that is not a number, and at one that is not in the code table
/// of a binary file; the contents read so far are kept. In numbers, text after the number is ignored ("12abc"
/// is 12), and missing or non-finite values are 0. A blank line in place of a group code is skipped.
///
/// Text is in the code page that $DWGCODEPAGE names (932 when it is missing or unknown), from R2007 on in
/// UTF-8.
/// "\U+XXXX" and "\M+nXXXX" are decoded. Texts are truncated to 512 characters, in binary files to 255. A
/// binary file yields the same drawing as its ASCII twin.
class ZUCOMN_API CAcadDxf : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(CAcadDxf);

    /// Colour option: the default colour is 7 instead of 1. All values except 0 have this effect.
    static constexpr int kWhite = 1;
    /// Table option: group codes of binary files have two bytes, and codes beyond those of early part
    /// drawings stop the reading. Otherwise the first records determine whether codes have one byte or two.
    static constexpr int kStrictTable = 1;
    /// Drawing option: reads header, tables and blocks only.
    static constexpr int kNoEntities = 1;

    /// Constructs an empty drawing.
    CAcadDxf();
    /// Reads a DXF file, or a ".zuf" file when the path has that extension.
    explicit CAcadDxf(const wchar_t* path, int colorOption = 0, int tableOption = 0, int drawingOption = 0);
    /// Reads an ASCII drawing from lines of text.
    explicit CAcadDxf(const CStringArray& lines, int colorOption = 0, int drawingOption = 0);
    ~CAcadDxf() override;
    CAcadDxf(const CAcadDxf&) = delete;
    CAcadDxf& operator=(const CAcadDxf&) = delete;

    // ---- the drawing

    /// Returns 0 for a binary drawing, else 1.
    [[nodiscard]] int GetAsciiFlag() const { return ascii_; }
    /// Returns the digits of $ACADVER, for example 1015 for AC1015; 0 when it is missing.
    [[nodiscard]] int GetVersion() const { return version_; }
    /// Stores the extents of the header, or of the header line of a ".zuf" file read later; all 0 when there
    /// are none.
    void GetSave(double& minX, double& minY, double& maxX, double& maxY) const;
    [[nodiscard]] const CObList& GetLayers() const { return layers_; }     ///< CLayer objects.
    [[nodiscard]] const CObList& GetBlocks() const { return blocks_; }     ///< CBlock objects.
    [[nodiscard]] const CObList& GetEntities() const { return entities_; } ///< CEnt objects.
    [[nodiscard]] const CObList& GetTables() const { return tables_; }     ///< CTable objects.
    /// Returns the lines of the ".zuf" file.
    [[nodiscard]] const CStringArray& GetZufLines() const { return zufLines_; }
    /// Returns the colour of entities on layers that are not in the drawing.
    [[nodiscard]] int GetDefaultColor() const { return defaultColor_; }
    /// Returns the faults found so far.
    [[nodiscard]] const zu::dxf::Findings& GetFindings() const;
    /// Returns true when the loaded records begin as a drawing does, with group code 0.
    [[nodiscard]] bool IsDrawing() const { return isDrawing_; }

    // Names of layers and blocks are compared without regard to case.

    /// Returns a layer's colour number as stored in the file: negative while the layer is off, with the
    /// colour as its absolute value. 0 and absolute values above 255 are not colours. A missing layer has the
    /// default colour.
    [[nodiscard]] int GetLyColor(const wchar_t* layer) const;
    /// Returns a layer's linetype; "CONTINUOUS" when the layer or its linetype is missing.
    [[nodiscard]] CString GetLinetype(const wchar_t* layer) const;
    /// Returns a layer's line weight; CEnt::kWeightDefault when the layer is missing.
    [[nodiscard]] int GetLineWeight(const wchar_t* layer) const;
    /// Returns the layer of that name; null when there is none. The drawing keeps ownership.
    [[nodiscard]] const CLayer* FindLayer(const wchar_t* name) const;
    /// Returns the block of that name; null when there is none. The drawing keeps ownership.
    [[nodiscard]] const CBlock* FindBlock(const wchar_t* name) const;

    // ---- reading

    /// Returns 0 when the file begins with the 18 characters of a binary drawing, else 1, also when it cannot
    /// be opened.
    static int IsAscii(const wchar_t* path);
    /// Returns true when the ENTITIES section contains an entity of a supported type. Stops reading at the
    /// first.
    static bool CheckEntities(const wchar_t* path);

    /// Empties the drawing and opens a file without loading it; GetRecord then reads its first record.
    /// Returns false when the file cannot be opened.
    bool Open(const wchar_t* path);
    /// Empties the drawing and opens lines of text in the same way. Returns true.
    bool Open(const CStringArray& lines);
    /// Empties the drawing and loads a file. Returns 1, or 0 when the file cannot be opened.
    int LoadDxf(const wchar_t* path);
    /// Empties the drawing and loads lines of text. Returns 1.
    int LoadDxf(const CStringArray& lines);

    /// Reads the next record, skipping comments. Returns 1, or 0 at the end of the input or on failure; the
    /// current record then keeps its code but not its value.
    int GetRecord();
    /// Returns the group code of the current record.
    [[nodiscard]] int GetCode() const;
    /// Returns the current value as text.
    [[nodiscard]] CString GetText() const;
    /// Returns the current value as a real number; 0 when the group code has another type of value.
    [[nodiscard]] double GetReal() const;
    /// Returns the current value as an integer; 0 when the group code has another type of value.
    [[nodiscard]] int GetInteger() const;
    /// Copies up to `count` bytes of a binary file, continuing after the last byte read, to a buffer of at
    /// least that many bytes. Returns the number of bytes copied. The current record keeps its code but not
    /// its value.
    int ReadBinData(wchar_t* buffer, int count);
    /// Reads one or more records, up to the next with the group code and, if `name` is not null, that value.
    /// Returns 1, or 0 at the end of the input.
    int Skip(int code, const wchar_t* name = nullptr);

    // These functions load what follows the current record. The last record read becomes the current record.
    /// Loads all sections.
    void LoadDxfData();
    /// Loads the HEADER section.
    void LoadHeader();
    /// Loads the TABLES section.
    void LoadTables();
    /// Loads the LAYER table.
    void LoadLayer();
    /// Loads the BLOCKS section.
    void LoadBlocks();
    /// Loads entities into a list, up to the end of the section or block.
    void LoadEnt(CEntList& list);

    // ---- ".zuf" files

    /// Reads the ".zuf" file that belongs to the drawing's path. Lines that begin with "H" set the extents;
    /// callers interpret the others. Returns false with nothing changed when there is no such file.
    bool LoadZufData();
    /// Copies the lines of a ".zuf" file in the same way. Returns true.
    bool LoadZufData(const CStringArray& lines);
    /// Copies the n-th member of a line whose members are separated by runs of blanks; member 0 precedes the
    /// first run. `member` may be the line itself. Returns 0, or -1 with an empty text when the line has
    /// fewer than n runs.
    static int GetRecordMember(int n, const CString& line, CString& member);

    /// Deletes the elements, which are CObject pointers, and empties the array.
    static void FreePtrArray(CPtrArray& objects);
    /// Does the same for an array of objects.
    static void FreePtrArray2(CObArray& objects);

private:
    void clear();
    void load();
    bool isAtEndOf(std::string_view end) const;
    void skipTo(std::string_view end);
    bool toSection(bool isFirst);
    bool skipToKeptEntity();
    bool toEntity();
    CTable* readTableName();
    void loadEntities();
    void readHeaderVariable(std::string_view variable);
    bool readBlockFields(CBlock& block);
    [[nodiscard]] bool at(int code, std::string_view value) const;

    int colorOption_ = 0;
    int tableOption_ = 0;
    int drawingOption_ = 0;
    int ascii_ = 1;
    bool isDrawing_ = false;
    int version_ = 0;
    int defaultColor_ = 1;
    double minX_ = 0, minY_ = 0, maxX_ = 0, maxY_ = 0;
    CString path_;
    std::unique_ptr<zu::dxf::RecordInput> input_; ///< Null unless a file is open.
    zu::dxf::Findings findings_;                  ///< Faults of the last input.
    std::shared_ptr<zu::dxf::PartMemory> memory_;
    CEntList layers_;
    CEntList blocks_;
    CEntList entities_;
    CEntList tables_;
    CStringArray zufLines_;
    std::unordered_map<std::wstring, const CLayer*> layerIndex_;
    std::unordered_map<std::wstring, const CBlock*> blockIndex_;
};

/// Stores the path of a drawing's ".zuf" file: the three characters after the last "." become "zuf", whatever
/// the length of the extension. ".zuf" is appended to a path without ".".
ZUCOMN_API void ZUComn_GetZufNameFromDxfName(CString dxfPath, CString& zufPath);

/// Determines which file of a part exists: returns 1 for the first path, 2 for the second, 3 for the first
/// with the three characters after its last "." replaced by "dwg", 0 for none. Callers pass the DXF file
/// first and the ".zuf" file second.
ZUCOMN_API int ZUComn_DxfOrZufFileExistOrNot(const CString& first, const CString& second);
