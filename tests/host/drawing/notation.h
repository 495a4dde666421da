#pragma once

#include "drawing/document.h"

#include <memory>
#include <string>
#include <string_view>

/// An ASCII drawing from "CODE VALUE" records parted by "|" or line ends: "0 SECTION|2 ENTITIES".
std::string dxf(std::string_view notation);

/// The records wrapped into sections of a drawing of the version.
std::string drawing(std::string_view version, std::string_view sections);

/// Opens bytes that must be a good drawing.
std::unique_ptr<zuhost::Document> opened(std::string bytes);

/// The error of bytes that must be none; empty when there was none.
zuhost::DocumentError refused(std::string bytes);

std::string fileBytes(const std::string& path);

/// The whole drawing in its own form, with the tags of changed objects by handle.
std::string saved(const zuhost::Document& document, const zuhost::Document::TagSource& source = nullptr);

/// The only member of its type.
AcDbStub* member(const zuhost::Document& document, std::string_view type);
