#pragma once

#include "record_output.h"

namespace zuhost {

/// Writes a drawing in file order: what was not changed as the stretches of the buffer that it is, objects
/// that were changed or added from their tags, and leaves out the erased ones.
class DrawingWriter {
public:
    DrawingWriter(const DrawingState& state, const Document::TagSource& source, RecordOutput& output);

    /// Writes the records within `content`, the whole drawing or at least its records.
    void run(Span content);

private:
    void writeContainer(const Container& container);
    void writeMembers(const Container& container);
    void writeCreated(const Container& container);
    void writeHead(const Container& container);
    void writeObject(const AcDbStub& stub);
    void writeNew(const AcDbStub& stub, const Container* container);
    void openSection(const Container& container);
    void closeSection();
    void writeHeader();
    /// Whether objects of the file or the header are written otherwise than they stand there.
    [[nodiscard]] bool isEdited() const;

    void copyUpTo(std::uint64_t offset);
    void replace(Span span);
    [[nodiscard]] const TagList* tagsOf(const AcDbStub& stub) const;

    const DrawingState& state_;
    const Document::TagSource& source_;
    RecordOutput& output_;
    std::uint64_t done_ = 0; ///< All of the buffer before it is written or left out.
    bool headerPending_ = false;
    bool raisesSeed_ = false;
    bool replacesHandles_ = false;
    bool sectionOpen_ = false;
    Container::Kind openKind_ = Container::Kind::objects;
};

} // namespace zuhost
