#pragma once

#include "record_output.h"

namespace zuhost {

/// Writes a drawing in file order: unchanged records as spans of the buffer, changed and added objects from
/// their tags. Erased objects are omitted.
class DrawingWriter {
public:
    DrawingWriter(const DrawingState& state, const Document::TagSource& source, RecordOutput& output);

    /// Writes the records within `content`: all of the buffer, or its records only.
    void run(Span content);

private:
    void writeContainer(const Container& container);
    void writeMembers(const Container& container);
    void writeCreated(const Container& container);
    void writeHead(const Container& container);
    void writeObject(const AcDbStub& stub);
    void rewrite(const AcDbStub& stub, const TagList* tags);
    void writeNew(const AcDbStub& stub, const Container* container);
    void openSection(const Container& container);
    void closeSection();
    void writeHeader();
    /// Returns whether the header or an object of the file was changed or erased.
    [[nodiscard]] bool isEdited() const;

    void copyUpTo(std::uint64_t offset);
    void replace(Span span);
    [[nodiscard]] const TagList* tagsOf(const AcDbStub& stub) const;

    const DrawingState& state_;
    const Document::TagSource& source_;
    RecordOutput& output_;
    std::uint64_t done_ = 0; ///< The buffer before this offset is written or omitted.
    bool headerPending_ = false;
    bool raisesSeed_ = false;
    bool replacesHandles_ = false;
    bool sectionOpen_ = false;
    Container::Kind openKind_ = Container::Kind::objects;
};

} // namespace zuhost
