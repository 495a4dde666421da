#include "records/drawing.h"

#include "dxf_records/number_text.h"
#include "dxf_records/record_reader.h"

#include <algorithm>
#include <array>

namespace zu::picture {

namespace {

using zuhost::dxf::AsciiReader;
using zuhost::dxf::BinaryReader;
using zuhost::dxf::CodeTable;
using zuhost::dxf::ReadResult;
using zuhost::dxf::Record;

constexpr int kFirstExtendedData = 1000;
constexpr int kEmbeddedObject = 101;
constexpr std::array<std::string_view, 3> kObjectTypes{"LAYOUT", "MLINESTYLE", "MLEADERSTYLE"};

bool isSpaceName(const QString& name, QStringView space) {
    return name.size() == space.size() + 1 && (name.startsWith(u'*') || name.startsWith(u'$')) &&
           name.endsWith(space, Qt::CaseInsensitive);
}

} // namespace

Drawing::Drawing(std::string bytes, const PartOptions& options)
    : Drawing(std::make_shared<const std::string>(std::move(bytes)), options) {}

Drawing::Drawing(std::shared_ptr<const std::string> bytes, const PartOptions& options)
    : options_(options), bytes_(std::move(bytes)) {
    // Enough for most drawings. What is not used takes no memory, while growing would take all of it anew.
    constexpr std::size_t kBytesPerTag = 16;
    constexpr std::size_t kBytesPerObject = 160;
    tags_.reserve(bytes_->size() / kBytesPerTag);
    objects_.reserve(bytes_->size() / kBytesPerObject);
    form_.isBinary = zuhost::dxf::isBinaryDrawing(*bytes_);
    if (form_.isBinary)
        readAll(BinaryReader(*bytes_, options_.strictTable ? CodeTable::strict : CodeTable::complete));
    else
        readAscii();
    if (section_ == Section::entities)
        entities_.last = objects_.size();
    endBlock();
    const Records version = variable("$ACADVER");
    const std::string_view number = version.size() > 0 ? version.tags()[0].value() : std::string_view();
    const Records page = variable("$DWGCODEPAGE");
    form_.encoding.set(
        static_cast<int>(
            zuhost::parseInteger(number.substr(std::min<std::size_t>(2, number.size()))).value_or(0)),
        page.size() > 0 ? page.tags()[0].value() : std::string_view(),
        bytes_->starts_with(zuhost::dxf::kByteOrderMark));
    indexBlocks();
    listModelSpace();
}

/// Continues after blank lines in place of a group code, as the light model of part drawings does.
void Drawing::readAscii() {
    const std::string_view all(*bytes_);
    const char lineEnd = zuhost::dxf::lineEndOf(all);
    std::size_t start = all.starts_with(zuhost::dxf::kByteOrderMark) ? zuhost::dxf::kByteOrderMark.size() : 0;
    while (start < all.size()) {
        AsciiReader reader(all.substr(start), lineEnd);
        Record record;
        ReadResult result = ReadResult::record;
        while ((result = reader.next(record)) == ReadResult::record)
            add(record);
        if (result == ReadResult::end)
            return;
        const std::size_t line = start + reader.error().offset;
        const std::size_t end = all.find(lineEnd, line);
        if (end == std::string_view::npos ||
            all.substr(line, end - line).find_first_not_of(" \t\r") != std::string_view::npos)
            return;
        start = end + 1;
    }
}

Drawing::Section Drawing::sectionOf(std::string_view name) {
    constexpr std::array kSections{std::pair{std::string_view("HEADER"), Section::header},
                                   std::pair{std::string_view("TABLES"), Section::tables},
                                   std::pair{std::string_view("BLOCKS"), Section::blocks},
                                   std::pair{std::string_view("ENTITIES"), Section::entities},
                                   std::pair{std::string_view("OBJECTS"), Section::objects}};
    const auto found = std::find_if(kSections.begin(), kSections.end(),
                                    [&](const auto& section) { return section.first == name; });
    return found == kSections.end() ? Section::other : found->second;
}

template <typename Reader>
void Drawing::readAll(Reader reader) {
    for (Record record; reader.next(record) == ReadResult::record;)
        add(record);
}

void Drawing::add(const Record& record) {
    if (record.code == 0) {
        startObject(record.value);
        return;
    }
    if (section_ == Section::none && record.code == 2) {
        section_ = sectionOf(record.value);
        if (section_ == Section::entities)
            entities_ = {objects_.size(), objects_.size()};
        return;
    }
    if (section_ == Section::header) {
        if (record.code == 9) {
            currentVariable_ = record.value;
            variables_[currentVariable_] = {tags_.size(), tags_.size()};
        } else if (!currentVariable_.empty()) {
            tags_.emplace_back(record.code, record.value);
            variables_[currentVariable_].last = tags_.size();
        }
        return;
    }
    if (!isObjectOpen_ || skipsTags_)
        return;
    Object& object = objects_.back();
    const bool isTable = section_ == Section::tables;
    if (record.code == kEmbeddedObject && object.type == "MTEXT" && !isEmbedded_) {
        isEmbedded_ = true;
        return;
    }
    if (record.code == kEmbeddedObject || (record.code >= kFirstExtendedData && !isTable)) {
        skipsTags_ = true;
        return;
    }
    if (isEmbedded_) {
        tags_.emplace_back(record.code, record.value);
        ++object.embeddedCount;
        return;
    }
    if (object.handle == 0 && (record.code == 5 || (record.code == 105 && isTable))) {
        object.handle = zuhost::parseHandle(record.value).value_or(0);
        if (section_ == Section::tables || section_ == Section::objects)
            byHandle_.try_emplace(object.handle, objects_.size() - 1);
    }
    tags_.emplace_back(record.code, record.value);
    ++object.tagCount;
}

void Drawing::startObject(std::string_view type) {
    isObjectOpen_ = false;
    skipsTags_ = false;
    isEmbedded_ = false;
    if (type == "SECTION" || type == "ENDSEC" || type == "EOF") {
        if (section_ == Section::entities)
            entities_.last = objects_.size();
        endBlock();
        section_ = Section::none;
        return;
    }
    if (type == "ENDBLK") {
        endBlock();
        return;
    }
    if (section_ == Section::objects &&
        std::find(kObjectTypes.begin(), kObjectTypes.end(), type) == kObjectTypes.end())
        return;
    if (section_ == Section::blocks && type == "BLOCK") {
        endBlock();
        blockHeads_.push_back(objects_.size());
        blocks_.push_back({{}, {}, false, {objects_.size() + 1, 0}});
    }
    isObjectOpen_ = true;
    objects_.push_back({type, 0, tags_.size(), 0, 0});
}

void Drawing::endBlock() {
    if (!blocks_.empty() && blocks_.back().objects.last == 0)
        blocks_.back().objects.last = objects_.size();
}

void Drawing::indexBlocks() {
    constexpr int kExternal = 4;
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
        const Records head = records(blockHeads_[i]);
        blocks_[i].name = head.text(2);
        blocks_[i].base = head.point(10);
        blocks_[i].isExternal = (head.integer(70) & kExternal) != 0;
        blockIndex_.try_emplace(blocks_[i].name.toUpper(), i);
    }
}

ObjectRange Drawing::partsOf(std::size_t entity) const {
    const std::string_view type = objects_[entity].type;
    const std::string_view part = type == "POLYLINE" || type == "PLINE" ? "VERTEX"
                                  : type == "INSERT"                    ? "ATTRIB"
                                                                        : "";
    std::size_t last = entity + 1;
    while (!part.empty() && last < objects_.size() && objects_[last].type == part)
        ++last;
    return {entity + 1, last};
}

Records Drawing::variable(std::string_view name) const {
    const auto found = variables_.find(name);
    if (found == variables_.end())
        return {{}, form_};
    const ObjectRange range = found->second;
    return {std::span(tags_).subspan(range.first, range.last - range.first), form_};
}

std::vector<std::size_t> Drawing::entries(std::string_view type) const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < objects_.size(); ++i)
        if (objects_[i].type == type && !(i >= entities_.first && i < entities_.last))
            found.push_back(i);
    return found;
}

const Object* Drawing::find(std::uint64_t handle) const {
    const auto found = byHandle_.find(handle);
    return found == byHandle_.end() ? nullptr : &objects_[found->second];
}

const Block* Drawing::findBlock(const QString& name) const {
    const auto found = blockIndex_.find(name.toUpper());
    return found == blockIndex_.end() ? nullptr : &blocks_[found->second];
}

const Block* Drawing::findBlock(std::uint64_t blockRecord) const {
    const Object* const record = find(blockRecord);
    return record != nullptr ? findBlock(records(*record).text(2)) : nullptr;
}

std::vector<std::size_t> Drawing::entitiesIn(ObjectRange range) const {
    std::vector<std::size_t> found;
    for (std::size_t i = range.first; i < range.last; i = partsOf(i).last)
        if (objects_[i].type != "SEQEND")
            found.push_back(i);
    return found;
}

std::vector<std::size_t> Drawing::spaceEntities(bool inPaper) const {
    std::vector<std::size_t> found = entitiesIn(entities_);
    std::erase_if(found, [&](std::size_t i) { return (records(i).integer(67) == 1) != inPaper; });
    return found;
}

void Drawing::listModelSpace() {
    for (const Block& block : blocks_)
        if (isSpaceName(block.name, u"MODEL_SPACE"))
            modelSpace_ = entitiesIn(block.objects);
    const std::vector<std::size_t> others = spaceEntities(false);
    modelSpace_.insert(modelSpace_.end(), others.begin(), others.end());
}

std::vector<std::size_t> Drawing::paperSpace(const Block& block) const {
    std::vector<std::size_t> found = entitiesIn(block.objects);
    if (!isSpaceName(block.name, u"PAPER_SPACE"))
        return found;
    const std::vector<std::size_t> others = spaceEntities(true);
    found.insert(found.end(), others.begin(), others.end());
    return found;
}

void Drawing::setHandles(const std::vector<std::uint64_t>& handles) {
    if (modelSpace_.size() != handles.size())
        return;
    for (std::size_t i = 0; i < handles.size(); ++i)
        objects_[modelSpace_[i]].handle = handles[i];
}

} // namespace zu::picture
