// Opens any bytes as a drawing. A drawing that opens must be saved with the same bytes, and must open again
// after conversion to the other form, written from tags, and edited.
#include "../support/require.h"

#include "drawing/document.h"

#include <cstdio>

using namespace zuhost;

using zu::fuzz::require;

namespace {

std::unique_ptr<Document> open(const std::string& bytes) {
    auto result = Document::open(bytes, L"fuzz", nullptr);
    auto* document = std::get_if<std::unique_ptr<Document>>(&result);
    return document ? std::move(*document) : nullptr;
}

/// Opens bytes that must be a valid drawing.
std::unique_ptr<Document> openSaved(const std::string& bytes) {
    auto result = Document::open(bytes, L"saved", nullptr);
    if (const auto* error = std::get_if<DocumentError>(&result))
        std::fprintf(stderr, "%ls\n", error->message().c_str());
    require(result.index() == 0, "the saved drawing does not open");
    return std::move(std::get<std::unique_ptr<Document>>(result));
}

std::unique_ptr<Document> reopen(const std::string& bytes, const Document& original) {
    auto document = openSaved(bytes);
    require(document->objectCount() == original.objectCount(), "the number of objects changed");
    return document;
}

/// The parts of an object that the parser found are those of the list of its records.
void requireSameParts(const Document& document, const AcDbStub& stub, const TagList& tags) {
    const TagView stored = document.view(stub);
    const TagView list(tags);
    const auto count = [](const TagView& view, std::size_t end) {
        return std::ranges::distance(view.in({0, end}));
    };
    require(count(stored, stored.firstMarker()) == count(list, list.firstMarker()),
            "the first marker differs");
    require(count(stored, stored.extendedDataStart()) == count(list, list.extendedDataStart()),
            "the start of extended data differs");
    require(std::ranges::distance(stored) == std::ranges::distance(list), "the number of records differs");
}

void saveFromTags(const Document& document) {
    TagList tags;
    const auto everyTag = [&](const AcDbStub& stub) {
        tags = document.tags(stub);
        requireSameParts(document, stub, tags);
        for (const Tag& tag : tags)
            require(document.decode(document.encode(document.decode(tag.value))) ==
                        document.decode(tag.value),
                    "decoding does not restore the text");
        return &tags;
    };
    reopen(document.bytes(document.form(), everyTag), document);
}

void convert(const Document& document) {
    const DrawingForm other =
        document.form() == DrawingForm::ascii ? DrawingForm::binary : DrawingForm::ascii;
    DocumentError error;
    const std::string bytes = document.bytes(other, nullptr, &error);
    if (error.problem.empty())
        reopen(reopen(bytes, document)->bytes(document.form(), nullptr), document);
}

void edit(Document& document) {
    std::size_t erased = 0;
    for (Container& container : document.containers())
        for (AcDbStub* stub : container.members)
            stub->erased = ++erased % 3 == 0;
    Container& objects = document.container(Container::Kind::objects);
    document.append(objects, "XRECORD", nullptr);
    document.container(Container::Kind::table, "APPID");
    document.appendBlock("FUZZ", nullptr);
    openSaved(document.bytes(document.form(), nullptr));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto document = open(bytes);
    if (!document)
        return 0;
    require(document->bytes(document->form(), nullptr) == bytes, "the unedited drawing changed");
    saveFromTags(*document);
    convert(*document);
    edit(*document);
    return 0;
}
