#include "frame/library_text.h"
#include "frame/resource_ids.h"

#include <zucomn/model/quantities.h>

zucomn::QuantityWords zucomn::quantityWords() {
    const auto word = [](unsigned id) { return std::wstring(zu::libraryText(id).view()); };
    QuantityWords words{{},
                        word(zu::text::kQuantityCount),
                        word(zu::text::kQuantityLength),
                        word(zu::text::kQuantityTrueLength),
                        word(zu::text::kQuantityTotal)};
    for (unsigned id = zu::text::kQuantityField; id < zu::text::kQuantityCount; ++id)
        words.fields.push_back(word(id));
    return words;
}
