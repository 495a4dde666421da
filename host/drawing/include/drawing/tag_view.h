#pragma once

#include "dxf_records/scan_record.h"
#include "tag_list.h"

#include <zuhost/platform/export.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zuhost {

/// Where and how records are stored.
enum class TagForm : std::uint8_t {
    list, ///< In a TagList.
    ascii,
    asciiReturns, ///< ASCII with lines that end in CR alone.
    binary,
    shortBinary ///< Binary with group codes of one byte.
};

/// One record where it is stored. Valid as long as the records are.
class ZUHOST_API TagRef {
public:
    TagRef() = default;
    TagRef(int groupCode, std::string_view stored, bool isBinary)
        : code(groupCode), text(stored), isBinary_(isBinary) {}

    int code = 0;
    /// The stored value: that of a Tag for texts and handles, and in any list or ASCII drawing.
    std::string_view text;

    /// Return the value; nullopt when it is unreadable.
    [[nodiscard]] std::optional<double> real() const;
    [[nodiscard]] std::optional<std::int64_t> integer() const;
    [[nodiscard]] std::optional<std::uint64_t> handle() const;

    /// Returns the value as a Tag holds it: as stored, or formatted into `scratch`.
    [[nodiscard]] std::string_view value(std::string& scratch) const;
    [[nodiscard]] Tag tag() const;

private:
    bool isBinary_ = false;
};

/// Places in an object's records that the parser found.
struct RecordPlaces {
    static constexpr std::size_t kUnknown = std::numeric_limits<std::size_t>::max();

    std::size_t firstMarker = kUnknown;  ///< That of the extended data when there is none.
    std::size_t secondMarker = kUnknown; ///< Known only together with the first one.
    std::size_t extendedData = kUnknown; ///< That after the last record when there is none.
};

/// The records of an object, or some of them in a row, read where they are stored: in the bytes of the
/// drawing, in which they must have been parsed without error, or in a TagList. A view copies nothing; it is
/// valid until the list changes.
///
/// A *place* is the position of a record: its index in a list, its offset in bytes. Only places in a list can
/// be counted.
class ZUHOST_API TagView {
public:
    class Iterator {
    public:
        using value_type = TagRef;
        using difference_type = std::ptrdiff_t;
        using iterator_concept = std::input_iterator_tag;

        Iterator(const TagView& view, std::size_t place) : view_(&view), place_(place) { read(); }

        const TagRef& operator*() const { return tag_; }
        const TagRef* operator->() const { return &tag_; }
        Iterator& operator++() {
            place_ = next_;
            read();
            return *this;
        }
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t /*end*/) const { return atEnd_; }

        [[nodiscard]] std::size_t place() const { return place_; }
        /// Returns the place after the record.
        [[nodiscard]] std::size_t next() const { return next_; }

    private:
        void read() {
            atEnd_ = place_ >= view_->last_;
            if (atEnd_)
                return;
            next_ = view_->read(place_, tag_);
            atEnd_ = view_->endsAt(place_, tag_.code);
        }

        const TagView* view_;
        std::size_t place_;
        std::size_t next_ = 0;
        TagRef tag_;
        bool atEnd_ = false;
    };

    TagView(const TagList& list) // NOLINT(google-explicit-constructor): a list can be read as it is
        : list_(&list), last_(list.size()) {}
    TagView(std::string_view bytes, TagForm form) : bytes_(bytes.data()), last_(bytes.size()), form_(form) {}
    TagView(std::string_view bytes, TagForm form, const RecordPlaces& places)
        : bytes_(bytes.data()), last_(bytes.size()), places_(places), form_(form) {}

    [[nodiscard]] Iterator begin() const { return {*this, first_}; }
    [[nodiscard]] static std::default_sentinel_t end() { return {}; }
    [[nodiscard]] Iterator at(std::size_t place) const { return {*this, place}; }
    [[nodiscard]] bool empty() const {
        return first_ >= last_ || (end_ == End::subclass && begin() == end());
    }

    /// Returns the places of the first record and after the last one.
    [[nodiscard]] TagRange range() const;
    /// Returns the records in a range of this view's places.
    [[nodiscard]] TagView in(TagRange range) const;

    /// Returns the records after the marker (100, `marker`) up to the next marker or the extended data.
    /// Without any marker (drawings before R13): all between the type and the extended data. When only this
    /// marker is missing: none, before the extended data.
    [[nodiscard]] TagView subclass(std::string_view marker) const;
    /// Returns the records before the extended data.
    [[nodiscard]] TagView withoutExtendedData() const;
    [[nodiscard]] TagView extendedData() const;
    /// Returns the extended data of one application, its name record (1001) included; without any, an empty
    /// view at the end.
    [[nodiscard]] TagView extendedData(std::string_view application) const;
    /// Returns the application group (102, "{name") ... (102, "}"), brackets included; without one, an empty
    /// view where it belongs.
    [[nodiscard]] TagView applicationGroup(std::string_view name) const;
    /// Returns the place of the first marker; where extended data begins when there is none.
    [[nodiscard]] std::size_t firstMarker() const;
    /// Returns the place where extended data begins; that after the last record when there is none.
    [[nodiscard]] std::size_t extendedDataStart() const;

    /// Returns the first record with the code.
    [[nodiscard]] std::optional<TagRef> find(int code) const;
    /// Return the value of the first record with the code; nullopt when it is missing or unreadable.
    [[nodiscard]] std::optional<double> real(int code) const;
    [[nodiscard]] std::optional<std::int64_t> integer(int code) const;
    [[nodiscard]] std::optional<std::uint64_t> handle(int code) const;
    [[nodiscard]] std::optional<std::string_view> text(int code) const;
    /// Replaces the values for whose code there is a readable number, in one pass.
    void reals(std::span<const int> codes, std::span<double> values) const;

private:
    /// What ends a view before the end of its range. It is found by reading up to there.
    enum class End : std::uint8_t { none, subclass, application };

    TagView(const TagView& whole, TagRange range)
        : list_(whole.list_), first_(range.first), bytes_(whole.bytes_),
          last_(std::min(range.last, whole.last_)), form_(whole.form_) {}

    /// Reads the record at the place, which is before `last_`; returns the place after it.
    std::size_t read(std::size_t place, TagRef& tag) const {
        if (form_ == TagForm::list) {
            const Tag& stored = (*list_)[place];
            tag = {stored.code, stored.value, false};
            return place + 1;
        }
        if (form_ == TagForm::ascii)
            return readAscii(place, tag);
        if (form_ == TagForm::binary)
            return readScanned(dxf::scanBinaryRecord(bytes_ + place, bytes_ + last_), place, tag);
        return readUnusual(place, tag);
    }
    std::size_t readAscii(std::size_t place, TagRef& tag) const {
        return readScanned(dxf::scanPaddedRecord(bytes_ + place, bytes_ + last_), place, tag);
    }
    std::size_t readScanned(const dxf::ScannedRecord& scanned, std::size_t place, TagRef& tag) const {
        if (scanned.end == nullptr) {
            TagRef unusual; // Its address is taken: `tag` can stay in registers.
            const std::size_t next = readUnusual(place, unusual);
            tag = unusual;
            return next;
        }
        tag = {scanned.code, scanned.value, form_ == TagForm::binary};
        return static_cast<std::size_t>(scanned.end - bytes_);
    }
    /// Returns whether the view is a subclass that ends before a record with the code.
    [[nodiscard]] bool endsSubclass(int code) const {
        return end_ == End::subclass && TagList::endsSubclass(code);
    }
    /// Returns whether the view ends before the record.
    [[nodiscard]] bool endsAt(std::size_t place, int code) const {
        return endsSubclass(code) ||
               (end_ == End::application && place != first_ && TagList::endsApplication(code));
    }
    template <typename Function>
    void visit(Function function) const;
    template <typename Read, typename Function>
    void visitWith(Read readRecord, Function function) const;
    std::size_t readUnusual(std::size_t place, TagRef& tag) const;
    [[nodiscard]] std::size_t afterMarker(std::size_t place, std::string_view marker) const;
    [[nodiscard]] std::size_t afterReadMarker(std::size_t place, std::string_view marker) const;
    [[nodiscard]] std::size_t subclassStart(std::string_view marker) const;
    [[nodiscard]] std::size_t subclassStartInList(std::string_view marker) const;

    const TagList* list_ = nullptr;
    std::size_t first_ = 0;
    const char* bytes_ = nullptr;
    std::size_t last_;
    RecordPlaces places_;
    TagForm form_ = TagForm::list;
    End end_ = End::none;
};

} // namespace zuhost
