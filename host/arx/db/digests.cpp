#include "zuhost/digests.h"

#include "database_core.h"
#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <unordered_map>

namespace zuhost {

namespace {

constexpr int kHandle = 5;
constexpr int kOwner = 330;
constexpr int kApplicationGroup = 102;

std::uint64_t mixed(std::uint64_t digest, std::uint64_t value) {
    digest = (digest ^ value) * 0x9E3779B97F4A7C15ULL;
    return digest ^ (digest >> 32U);
}

bool isPlainAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80 || c == '\\'; });
}

std::uint64_t textDigest(std::string_view text, const Document& document) {
    if (isPlainAscii(text))
        return std::hash<std::string_view>()(text);
    std::string units;
    for (const wchar_t c : document.decode(text))
        units += std::to_string(static_cast<std::uint32_t>(c)) + ',';
    return std::hash<std::string>()(units);
}

std::uint64_t valueDigest(const TagRef& tag, const Document& document) {
    const dxf::ValueType type = dxf::valueType(tag.code);
    if (type == dxf::ValueType::real)
        if (const auto number = tag.real())
            return std::bit_cast<std::uint64_t>(*number + 0.0); // no negative zero
    if (dxf::isInteger(type))
        if (const auto number = tag.integer())
            return static_cast<std::uint64_t>(*number);
    if (type == dxf::ValueType::handle)
        if (const auto handle = tag.handle())
            return *handle;
    std::string scratch;
    return textDigest(tag.value(scratch), document);
}

/// Handle, owner and application groups (reactors, extension dictionary) precede the first marker.
std::uint64_t digestOf(const TagView& tags, const Document& document) {
    const std::size_t head = tags.firstMarker();
    bool inGroup = false;
    std::uint64_t digest = 0;
    for (auto it = tags.begin(); it != tags.end(); ++it) {
        const bool inHead = it.place() < head;
        if (inHead && it->code == kApplicationGroup) {
            inGroup = it->text.starts_with('{');
            continue;
        }
        if (inHead && (inGroup || it->code == kHandle || it->code == kOwner))
            continue;
        digest = mixed(mixed(digest, static_cast<std::uint64_t>(it->code)), valueDigest(*it, document));
    }
    return digest;
}

class Digests {
public:
    explicit Digests(DatabaseCore& core) : core_(core) {}

    void add(AcDbStub& stub) {
        const Document& document = *core_.document;
        if (stub.erased || !core_.classOf(stub)->isDerivedFrom(AcDbEntity::desc()))
            return;
        const std::uint64_t digest = digestOf(core_.tags(stub), document);
        if (const auto owner = places_.find(stub.owner); owner != places_.end()) {
            std::uint64_t& whole = digests_[owner->second].second;
            whole = mixed(whole, digest);
            return;
        }
        places_.emplace(&stub, digests_.size());
        digests_.emplace_back(AcDbObjectId(&stub), digest);
    }

    [[nodiscard]] std::vector<EntityDigest> take() { return std::move(digests_); }

private:
    DatabaseCore& core_;
    std::unordered_map<const AcDbStub*, std::size_t> places_; ///< In digests_.
    std::vector<EntityDigest> digests_;
};

} // namespace

std::vector<EntityDigest> entityDigests(const AcDbDatabase& database) {
    DatabaseCore& core = coreOf(database);
    core.parts.arrange(*core.document);
    Digests digests(core);
    for (const Container& container : core.document->containers())
        if (container.kind == Container::Kind::block || container.kind == Container::Kind::entities)
            for (AcDbStub* const stub : container.members)
                digests.add(*stub);
    return digests.take();
}

} // namespace zuhost
