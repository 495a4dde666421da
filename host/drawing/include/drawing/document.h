#pragma once

#include "stub.h"
#include "tag_view.h"

#include <zuhost/platform/export.h>

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zuhost {

/// Why a drawing could not be opened or saved. `line` counts from 1; it is 0 for binary drawings, which have
/// the byte offset, and for faults of the whole file.
struct ZUHOST_API DocumentError {
    std::wstring file;
    std::uint64_t line = 0;
    std::uint64_t offset = 0;
    std::wstring problem;
    int systemError = 0; ///< The system's error number, 0 for other problems.

    /// "FILE:LINE: PROBLEM", or "FILE: byte OFFSET: PROBLEM" for binary drawings. The label stands before the
    /// problem ("warning: ").
    [[nodiscard]] std::wstring message(std::wstring_view label = {}) const;
};

enum class DrawingForm { ascii, binary };

struct DrawingState;

/// A run of objects with one owner, in file order: a symbol table, a block with its entities, the ENTITIES
/// section, the OBJECTS section. `head` is the TABLE or BLOCK record, `tail` the ENDBLK; null where there is
/// none. A damaged file can lack the ENDBLK.
struct Container {
    enum class Kind { table, block, entities, objects };

    Kind kind = Kind::objects;
    std::string name; ///< Table name ("LAYER") or block name, in the drawing's encoding; else empty.
    AcDbStub* head = nullptr;
    AcDbStub* tail = nullptr;
    std::vector<AcDbStub*> members; ///< New ones at any position; those of the file in file order.

    std::uint64_t end = 0; ///< For the document: offset in the buffer at which new members are written.
    bool implied = false;  ///< Created by Document::implyModelSpace.
    bool created = false;  ///< For the document: not in the file yet.
};

/// A DXF drawing as its file holds it: the bytes and the positions of objects in them. Handles records only;
/// AcDbDatabase interprets them.
///
/// Every record of the file belongs either to an object (a stub) or to a byte range preserved verbatim
/// (section frames, HEADER, CLASSES, comments, thumbnails, unknown sections).
class ZUHOST_API Document {
public:
    using OpenResult = std::variant<std::unique_ptr<Document>, DocumentError>;

    /// Parses the bytes, which the document keeps, and creates a stub of `database` for each object. Fails
    /// when the structure is unreadable: a group code that is no integer, a file that is cut off. Every other
    /// fault is a warning, its records are preserved verbatim, and an unreadable value counts as missing.
    /// `file` is for messages only.
    static OpenResult open(std::string bytes, const std::wstring& file, AcDbDatabase* database);

    /// Reads the named file and opens it.
    static OpenResult openFile(const std::wstring& file, AcDbDatabase* database);

    /// Returns a minimal valid drawing (R2018, UTF-8, standard tables, model and paper space, group
    /// dictionary).
    static std::unique_ptr<Document> createEmpty(AcDbDatabase* database);

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document();

    [[nodiscard]] DrawingForm form() const;
    /// Returns the number in $ACADVER: 1009 for R12 ... 1032 for R2018.
    [[nodiscard]] int version() const;

    /// Convert text from the drawing's encoding and back. Decoding resolves "\U+XXXX" and "\M+nXXXX" escapes.
    /// Encoding never fails: characters outside the encoding are written as "\U+XXXX", line ends and other
    /// control characters in caret notation ("^J").
    [[nodiscard]] std::wstring decode(std::string_view value) const;
    /// Replaces the text, of which the memory is reused.
    void decode(std::string_view value, std::wstring& text) const;
    [[nodiscard]] std::string encode(std::wstring_view text) const;

    /// Returns the faults that the drawing was opened with, in file order and limited in number.
    [[nodiscard]] const std::vector<DocumentError>& warnings() const;

    // ---- objects
    [[nodiscard]] const std::string& typeName(const AcDbStub& stub) const; ///< "INSERT", "DICTIONARY" ...
    [[nodiscard]] AcDbStub* find(std::uint64_t handle) const;              ///< Null when there is none.
    /// Returns the records of an object of the file where they are in the buffer, which never changes. A
    /// handle that is replaced on saving is the old one.
    [[nodiscard]] TagView view(const AcDbStub& stub) const;
    /// Returns a copy of the records, for an object of the file to be changed, or the first ones of a new
    /// one.
    [[nodiscard]] TagList tags(const AcDbStub& stub) const;
    /// Returns 5, or 105 for the entries of the DIMSTYLE table.
    [[nodiscard]] int handleCode(const AcDbStub& stub) const;
    /// In file order. Containers never move: references stay valid.
    [[nodiscard]] std::list<Container>& containers();
    [[nodiscard]] const std::list<Container>& containers() const;
    /// Returns the first container of the kind and name (case-sensitive), created when the drawing lacks it.
    /// Kind::entities and Kind::objects have no name.
    Container& container(Container::Kind kind, std::string_view name = {});
    /// Returns the same container; null when the drawing lacks it.
    [[nodiscard]] Container* findContainer(Container::Kind kind, std::string_view name = {}) const;
    [[nodiscard]] std::size_t objectCount() const;

    /// Appends a stub for a new object of the type, with the next free handle, to the container's members.
    /// `tags` returns its first records: type, handle, owner.
    AcDbStub* append(Container& container, std::string_view typeName, AcDbStub* owner);

    /// Appends a container for a new block, with new BLOCK and ENDBLK stubs, after the last block. `tags`
    /// returns complete records of both: layer 0, base point at the origin.
    Container& appendBlock(std::string name, AcDbStub* owner);

    /// Appends a block for model space to a drawing whose file has none. It owns the entities of model space
    /// and is never written.
    Container& implyModelSpace();

    // ---- header
    /// The records of the HEADER section: variable names (code 9) and values.
    [[nodiscard]] const TagList& header() const;
    void setHeader(TagList header);

    // ---- saving
    /// Returns the records that an object is saved with: null for those in the buffer; an empty list omits
    /// the object.
    using TagSource = std::function<const TagList*(const AcDbStub&)>;

    /// Writes the drawing to the file, atomically. Erased objects are omitted; $HANDSEED is raised above
    /// every handle when objects were added. An unchanged drawing keeps its bytes; a changed one is written
    /// with the new handles of objects whose handle was repeated or unreadable. Returns nullopt on success;
    /// on failure the old file is untouched. Saving to the file that the drawing was opened from, under
    /// whatever name, fails with the system error ESTALE when another program has changed, replaced or
    /// removed it since; other files are replaced.
    std::optional<DocumentError> save(const std::wstring& file, DrawingForm form, const TagSource& tags);

    /// Lets saves replace the file that the drawing was opened from in spite of changes, until one succeeds.
    void allowReplacingChangedFile();

    /// Returns the bytes that `save` writes; empty, with the reason in `error`, when the other form cannot
    /// hold a value (a number beyond 16 bits, a chunk beyond 255 bytes).
    [[nodiscard]] std::string bytes(DrawingForm form, const TagSource& tags,
                                    DocumentError* error = nullptr) const;

    /// Returns the bytes that `save` writes in the drawing's own form: those of an unchanged drawing are
    /// shared, not copied, and outlive the document. Null when the form cannot hold a value.
    [[nodiscard]] std::shared_ptr<const std::string> sharedBytes(const TagSource& tags) const;

private:
    explicit Document(std::shared_ptr<DrawingState> state);

    std::shared_ptr<DrawingState> state_;
};

} // namespace zuhost
