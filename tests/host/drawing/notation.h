#pragma once

#include "drawing/document.h"

#include <memory>
#include <string>
#include <string_view>

/// Returns an ASCII drawing of "CODE VALUE" records, separated by "|" or line ends: "0 SECTION|2 ENTITIES".
std::string ascii(std::string_view notation);

/// Returns a drawing of the version with the sections.
std::string drawing(std::string_view version, std::string_view sections);

/// Opens bytes that must be a valid drawing.
std::unique_ptr<zuhost::Document> opened(std::string bytes);

/// Returns the error of bytes that must not open; empty when they do.
zuhost::DocumentError refused(std::string bytes);

std::string fileBytes(const std::string& path);

/// Returns the drawing in its own form, with the tags of changed objects.
std::string saved(const zuhost::Document& document, const zuhost::Document::TagSource& source = nullptr);

/// Returns the first member of the type.
AcDbStub* member(const zuhost::Document& document, std::string_view type);
