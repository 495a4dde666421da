#include "record_source.h"

#include "ascii_source.h"
#include "binary_source.h"

namespace zuhost {

std::unique_ptr<RecordSource> openSource(const DrawingState& state, Span span) {
    if (state.style.form == DrawingForm::binary)
        return std::make_unique<BinarySource>(state.bytes, span, state.style.byteCodes);
    return std::make_unique<AsciiSource>(state.bytes, span, state.style.lineEnd.back());
}

} // namespace zuhost
