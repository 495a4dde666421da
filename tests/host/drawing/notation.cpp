#include "notation.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

using namespace zuhost;

std::string ascii(std::string_view notation) {
    std::string bytes;
    while (!notation.empty()) {
        const std::size_t end = notation.find_first_of("|\n");
        const std::string_view record = notation.substr(0, end);
        notation.remove_prefix(end == std::string_view::npos ? notation.size() : end + 1);
        if (record.empty())
            continue;
        const std::size_t blank = record.find(' ');
        bytes.append(record.substr(0, blank)).append("\n");
        if (blank != std::string_view::npos)
            bytes.append(record.substr(blank + 1));
        bytes += '\n';
    }
    return bytes;
}

std::string drawing(std::string_view version, std::string_view sections) {
    return ascii("0 SECTION|2 HEADER|9 $ACADVER|1 " + std::string(version) + "|0 ENDSEC\n" +
                 std::string(sections) + "\n0 EOF");
}

std::unique_ptr<Document> opened(std::string bytes) {
    auto result = Document::open(std::move(bytes), L"test.dxf", nullptr);
    if (const auto* error = std::get_if<DocumentError>(&result)) {
        const std::wstring text = error->message();
        ADD_FAILURE() << std::string(text.begin(), text.end());
        return Document::createEmpty(nullptr);
    }
    return std::move(std::get<std::unique_ptr<Document>>(result));
}

DocumentError refused(std::string bytes) {
    auto result = Document::open(std::move(bytes), L"test.dxf", nullptr);
    const auto* error = std::get_if<DocumentError>(&result);
    return error ? *error : DocumentError{};
}

std::string fileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string saved(const Document& document, const Document::TagSource& source) {
    return document.bytes(document.form(), source);
}

AcDbStub* member(const Document& document, std::string_view type) {
    for (const Container& container : document.containers())
        for (AcDbStub* stub : container.members)
            if (document.typeName(*stub) == type)
                return stub;
    ADD_FAILURE() << "no " << type;
    return nullptr;
}
