#pragma once

#include "readers.h"
#include "records/records.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>

namespace zuhost::dxf {
struct Record;
}

namespace zu::picture {

/// One object of a drawing. The records do not include its type, extended data and embedded objects; those of
/// a text's embedded object, its columns, follow them.
struct Object {
    std::string_view type;
    std::uint64_t handle = 0;
    std::size_t firstTag = 0;
    std::uint32_t tagCount = 0;
    std::uint32_t embeddedCount = 0;
};

/// A half-open range of objects.
struct ObjectRange {
    std::size_t first = 0;
    std::size_t last = 0;
};

struct Block {
    QString name;
    AcGePoint3d base;
    bool isExternal = false; ///< Its contents are in another drawing.
    ObjectRange objects;
};

/// The records of a drawing, as its file holds them: header variables, tables, blocks, entities, layouts and
/// multiline styles. Shares the bytes. Reading ends at the first record that is unreadable. Several threads
/// can produce shapes of it at the same time.
class Drawing {
public:
    explicit Drawing(std::string bytes, const PartOptions& options = {});
    explicit Drawing(std::shared_ptr<const std::string> bytes, const PartOptions& options = {});
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    [[nodiscard]] const Object& object(std::size_t index) const { return objects_[index]; }
    [[nodiscard]] Records records(const Object& object) const {
        return {std::span(tags_).subspan(object.firstTag, object.tagCount), form_};
    }
    [[nodiscard]] Records records(std::size_t index) const { return records(objects_[index]); }
    [[nodiscard]] Records embedded(std::size_t index) const {
        const Object& object = objects_[index];
        return {std::span(tags_).subspan(object.firstTag + object.tagCount, object.embeddedCount), form_};
    }
    /// The vertices of a polyline or the attributes of a block reference, which follow it.
    [[nodiscard]] ObjectRange partsOf(std::size_t entity) const;
    [[nodiscard]] QString decode(std::string_view value) const { return form_.encoding.decode(value); }

    /// The records of a header variable ("$LTSCALE"); empty when it is missing.
    [[nodiscard]] Records variable(std::string_view name) const;
    /// The entries of a table, or the objects of a type ("LAYOUT"), in file order.
    [[nodiscard]] std::vector<std::size_t> entries(std::string_view type) const;
    /// The table entry or object with the handle; null when there is none.
    [[nodiscard]] const Object* find(std::uint64_t handle) const;

    // Names are compared without regard to case.
    [[nodiscard]] const Block* findBlock(const QString& name) const;
    /// The block whose block record has the handle.
    [[nodiscard]] const Block* findBlock(std::uint64_t blockRecord) const;

    /// The entities of model space, vertices and attributes left out.
    [[nodiscard]] const std::vector<std::size_t>& modelSpace() const { return modelSpace_; }
    /// The entities of a layout's block ("*Paper_Space").
    [[nodiscard]] std::vector<std::size_t> paperSpace(const Block& block) const;
    [[nodiscard]] std::vector<std::size_t> entitiesIn(ObjectRange range) const;

    [[nodiscard]] int missingLayerColour() const { return options_.missingLayerColour; }
    /// Gives the entities of model space other handles than those of their records: drawings before R13 can
    /// lack them. Ignored unless there is one for each.
    void setHandles(const std::vector<std::uint64_t>& handles);

private:
    enum class Section { none, header, tables, blocks, entities, objects, other };

    static Section sectionOf(std::string_view name);
    template <typename Reader>
    void readAll(Reader reader);
    void readAscii();
    void add(const zuhost::dxf::Record& record);
    void startObject(std::string_view type);
    void endBlock();
    void indexBlocks();
    void listModelSpace();
    [[nodiscard]] std::vector<std::size_t> spaceEntities(bool inPaper) const;

    PartOptions options_;
    std::shared_ptr<const std::string> bytes_;
    ValueForm form_;
    std::vector<Tag> tags_;
    std::vector<Object> objects_;
    std::map<std::string_view, ObjectRange> variables_; ///< Ranges of tags.
    std::unordered_map<std::uint64_t, std::size_t> byHandle_;
    std::vector<Block> blocks_;
    std::vector<std::size_t> blockHeads_;
    std::map<QString, std::size_t> blockIndex_;
    ObjectRange entities_;
    std::vector<std::size_t> modelSpace_;

    Section section_ = Section::none;
    std::string_view currentVariable_;
    bool isObjectOpen_ = false;
    bool skipsTags_ = false;
    bool isEmbedded_ = false;
};

} // namespace zu::picture
