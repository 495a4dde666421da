#pragma once

#include "stub.h"
#include "tag_list.h"

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zuhost {

/// Why a drawing could not be opened or saved. `line` counts from 1 (0: not about a line; binary drawings
/// have the byte offset instead).
struct DocumentError {
    std::wstring file;
    std::uint64_t line = 0;
    std::uint64_t offset = 0;
    std::wstring problem;

    /// "FILE:LINE: PROBLEM", or "FILE: byte OFFSET: PROBLEM" for binary drawings. The label stands before the
    /// problem ("warning: ").
    [[nodiscard]] std::wstring message(std::wstring_view label = {}) const;
};

enum class DrawingForm { ascii, binary };

struct DrawingState;

/// A run of objects with one owner, in file order: a symbol table, a block with its entities, the ENTITIES
/// section, the OBJECTS section. `head` is the TABLE or BLOCK record, `tail` the ENDBLK; null where there is
/// none. A damaged file may lack the ENDBLK.
struct Container {
    enum class Kind { table, block, entities, objects };

    Kind kind = Kind::objects;
    std::string name; ///< Table name ("LAYER") or block name, in the drawing's encoding; else empty.
    AcDbStub* head = nullptr;
    AcDbStub* tail = nullptr;
    std::vector<AcDbStub*> members; ///< New ones may stand anywhere; those of the file keep their order.

    std::uint64_t end = 0; ///< For the document: where new members are written in the buffer.
    bool implied = false;  ///< Made by Document::implyModelSpace.
    bool created = false;  ///< For the document: not in the file yet.
};

/// A DXF drawing as its file holds it: the bytes, and what lies where in them. Knows records and their order,
/// nothing of what objects mean; AcDbDatabase gives them meaning.
///
/// Every record of the file belongs either to an object (a stub) or to a stretch that is kept as it stands
/// (section frames, HEADER, CLASSES, comments, thumbnails, sections that nobody knows).
class Document {
public:
    using OpenResult = std::variant<std::unique_ptr<Document>, DocumentError>;

    /// Scans the bytes (which the document keeps) and makes a stub for each object, all with `database` as
    /// theirs. Fails when the structure is unreadable: a group code that is no integer, a file that is cut
    /// off. Every other fault is a warning, its records are preserved verbatim, and an unreadable value
    /// counts as missing. `file` is for messages only.
    static OpenResult open(std::string bytes, const std::wstring& file, AcDbDatabase* database);

    /// Reads the named file and opens it.
    static OpenResult openFile(const std::wstring& file, AcDbDatabase* database);

    /// A minimal valid drawing (R2018, UTF-8, standard tables, model and paper space, group dictionary).
    static std::unique_ptr<Document> createEmpty(AcDbDatabase* database);

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document();

    [[nodiscard]] DrawingForm form() const;
    /// Number of $ACADVER: 1009 for R12 ... 1032 for R2018.
    [[nodiscard]] int version() const;

    /// Text of the drawing's encoding into wide text and back, "\U+XXXX" and "\M+nXXXX" escapes resolved;
    /// what the encoding lacks is written as "\U+XXXX", so that encoding never fails. Line ends and other
    /// control characters in a value are written in caret notation ("^J").
    [[nodiscard]] std::wstring decode(std::string_view value) const;
    [[nodiscard]] std::string encode(std::wstring_view text) const;

    /// Faults that did not keep the drawing from opening, in file order and limited in number, for the user.
    [[nodiscard]] const std::vector<DocumentError>& warnings() const;

    // ---- objects
    [[nodiscard]] const std::string& typeName(const AcDbStub& stub) const; ///< "INSERT", "DICTIONARY" ...
    [[nodiscard]] AcDbStub* find(std::uint64_t handle) const;              ///< Null when there is none.
    [[nodiscard]] TagList tags(const AcDbStub& stub) const;                ///< As in the buffer.
    /// Code 5, or 105 for the entries of the DIMSTYLE table.
    [[nodiscard]] int handleCode(const AcDbStub& stub) const;
    /// In file order. Containers never move, so that references to them stay good.
    [[nodiscard]] std::list<Container>& containers();
    [[nodiscard]] const std::list<Container>& containers() const;
    /// The first container of the kind and name (names of tables; names of blocks as they are spelled), made
    /// with its section when the drawing lacks it. Kind::entities and Kind::objects have no name.
    Container& container(Container::Kind kind, std::string_view name = {});
    [[nodiscard]] std::size_t objectCount() const;

    /// A stub for a new object of the type, with the next free handle, appended to the container's members.
    /// `tags` gives its first records: type, handle, owner.
    AcDbStub* append(Container& container, std::string_view typeName, AcDbStub* owner);

    /// A container for a new block (its BLOCK and ENDBLK stubs new as well), placed after the last block.
    /// `tags` gives complete records of both: layer 0, base point at the origin.
    Container& appendBlock(std::string name, AcDbStub* owner);

    /// A block for model space of a file that doesn't spell it out (drawings before R13, short ones of any
    /// version). It owns the entities of model space and is never written.
    Container& implyModelSpace();

    // ---- header
    /// All records of the HEADER section, variable names (code 9) and values; changing it marks it changed.
    [[nodiscard]] const TagList& header() const;
    void setHeader(TagList header);

    // ---- saving
    /// Gives the records that an object is saved with; null: as they stand in the buffer. Without any the
    /// object is left out.
    using TagSource = std::function<const TagList*(const AcDbStub&)>;

    /// Writes the drawing to the file, atomically. Erased objects are left out; $HANDSEED is raised above
    /// every handle when objects were added. An unchanged drawing keeps its bytes; otherwise objects whose
    /// handle was taken or unreadable get their new one. Nullopt on success; on failure the old file is
    /// untouched.
    std::optional<DocumentError> save(const std::wstring& file, DrawingForm form,
                                      const TagSource& tags) const;

    /// The same into memory; empty, with the reason in `error`, when the other form cannot hold a value (a
    /// number beyond 16 bits, a chunk beyond 255 bytes).
    [[nodiscard]] std::string bytes(DrawingForm form, const TagSource& tags,
                                    DocumentError* error = nullptr) const;

private:
    explicit Document(std::unique_ptr<DrawingState> state);

    std::unique_ptr<DrawingState> state_;
};

} // namespace zuhost
