// Compares the sample drawings with values computed by another program.
#include "part_files.h"

#include <gtest/gtest.h>

namespace zu::test {
namespace {

template <typename Change>
void forEachEntity(PlainJson& model, Change change) {
    for (PlainJson& entity : model["entities"])
        change(entity);
    for (PlainJson& block : model["blocks"])
        for (PlainJson& entity : block["entities"])
            change(entity);
}

/// Returns the expected model in the form that `zu part` prints, without widths and counts.
PlainJson expectedModel(const PlainJson& drawing) {
    PlainJson model = drawing.at("model");
    model.erase("counts");
    model["ascii"] = 1;
    forEachEntity(model, [](PlainJson& entity) {
        if (entity.contains("vertices"))
            for (PlainJson& vertex : entity["vertices"])
                vertex.erase("width");
    });
    return model;
}

/// Returns the model of the binary twin: binary sample drawings have no line weights.
PlainJson asBinary(PlainJson model) {
    model["ascii"] = 0;
    forEachEntity(model, [](PlainJson& entity) { entity["lineweight"] = nullptr; });
    return model;
}

TEST(Samples, ReadAsExpected) {
    ASSERT_FALSE(expectedDrawings().empty());
    for (const PlainJson& drawing : expectedDrawings()) {
        const std::string name = drawing.at("file");
        SCOPED_TRACE(name);
        EXPECT_EQ(modelOf(CAcadDxf(hostPath(sample(name)))), expectedModel(drawing));
    }
}

TEST(Samples, BinaryTwinsEqualTheirOriginals) {
    int twins = 0;
    for (const auto& entry : std::filesystem::directory_iterator(sample("binary"))) {
        SCOPED_TRACE(entry.path().string());
        const PlainJson original = modelOf(CAcadDxf(hostPath(sample(entry.path().filename().string()))));
        for (const int table : {0, CAcadDxf::kStrictTable})
            EXPECT_EQ(modelOf(CAcadDxf(hostPath(entry.path()), 0, table)), asBinary(original)) << table;
        ++twins;
    }
    EXPECT_EQ(twins, 4);
}

} // namespace
} // namespace zu::test
