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

// Part drawings: reading ASCII and binary DXF files, and the ".zuf" files beside them, into a light drawing
// in memory, without a drawing database.
//
// Lengths are drawing units, angles degrees counter-clockwise unless a field says otherwise, colours the
// host's colour numbers, line weights hundredths of a millimetre. Z coordinates of entities are not kept.

namespace zu::dxf {
class Arena;
class RecordInput;
struct EntityFields;
struct KeptPart;
struct KeptText;
struct PartMemory;

/// Elements in the memory of a drawing.
template <typename Element>
struct KeptArray {
    Element* items = nullptr;
    std::size_t count = 0;
    std::size_t capacity = 0;
};

/// A fault of a file that was read around.
struct Finding {
    std::uint64_t line = 0;   ///< Of the group code, from 1; 0 in binary files.
    std::uint64_t offset = 0; ///< In bytes from the start of the file, of the value.
    int code = 0;             ///< The group code; Findings::kNoCode where there is none.
    std::string_view problem; ///< What is wrong and what was done about it, in English; a constant text.
};

struct Findings {
    static constexpr int kNoCode = -1;
    std::vector<Finding> kept; ///< The first ones, in the order of the file.
    std::size_t count = 0;     ///< All of them.
};
} // namespace zu::dxf

/// What an entity is; the object is of the class of the same name.
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

/// Base of the entities of a part drawing. A field whose record is not in the file keeps its initial value,
/// and Has tells so.
///
/// Entities are made in the memory of the drawing that is read, which lasts as long as the drawing or any
/// list that was filled with its entities. Deleting one runs its destructor and no more.
class ZUCOMN_API CEnt : public CObject {
    DECLARE_DYNAMIC(CEnt)
public:
    static constexpr short kByBlock = 0;
    static constexpr short kByLayer = 256;
    static constexpr short kWeightByLayer = -1;
    static constexpr short kWeightByBlock = -2;
    static constexpr short kWeightDefault = -3;

    /// "LINE", "LWPOLYLINE" ...; "POLYLINE" for what the file calls "PLINE".
    [[nodiscard]] const wchar_t* GetTypeName() const;
    /// Upper-case hexadecimal digits; empty when the file gives none.
    [[nodiscard]] CString GetHandle() const;
    [[nodiscard]] const CString& GetLayer() const { return nameOf(layer_); }
    /// True when the file has a record of that group code (one of those that the entity keeps).
    [[nodiscard]] bool Has(int code) const;

    static void* operator new(std::size_t) = delete;
    static void* operator new(std::size_t size, zu::dxf::Arena& arena);
    static void operator delete(void*) {}
    static void operator delete(void*, zu::dxf::Arena&) {}

    const EntType m_type;
    bool m_paper = false;                ///< In paper space (67).
    bool m_mirrored = false;             ///< Drawn on a plane seen from below (230 is -1).
    short m_color = kByLayer;            ///< 62; kByLayer for a number below 0 or above 256.
    short m_lineWeight = kWeightByLayer; ///< 370.

protected:
    explicit CEnt(EntType type) : m_type(type) {}
    static const CString& nameOf(const CString* name);

private:
    friend struct zu::dxf::EntityFields;

    std::uint64_t handle_ = 0;
    const CString* layer_ = nullptr;
    std::uint32_t present_ = 0;
};

/// A list of objects that it owns: deletes them when it is emptied or destroyed.
class ZUCOMN_API CEntList : public CObList {
public:
    CEntList() = default;
    ~CEntList() override { Free(); }
    void Free();
    /// The memory lasts as long as what the list holds.
    void Share(std::shared_ptr<zu::dxf::PartMemory> memory);

private:
    std::vector<std::shared_ptr<zu::dxf::PartMemory>> memory_;
};

class ZUCOMN_API CLine : public CEnt {
    DECLARE_DYNAMIC(CLine)
public:
    CLine() : CEnt(EntType::line) {}

    double m_x1 = 0, m_y1 = 0, m_x2 = 0, m_y2 = 0;
};

/// A vertex of a CLwPline; the bulge is that of the segment that starts here.
struct CDblPoint {
    double x = 0;
    double y = 0;
    double bulge = 0;
};

/// Widths at the start and the end of the segment that starts at a vertex.
struct CDblWidth {
    double start = 0;
    double end = 0;
};

class ZUCOMN_API CLwPline : public CEnt {
    DECLARE_DYNAMIC(CLwPline)
public:
    CLwPline() : CEnt(EntType::lwPolyline) {}

    [[nodiscard]] std::span<const CDblPoint> GetPoints() const { return {points_.items, points_.count}; }
    /// By vertex, as far as the file gives any (40, 41): later vertices have none.
    [[nodiscard]] std::span<const CDblWidth> GetWidths() const { return {widths_.items, widths_.count}; }

    double m_width = 0; ///< 43: of all segments where GetWidths gives none.
    int m_flags = 0;    ///< 70; 1 closed.

private:
    friend struct zu::dxf::EntityFields;
    zu::dxf::KeptArray<CDblPoint> points_;
    zu::dxf::KeptArray<CDblWidth> widths_;
};

class ZUCOMN_API CCircle : public CEnt {
    DECLARE_DYNAMIC(CCircle)
public:
    CCircle() : CEnt(EntType::circle) {}

    double m_x = 0, m_y = 0, m_radius = 0;
};

class ZUCOMN_API CArc : public CEnt {
    DECLARE_DYNAMIC(CArc)
public:
    CArc() : CEnt(EntType::arc) {}

    double m_x = 0, m_y = 0, m_radius = 0, m_start = 0, m_end = 0;
};

class ZUCOMN_API CEllipse : public CEnt {
    DECLARE_DYNAMIC(CEllipse)
public:
    CEllipse() : CEnt(EntType::ellipse) {}

    double m_x = 0, m_y = 0;
    double m_majorX = 0, m_majorY = 0; ///< End of the major axis, from the centre.
    double m_ratio = 1;                ///< Minor axis to major axis.
    double m_start = 0, m_end = 0;     ///< Parameters in radians.
};

class ZUCOMN_API CVertex : public CEnt {
    DECLARE_DYNAMIC(CVertex)
public:
    CVertex() : CEnt(EntType::vertex) {}

    double m_x = 0, m_y = 0, m_bulge = 0;
    double m_startWidth = 0, m_endWidth = 0;
    double m_tangent = 0;                              ///< 50: direction of the curve that was fitted.
    int m_flags = 0;                                   ///< 70; 16 control point of a spline frame.
    short m_corner1 = 0, m_corner2 = 0, m_corner3 = 0; ///< 71 to 73: the vertices of a face, counted from 1;
                                                       ///< negative: its edge from there is not drawn.
};

class ZUCOMN_API CPline : public CEnt {
    DECLARE_DYNAMIC(CPline)
public:
    CPline() : CEnt(EntType::polyline) {}

    double m_startWidth = 0, m_endWidth = 0; ///< 40, 41: of vertices without their own.
    int m_flags = 0;                         ///< 70; 1 closed, 16 mesh, 64 faces.
    short m_rows = 0, m_columns = 0;         ///< 71, 72: of a mesh; vertices and faces of faces.
    short m_density = 0;                     ///< 73: rows of a smoothed mesh.
    CEntList m_vertices;                     ///< CVertex.
};

class ZUCOMN_API CInsert : public CEnt {
    DECLARE_DYNAMIC(CInsert)
public:
    CInsert() : CEnt(EntType::insert) {}
    [[nodiscard]] const CString& GetBlock() const { return nameOf(block_); }

    double m_x = 0, m_y = 0, m_xScale = 1, m_yScale = 1, m_rotation = 0;
    double m_columnSpacing = 0, m_rowSpacing = 0; ///< 44, 45.
    int m_columns = 1, m_rows = 1;                ///< As the file says; not to be trusted.

private:
    friend struct zu::dxf::EntityFields;
    const CString* block_ = nullptr;
};

class ZUCOMN_API CText : public CEnt {
    DECLARE_DYNAMIC(CText)
public:
    CText() : CEnt(EntType::text) {}
    /// Decoded each time it is asked for; so are the texts of the other types.
    [[nodiscard]] CString GetText() const;
    [[nodiscard]] const CString& GetStyle() const { return nameOf(style_); }

    double m_x = 0, m_y = 0;
    double m_x2 = 0, m_y2 = 0; ///< Alignment point, where an alignment other than left, baseline needs it.
    double m_height = 0, m_width = 1, m_rotation = 0, m_oblique = 0;
    int m_halign = 0;     ///< 72: 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit.
    int m_valign = 0;     ///< 73: 0 baseline, 1 bottom, 2 middle, 3 top.
    int m_generation = 0; ///< 71; 2 backward, 4 upside down.

private:
    friend struct zu::dxf::EntityFields;
    const zu::dxf::KeptText* text_ = nullptr;
    const CString* style_ = nullptr;
};

class ZUCOMN_API CMtext : public CEnt {
    DECLARE_DYNAMIC(CMtext)
public:
    CMtext() : CEnt(EntType::mtext) {}
    /// Pieces before the last (3).
    [[nodiscard]] std::vector<CString> GetParts() const;
    /// The last piece (1).
    [[nodiscard]] CString GetText() const;
    /// All parts and the last piece, one after the other, with their format codes.
    [[nodiscard]] CString GetFullText() const;
    [[nodiscard]] const CString& GetStyle() const { return nameOf(style_); }

    double m_x = 0, m_y = 0;
    double m_x2 = 0, m_y2 = 0; ///< Direction of the text; counts when the file has it and no angle.
    double m_height = 0, m_width = 0, m_rotation = 0;
    double m_writtenWidth = 0; ///< 42: what the letters take of the width.
    int m_attach = 1;          ///< 71: 1 to 9, rows from top left to bottom right.
    short m_direction = 1;     ///< 72: 1 left to right, 3 top to bottom, 5 as the style says.
    short m_lineSpacing = 1;   ///< 73: 1 at least, 2 exactly.

private:
    friend struct zu::dxf::EntityFields;
    zu::dxf::KeptArray<zu::dxf::KeptPart> parts_;
    const zu::dxf::KeptText* text_ = nullptr;
    const CString* style_ = nullptr;
};

class ZUCOMN_API CDim : public CEnt {
    DECLARE_DYNAMIC(CDim)
public:
    CDim() : CEnt(EntType::dimension) {}
    /// The block that holds the dimension's picture.
    [[nodiscard]] const CString& GetBlock() const { return nameOf(block_); }
    [[nodiscard]] const CString& GetStyle() const { return nameOf(style_); }
    [[nodiscard]] CString GetText() const;

    double m_x = 0, m_y = 0, m_x2 = 0, m_y2 = 0, m_angle = 0;
    double m_leader = 0;          ///< 40: length of the leader of a radius or diameter.
    double m_lineSpacing = 1;     ///< 41: factor of the text's lines.
    double m_measurement = 0;     ///< 42: the value measured.
    double m_horizontal = 0;      ///< 51: direction that counts as horizontal.
    int m_flags = 0;              ///< 70; kind of dimension.
    short m_attach = 5;           ///< 71: as for CMtext.
    short m_lineSpacingStyle = 1; ///< 72: as 73 of CMtext.

private:
    friend struct zu::dxf::EntityFields;
    const zu::dxf::KeptText* text_ = nullptr;
    const CString* block_ = nullptr;
    const CString* style_ = nullptr;
};

class ZUCOMN_API CAcPoint : public CEnt {
    DECLARE_DYNAMIC(CAcPoint)
public:
    CAcPoint() : CEnt(EntType::point) {}

    double m_x = 0, m_y = 0;
    double m_angle = 0; ///< 50: direction of the x axis that point marks follow.
};

/// A layer of the LAYER table.
class ZUCOMN_API CLayer : public CObject {
public:
    CString m_name;
    CString m_linetype;
    int m_color = 7; ///< 62 as the file says; negative: the layer is off.
    int m_flags = 0; ///< 70; 1 frozen.
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

/// Reads a part drawing and holds it.
///
/// A file that can't be opened reads as an empty drawing; a pipe is read to its end, and one that nothing
/// writes to is empty. Reading ends at the last complete record of a truncated file, at a group code that is
/// no number, and at one that the table of a binary file doesn't know; what was read stays. Smaller faults
/// are read around: GetFindings lists both. A number that other text follows counts by its leading part
/// ("12abc" is 12), one that is missing or not finite is 0, a blank line in place of a group code is skipped.
/// Text is in the code page that $DWGCODEPAGE names (932 when it names none that is known), from R2007 on in
/// UTF-8; "\U+XXXX" and "\M+nXXXX" are read as the characters they stand for. Of a text at most 512
/// characters are kept, in binary files 255. Binary files are read byte for byte, so that a binary file gives
/// the same drawing as its ASCII twin.
class ZUCOMN_API CAcadDxf : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(CAcadDxf);

    static constexpr int kWhite = 1;       ///< Colour option: the default colour is 7 instead of 1. Any other
                                           ///< number but 0 does the same.
    static constexpr int kStrictTable = 1; ///< Table option: in binary files group codes have two bytes, and
                                           ///< those beyond early part drawings end the reading. Otherwise
                                           ///< the first records show whether codes have one byte or two.
    static constexpr int kNoEntities = 1;  ///< Drawing option: header, tables and blocks only.

    /// An empty drawing; LoadDxf fills it.
    CAcadDxf();
    /// Reads a DXF file, or a ".zuf" file when the path has that extension.
    explicit CAcadDxf(const wchar_t* path, int colorOption = 0, int tableOption = 0, int drawingOption = 0);
    /// Reads an ASCII drawing held as lines of text.
    explicit CAcadDxf(const CStringArray& lines, int colorOption = 0, int drawingOption = 0);
    ~CAcadDxf() override;
    CAcadDxf(const CAcadDxf&) = delete;
    CAcadDxf& operator=(const CAcadDxf&) = delete;

    // ---- the drawing

    /// 0 binary, 1 ASCII.
    [[nodiscard]] int GetAsciiFlag() const { return ascii_; }
    /// 1015 for $ACADVER AC1015; 0 without one.
    [[nodiscard]] int GetVersion() const { return version_; }
    /// The extents of the header, or of the header line of a ".zuf" file that was read later; all 0 when
    /// there are none.
    void GetSave(double& minX, double& minY, double& maxX, double& maxY) const;
    [[nodiscard]] const CObList& GetLayers() const { return layers_; }     ///< CLayer.
    [[nodiscard]] const CObList& GetBlocks() const { return blocks_; }     ///< CBlock.
    [[nodiscard]] const CObList& GetEntities() const { return entities_; } ///< CEnt.
    [[nodiscard]] const CObList& GetTables() const { return tables_; }     ///< CTable.
    [[nodiscard]] const CStringArray& GetZufLines() const { return zufLines_; }
    [[nodiscard]] int GetDefaultColor() const { return defaultColor_; }
    /// What was wrong with the file so far.
    [[nodiscard]] const zu::dxf::Findings& GetFindings() const;
    /// True when the records that were loaded begin as a drawing's do, with group code 0.
    [[nodiscard]] bool IsDrawing() const { return isDrawing_; }
    /// Look-ups by the layer's name, whatever its case. A layer that is not there has the default colour, the
    /// linetype "CONTINUOUS" and the default line weight.
    /// The colour is the layer's number as the file says: negative while the layer is off, which leaves its
    /// absolute value as the colour. 0 and absolute values above 255 are no colours.
    [[nodiscard]] int GetLyColor(const wchar_t* layer) const;
    [[nodiscard]] CString GetLinetype(const wchar_t* layer) const;
    [[nodiscard]] int GetLineWeight(const wchar_t* layer) const;
    /// The layer or block of that name, whatever its case; null when there is none.
    [[nodiscard]] const CLayer* FindLayer(const wchar_t* name) const;
    [[nodiscard]] const CBlock* FindBlock(const wchar_t* name) const;

    // ---- reading

    /// 0 when the file begins with the 18 characters of a binary drawing; 1 otherwise, or when it can't be
    /// opened.
    static int IsAscii(const wchar_t* path);
    /// True when the file holds an entity of a kept type in its ENTITIES section; reads no further than that.
    static bool CheckEntities(const wchar_t* path);

    /// Begins to read a file or lines without loading anything: the next GetRecord reads the first record.
    bool Open(const wchar_t* path);
    bool Open(const CStringArray& lines);
    /// Empties the drawing, then reads. 1 when the file could be opened, else 0.
    int LoadDxf(const wchar_t* path);
    int LoadDxf(const CStringArray& lines);

    /// Reads the next record that is no comment; 0 at the end or on failure: the current record then keeps
    /// its code, but not its value.
    int GetRecord();
    [[nodiscard]] int GetCode() const;
    /// The current value as text, real number or integer; a number is 0 where the group code means another
    /// kind of value.
    [[nodiscard]] CString GetText() const;
    [[nodiscard]] double GetReal() const;
    [[nodiscard]] int GetInteger() const;
    /// Delivers the next bytes of a binary file, in order and without gaps; returns how many there were. The
    /// buffer has to hold that many bytes. The current record keeps its code, but not its value.
    int ReadBinData(wchar_t* buffer, int count);
    /// Reads at least one record, then on until one with the code and, when a name is given, that value; 0 at
    /// the end of the input.
    int Skip(int code, const wchar_t* name = nullptr);

    // Each reads on from the current record and leaves the last one read as the current record.
    void LoadDxfData();
    void LoadHeader();
    void LoadTables();
    void LoadLayer();
    void LoadBlocks();
    void LoadEnt(CEntList& list);

    // ---- ".zuf" files

    /// Reads the ".zuf" file of the drawing's path into the lines; false, and nothing is changed, when there
    /// is none. Lines that begin with "H" set the extents; what the others mean is up to the caller.
    bool LoadZufData();
    /// Takes the lines of such a file; always true.
    bool LoadZufData(const CStringArray& lines);
    /// The n-th member of a line whose members are parted by runs of blanks; 0 is what comes before the
    /// first. -1 and an empty text when the line has fewer than n runs. `member` may be the line itself.
    static int GetRecordMember(int n, const CString& line, CString& member);

    // Delete the objects (each a CObject) and empty the array.
    static void FreePtrArray(CPtrArray& objects);
    static void FreePtrArray2(CObArray& objects);

private:
    void clear();
    void load();
    bool isAtEndOf(std::string_view end) const;
    void skipTo(std::string_view end);
    bool toSection(bool isFirst);
    bool skipToKeptEntity();
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
    std::unique_ptr<zu::dxf::RecordInput> input_; ///< Null before and after reading.
    zu::dxf::Findings findings_;                  ///< Of the input that was read.
    std::shared_ptr<zu::dxf::PartMemory> memory_;
    CEntList layers_;
    CEntList blocks_;
    CEntList entities_;
    CEntList tables_;
    CStringArray zufLines_;
    std::unordered_map<std::wstring, const CLayer*> layerIndex_;
    std::unordered_map<std::wstring, const CBlock*> blockIndex_;
};

/// The path of a drawing's ".zuf" file: the three characters after the last point, whatever the extension's
/// length, are replaced by "zuf". A path without a point gets one.
ZUCOMN_API void ZUComn_GetZufNameFromDxfName(CString dxfPath, CString& zufPath);

/// Which of a part's files there is: 1 the first path, 2 the second, 3 the first with the three characters
/// after its last point replaced by "dwg", 0 none. Callers pass the DXF file first and the ".zuf" file
/// second.
ZUCOMN_API int ZUComn_DxfOrZufFileExistOrNot(const CString& first, const CString& second);
