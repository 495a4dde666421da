#include <zucomn/dxf.h>

#include "entity_reader.h"
#include "part_memory.h"
#include "record_input.h"

#include <string_view>

namespace {

/// Blanks may follow a name in ASCII files.
std::string_view trimmed(std::string_view name) {
    const std::size_t last = name.find_last_not_of(" \t");
    return last == std::string_view::npos ? std::string_view() : name.substr(0, last + 1);
}

std::wstring folded(const CString& name) {
    CString text(name);
    text.MakeUpper();
    return std::wstring(text.view());
}

} // namespace

void CAcadDxf::LoadDxfData() {
    if (input_ == nullptr || Skip(0) == 0)
        return;
    while (at(0, "SECTION")) {
        if (GetRecord() == 0 || GetCode() != 2)
            return;
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
        // Some writers end the header twice.
        do {
            if (Skip(0) == 0)
                return;
        } while (at(0, "ENDSEC"));
    }
}

void CAcadDxf::skipTo(std::string_view end) {
    while (GetRecord() != 0 && !at(0, end)) {
    }
}

void CAcadDxf::loadEntities() {
    defaultColor_ = colorOption_ != 0 ? 7 : 1;
    LoadEnt(entities_);
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
        minX_ = GetReal();
    else if (variable == "$EXTMIN" && code == 20)
        minY_ = GetReal();
    else if (variable == "$EXTMAX" && code == 10)
        maxX_ = GetReal();
    else if (variable == "$EXTMAX" && code == 20)
        maxY_ = GetReal();
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
        if (GetRecord() == 0 || GetCode() != 2)
            return;
        auto* const table = new CTable;
        tables_.AddTail(table);
        table->m_name = GetText();
        if (at(2, "LAYER"))
            LoadLayer();
        else
            skipTo("ENDTAB");
    }
}

void CAcadDxf::LoadLayer() {
    CLayer* layer = nullptr;
    while (GetRecord() != 0 && !at(0, "ENDTAB")) {
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
            layer->m_color = GetInteger();
        } else if (code == 70) {
            layer->m_flags = GetInteger();
        } else if (code == 370) {
            layer->m_lineWeight = GetInteger();
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
            block.m_x = GetReal();
            break;
        case 20:
            block.m_y = GetReal();
            break;
        case 30:
            block.m_z = GetReal();
            break;
        case 70:
            block.m_flags = GetInteger();
            break;
        default:
            break;
        }
    }
    return false;
}

void CAcadDxf::LoadEnt(CEntList& list) {
    if (input_ == nullptr || (GetCode() != 0 && Skip(0) == 0))
        return;
    if (at(0, "ENDSEC") || at(0, "ENDBLK"))
        return;
    list.Share(memory_);
    zu::dxf::readEntities(*input_, *memory_, list);
}

bool CAcadDxf::CheckEntities(const wchar_t* path) {
    const CAcadDxf part(path);
    return part.GetEntities().IsEmpty() == FALSE;
}
