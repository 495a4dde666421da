#pragma once

#include "drawing/document.h"
#include "drawing_text.h"
#include "handle_index.h"
#include "record_writer.h"
#include "source_file.h"
#include "type_names.h"

#include <array>
#include <deque>
#include <map>
#include <optional>
#include <unordered_map>

namespace zuhost {

/// A byte range of the buffer.
struct Span {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// A section of the file, from its SECTION record up to its ENDSEC record.
struct SectionFrame {
    std::string name;
    Span span;
};

/// The data of an opened drawing: the parser fills it, the writer reads it.
struct DrawingState {
    std::string bytes;
    std::wstring file;
    std::optional<SourceFile> source; ///< None for drawings from memory.
    AcDbDatabase* database = nullptr;

    RecordStyle style;             ///< How the file formats its records.
    TagForm form = TagForm::ascii; ///< The same for reading them in the buffer.
    Span content;                  ///< From the first record to the end of the EOF record.
    std::uint64_t eof = 0;         ///< Offset of the EOF record.
    int version = 1009;            ///< Number in $ACADVER.
    DrawingText encoding;
    bool shortCodesInBinary = true; ///< Group codes of one byte when the drawing is written in binary form.
    std::vector<DocumentError> warnings;

    TypeNames types;
    std::deque<AcDbStub> stubs; ///< A deque, because stubs must not move.
    std::size_t stubsOfFile = 0;
    HandleIndex handles;
    bool replacesHandles = false; ///< Whether any stub does.
    bool writesHandles = true;    ///< False for drawings before R13 whose objects have none.
    std::list<Container> containers;
    /// By kind, the first containers of the names searched so far: drawings have tens of thousands of blocks.
    std::array<std::map<std::string, Container*, std::less<>>, 4> foundContainers;
    std::unordered_map<const AcDbStub*, const Container*>
        newFrames; ///< By head and tail, those created since.
    std::vector<SectionFrame> sections;
    std::vector<AcDbStub*> spaceless; ///< Entities of model space when the file has no block for it.

    TagList header;
    Span headerSpan; ///< The variables, without the SECTION and ENDSEC records.
    bool headerChanged = false;

    [[nodiscard]] const SectionFrame* section(std::string_view name) const {
        for (const SectionFrame& frame : sections)
            if (frame.name == name)
                return &frame;
        return nullptr;
    }
};

/// Returns the name of the section that holds containers of the kind.
[[nodiscard]] constexpr std::string_view sectionName(Container::Kind kind) {
    switch (kind) {
    case Container::Kind::table:
        return "TABLES";
    case Container::Kind::block:
        return "BLOCKS";
    case Container::Kind::entities:
        return "ENTITIES";
    case Container::Kind::objects:
        break;
    }
    return "OBJECTS";
}

} // namespace zuhost
