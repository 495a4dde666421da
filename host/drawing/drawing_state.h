#pragma once

#include "drawing/document.h"
#include "drawing_text.h"
#include "handle_index.h"
#include "record_writer.h"
#include "type_names.h"

#include <deque>

namespace zuhost {

/// A stretch of the buffer.
struct Span {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// Where a section of the file lies: from its SECTION record to its ENDSEC record (begin of that).
struct SectionFrame {
    std::string name;
    Span span;
};

/// All that an opened drawing holds. Plain data: the scanner fills it, the writer reads it.
struct DrawingState {
    std::string bytes;
    std::wstring file;
    AcDbDatabase* database = nullptr;

    RecordStyle style;     ///< How the file spells its records.
    Span content;          ///< From the first record to the end of the EOF record.
    std::uint64_t eof = 0; ///< Where the EOF record begins.
    int version = 1009;    ///< Number of $ACADVER.
    DrawingText encoding;
    bool shortCodesInBinary = true; ///< Group codes of one byte when the drawing is written in binary form.
    std::vector<DocumentError> warnings;

    TypeNames types;
    std::deque<AcDbStub> stubs; ///< A deque, so that they never move.
    std::size_t stubsOfFile = 0;
    HandleIndex handles;
    bool replacesHandles = false; ///< Some stubs do.
    bool writesHandles = true;    ///< False for drawings before R13 whose objects have none.
    std::list<Container> containers;
    std::vector<SectionFrame> sections;
    std::vector<AcDbStub*> spaceless; ///< Entities of model space when the file doesn't spell out its block.

    TagList header;
    Span headerSpan; ///< The records between SECTION/HEADER and ENDSEC.
    bool headerChanged = false;

    [[nodiscard]] const SectionFrame* section(std::string_view name) const {
        for (const SectionFrame& frame : sections)
            if (frame.name == name)
                return &frame;
        return nullptr;
    }
};

/// Name of the section that holds containers of the kind.
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
