#include "library_state.h"

#include "attributes/attribute_tables.h"
#include "frame/module_state.h"
#include "frame/reset.h"
#include "route/connection_indexes.h"

#include <zucomn/model/library.h>

namespace zu {

namespace {

std::unique_ptr<LibraryState>& current() {
    static auto library = std::make_unique<LibraryState>();
    return library;
}

} // namespace

LibraryState::LibraryState() : attributeTables(std::make_unique<AttributeTables>()) {}
LibraryState::~LibraryState() = default;

LibraryState& state() {
    return *current();
}

} // namespace zu

void zucomn::resetLibrary() {
    zu::freeLanguageModule();
    zu::current() = std::make_unique<zu::LibraryState>();
    zu::resetLayerNames();
    zu::resetCurrentWindows();
    zu::resetDrawingVariables();
    zu::resetSettings();
}
