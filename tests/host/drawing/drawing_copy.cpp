// drawing_copy [-b|-a|-e] [IN] OUT: opens a drawing and saves it in its own form, as binary or as ASCII; -e
// saves the empty drawing.
#include "drawing/document.h"
#include "zuhost/paths.h"
#include "zuhost/text_codec.h"

#include <cstdio>
#include <string>

using namespace zuhost;

namespace {

int fail(const DocumentError& error) {
    std::fprintf(stderr, "%s\n", toUtf8(error.message()).c_str());
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 && argv[1][0] == '-' ? argv[1] : "";
    if (argc < 3)
        return 2;
    const std::wstring target = hostPath(argv[argc - 1]);
    if (mode == "-e") {
        const auto error = Document::createEmpty(nullptr)->save(target, DrawingForm::ascii, nullptr);
        return error ? fail(*error) : 0;
    }
    auto result = Document::openFile(hostPath(argv[argc - 2]), nullptr);
    if (const auto* error = std::get_if<DocumentError>(&result))
        return fail(*error);
    Document& document = *std::get<std::unique_ptr<Document>>(result);
    const DrawingForm form = mode == "-b"   ? DrawingForm::binary
                             : mode == "-a" ? DrawingForm::ascii
                                            : document.form();
    const auto error = document.save(target, form, nullptr);
    return error ? fail(*error) : 0;
}
