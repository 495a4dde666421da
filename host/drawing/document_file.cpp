// Opening and saving drawings by name, and the forms they are saved in.

#include "drawing/document.h"

#include "drawing_state.h"
#include "drawing_writer.h"
#include "dxf_records/record_reader.h"
#include "record_output.h"

#include "zuhost/atomic_file.h"
#include "zuhost/paths.h"

#include <cerrno>
#include <system_error>

namespace zuhost {
namespace {

/// The file's own style in its own form, else the usual one of the other form.
RecordStyle styleFor(const DrawingState& state, DrawingForm form) {
    if (form == state.style.form)
        return state.style;
    RecordStyle style;
    style.form = form;
    style.byteCodes = form == DrawingForm::binary && state.shortCodesInBinary;
    return style;
}

DocumentError fileError(const std::wstring& file, std::wstring problem) {
    DocumentError error;
    error.file = file;
    error.problem = std::move(problem);
    return error;
}

DocumentError systemError(const std::wstring& file, int number) {
    if (number == EFBIG)
        return fileError(file, L"endless or too large for a device or pipe; save the data to a file first");
    return fileError(file, fromUtf8(std::generic_category().message(number)));
}

/// Writes the drawing; the fault, empty on success.
std::wstring write(const DrawingState& state, DrawingForm form, const Document::TagSource& tags,
                   ByteSink sink) {
    RecordOutput output(state, styleFor(state, form), std::move(sink));
    const bool sameForm = form == state.style.form;
    if (!sameForm && form == DrawingForm::binary)
        output.raw(dxf::kBinarySentinel);
    DrawingWriter(state, tags, output).run(sameForm ? Span{0, state.bytes.size()} : state.content);
    output.finish();
    return output.fault();
}

} // namespace

std::wstring DocumentError::message(std::wstring_view label) const {
    std::wstring text = file;
    if (line != 0)
        text += L":" + std::to_wstring(line);
    else if (offset != 0)
        text += L": byte " + std::to_wstring(offset);
    return (text += L": ").append(label) + problem;
}

Document::OpenResult Document::openFile(const std::wstring& file, AcDbDatabase* database) {
    auto contents = readWholeFile(systemPath(file));
    if (const int* number = std::get_if<int>(&contents))
        return systemError(file, *number);
    return open(std::move(std::get<std::string>(contents)), file, database);
}

std::optional<DocumentError> Document::save(const std::wstring& file, DrawingForm form,
                                            const TagSource& tags) const {
    AtomicFile target(systemPath(file));
    std::wstring fault = write(*state_, form, tags, [&](std::string_view bytes) { target.write(bytes); });
    if (!fault.empty())
        return fileError(file, std::move(fault));
    const int number = target.commit();
    return number == 0 ? std::nullopt : std::optional(systemError(file, number));
}

std::string Document::bytes(DrawingForm form, const TagSource& tags, DocumentError* error) const {
    std::string result;
    std::wstring fault = write(*state_, form, tags, [&](std::string_view bytes) { result += bytes; });
    if (fault.empty())
        return result;
    if (error)
        *error = fileError(state_->file, std::move(fault));
    return {};
}

} // namespace zuhost
