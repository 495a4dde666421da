#include <zucomn/dxf.h>

#include "entity_reader.h"
#include "frame/text_view.h"
#include "part_memory.h"
#include "piece_reader.h"
#include "record_input.h"
#include "values.h"

#include <string_view>

using zu::dxf::RecordInput;

namespace {

/// Removes the blanks that may follow a name in ASCII files.
std::string_view trimmed(std::string_view name) {
    const std::size_t last = name.find_last_not_of(" \t");
    return last == std::string_view::npos ? std::string_view() : name.substr(0, last + 1);
}

std::wstring folded(const CString& name) {
    CString text(name);
    text.MakeUpper();
    return std::wstring(zu::view(text));
}

template <typename Number>
Number reported(RecordInput& input, const zu::dxf::ReadNumber<Number>& read) {
    if (!read.problem.empty())
        input.report(read.problem);
    return read.number;
}

double reportedReal(RecordInput& input) {
    return reported(input, zu::dxf::realOf(input.record(), input.isBinary()));
}

int reportedInteger(RecordInput& input) {
    return reported(input, zu::dxf::integerOf(input.record(), input.isBinary()));
}

} // namespace

void CAcadDxf::LoadDxfData() {
    for (bool more = toSection(true); more; more = toSection(false)) {
        if (at(2, "HEADER"))
            LoadHeader();
        else if (at(2, "TABLES"))
            LoadTables();
        else if (at(2, "BLOCKS"))
            LoadBlocks();
        else if (at(2, "ENTITIES") && drawingOption_ != kNoEntities)
            loadEntities();
        else
            skipTo("ENDSEC");
    }
}

/// Skips to the name of the next section; returns false when there is none.
bool CAcadDxf::toSection(bool isFirst) {
    if (input_ == nullptr || GetRecord() == 0)
        return false;
    if (isFirst)
        isDrawing_ = GetCode() == 0;
    // Some programs write the end of the header twice.
    while (GetCode() != 0 || (!isFirst && at(0, "ENDSEC")))
        if (GetRecord() == 0)
            return false;
    if (!at(0, "SECTION")) {
        if (!at(0, "EOF"))
            input_->report("reading ends here: expected a section or the end of the file");
        return false;
    }
    if (GetRecord() == 0)
        return false;
    if (GetCode() != 2)
        input_->report("reading ends here: the section has no name");
    return GetCode() == 2;
}

/// Returns whether the current record is an end; a section may end before the table or block in it does.
bool CAcadDxf::isAtEndOf(std::string_view end) const {
    return at(0, end) || at(0, "ENDSEC");
}

void CAcadDxf::skipTo(std::string_view end) {
    while (GetRecord() != 0 && !isAtEndOf(end)) {
    }
}

void CAcadDxf::loadEntities() {
    defaultColor_ = colorOption_ != 0 ? 7 : 1;
    if (!toEntity())
        return;
    entities_.Share(memory_);
    zu::dxf::readInPieces(*input_, *memory_, entities_);
}

void CAcadDxf::LoadHeader() {
    std::string variable;
    while (GetRecord() != 0 && !at(0, "ENDSEC")) {
        if (GetCode() == 9)
            variable = trimmed(input_->record().value);
        else
            readHeaderVariable(variable);
    }
}

void CAcadDxf::readHeaderVariable(std::string_view variable) {
    const int code = GetCode();
    if (variable == "$EXTMIN" && code == 10)
        minX_ = reportedReal(*input_);
    else if (variable == "$EXTMIN" && code == 20)
        minY_ = reportedReal(*input_);
    else if (variable == "$EXTMAX" && code == 10)
        maxX_ = reportedReal(*input_);
    else if (variable == "$EXTMAX" && code == 20)
        maxY_ = reportedReal(*input_);
    else if (variable == "$DWGCODEPAGE" && code == 3)
        memory_->text.setCodePage(trimmed(input_->record().value));
    else if (variable == "$ACADVER" && code == 1) {
        version_ = _wtoi(GetText().Mid(2));
        memory_->text.setVersion(version_);
    }
}

void CAcadDxf::LoadTables() {
    while (GetRecord() != 0 && !at(0, "ENDSEC")) {
        if (!at(0, "TABLE"))
            continue;
        const CTable* const table = readTableName();
        if (table != nullptr && table->m_name == L"LAYER")
            LoadLayer();
        else if (!isAtEndOf("ENDTAB"))
            skipTo("ENDTAB");
        if (at(0, "ENDSEC"))
            return;
    }
}

/// Reads up to the name of the table that starts at the current record; returns null when it has none.
CTable* CAcadDxf::readTableName() {
    for (bool isFirst = true; GetRecord() != 0 && GetCode() != 0; isFirst = false) {
        if (GetCode() != 2)
            continue;
        if (!isFirst)
            input_->report("the table doesn't begin with its name");
        auto* const table = new CTable;
        tables_.AddTail(table);
        table->m_name = GetText();
        return table;
    }
    input_->report("the table has no name and is skipped");
    return nullptr;
}

void CAcadDxf::LoadLayer() {
    CLayer* layer = nullptr;
    while (GetRecord() != 0 && !isAtEndOf("ENDTAB")) {
        const int code = GetCode();
        if (code == 0) {
            layer = at(0, "LAYER") ? new CLayer : nullptr;
            if (layer != nullptr)
                layers_.AddTail(layer);
        } else if (layer == nullptr) {
            continue;
        } else if (code == 2) {
            layer->m_name = GetText();
            layerIndex_.try_emplace(folded(layer->m_name), layer);
        } else if (code == 6) {
            layer->m_linetype = GetText();
        } else if (code == 62) {
            layer->m_color = reportedInteger(*input_);
        } else if (code == 70) {
            layer->m_flags = reportedInteger(*input_);
        } else if (code == 370) {
            layer->m_lineWeight = reportedInteger(*input_);
        }
    }
}

void CAcadDxf::LoadBlocks() {
    if (GetRecord() == 0)
        return;
    while (!at(0, "ENDSEC")) {
        if (!at(0, "BLOCK")) {
            if (GetRecord() == 0)
                return;
            continue;
        }
        auto* const block = new CBlock;
        blocks_.AddTail(block);
        const bool more = readBlockFields(*block);
        blockIndex_.try_emplace(folded(block->m_name), block);
        if (!more)
            return;
        LoadEnt(block->m_entities);
        if (GetCode() != 0)
            return;
    }
}

bool CAcadDxf::readBlockFields(CBlock& block) {
    while (GetRecord() != 0) {
        switch (GetCode()) {
        case 0:
            return true;
        case 2:
            block.m_name = GetText();
            break;
        case 3:
            if (block.m_name.IsEmpty())
                block.m_name = GetText();
            break;
        case 10:
            block.m_x = reportedReal(*input_);
            break;
        case 20:
            block.m_y = reportedReal(*input_);
            break;
        case 30:
            block.m_z = reportedReal(*input_);
            break;
        case 70:
            block.m_flags = reportedInteger(*input_);
            break;
        default:
            break;
        }
    }
    return false;
}

/// Goes to the next entity, unless the current record is one; returns false when there is none.
bool CAcadDxf::toEntity() {
    return input_ != nullptr && (GetCode() == 0 || Skip(0) != 0) && !at(0, "ENDSEC") && !at(0, "ENDBLK");
}

void CAcadDxf::LoadEnt(CEntList& list) {
    if (!toEntity())
        return;
    list.Share(memory_);
    zu::dxf::EntityReading reading{*input_, *memory_, &list};
    zu::dxf::readEntities(reading);
}

/// Skips to an entity that LoadEnt would keep; returns false at the end of the section when there is none.
bool CAcadDxf::skipToKeptEntity() {
    while (GetRecord() != 0 && !isAtEndOf("ENDBLK"))
        if (GetCode() == 0 && zu::dxf::isKeptEntity(input_->record().value))
            return true;
    return false;
}

bool CAcadDxf::CheckEntities(const wchar_t* path) {
    CAcadDxf part;
    if (!part.Open(path))
        return false;
    for (bool more = part.toSection(true); more; more = part.toSection(false)) {
        if (!part.at(2, "ENTITIES"))
            part.skipTo("ENDSEC");
        else if (part.skipToKeptEntity())
            return true;
    }
    return false;
}
