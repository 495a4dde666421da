#include "records/records.h"

#include "dxf_records/number_text.h"
#include "dxf_records/plain_number.h"
#include "dxf_records/record_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zu::picture {

namespace {

using zuhost::dxf::ValueType;
using zuhost::dxf::valueType;

int clamped(std::int64_t value) {
    constexpr std::int64_t kLow = std::numeric_limits<int>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, kLow, kHigh));
}

double parsedReal(std::string_view text, double missing) {
    double value = 0.0;
    if (zuhost::parsePlainReal(text, value))
        return value;
    value = zuhost::parseReal(text).value_or(missing);
    return std::isfinite(value) ? value : missing;
}

} // namespace

const Tag* Records::find(int code) const {
    const auto found = std::find_if(tags_.begin(), tags_.end(), [=](const Tag& t) { return t.code == code; });
    return found == tags_.end() ? nullptr : &*found;
}

double Records::real(const Tag& tag, double missing) const {
    if (!form_->isBinary)
        return parsedReal(tag.value(), missing);
    if (valueType(tag.code) != ValueType::real)
        return integer(tag, 0);
    const double value = zuhost::dxf::binaryReal(tag.value());
    return std::isfinite(value) ? value : missing;
}

int Records::integer(const Tag& tag, int missing) const {
    if (form_->isBinary)
        return zuhost::dxf::isInteger(valueType(tag.code)) ? clamped(zuhost::dxf::binaryInteger(tag.value()))
                                                           : missing;
    if (const auto value = zuhost::parseInteger(tag.value()))
        return clamped(*value);
    const double value = parsedReal(tag.value(), missing);
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, -kMost, kMost));
}

double Records::real(int code, double missing) const {
    const Tag* const tag = find(code);
    return tag != nullptr ? real(*tag, missing) : missing;
}

int Records::integer(int code, int missing) const {
    const Tag* const tag = find(code);
    return tag != nullptr ? integer(*tag, missing) : missing;
}

std::uint64_t Records::handle(int code) const {
    return zuhost::parseHandle(raw(code)).value_or(0);
}

std::string_view Records::raw(int code) const {
    const Tag* const tag = find(code);
    return tag != nullptr ? tag->value() : std::string_view();
}

QString Records::text(int code) const {
    return form_->encoding.decode(raw(code));
}

AcGePoint3d Records::point(int code, const AcGePoint3d& missing) const {
    return {real(code, missing.x), real(code + 10, missing.y), real(code + 20, missing.z)};
}

std::vector<double> Records::reals(int code) const {
    std::vector<double> values;
    for (const Tag& tag : tags_)
        if (tag.code == code)
            values.push_back(real(tag, 0.0));
    return values;
}

std::vector<AcGePoint3d> Records::points(int code) const {
    std::vector<AcGePoint3d> found;
    for (std::size_t i = 0; i < tags_.size(); ++i)
        if (tags_[i].code == code)
            found.push_back(pointAt(i));
    return found;
}

double Records::realAt(std::size_t at, double missing) const {
    return at < size() ? real(tags_[at], missing) : missing;
}

int Records::integerAt(std::size_t at, int missing) const {
    return at < size() ? integer(tags_[at], missing) : missing;
}

std::uint64_t Records::handleAt(std::size_t at) const {
    return at < size() ? zuhost::parseHandle(tags_[at].value()).value_or(0) : 0;
}

QString Records::textAt(std::size_t at) const {
    return at < size() ? form_->encoding.decode(tags_[at].value()) : QString();
}

AcGePoint3d Records::pointAt(std::size_t at) const {
    AcGePoint3d point(realAt(at), 0.0, 0.0);
    const int x = at < size() ? tags_[at].code : 0;
    for (unsigned axis = 1; axis <= 2 && at + axis < size(); ++axis) {
        if (tags_[at + axis].code != x + 10 * static_cast<int>(axis))
            break;
        point[axis] = realAt(at + axis);
    }
    return point;
}

std::size_t Records::position(int code, std::size_t from) const {
    while (from < size() && tags_[from].code != code)
        ++from;
    return std::min(from, size());
}

Records Records::subclass(std::string_view marker) const {
    std::size_t first = 0;
    while (first < size() && !(tags_[first].code == 100 && tags_[first].value() == marker))
        ++first;
    return first < size() ? part(first + 1, position(100, first + 1)) : part(0, 0);
}

Records Records::part(std::size_t first, std::size_t last) const {
    const std::size_t end = std::min(last, size());
    const std::size_t start = std::min(first, end);
    return {tags_.subspan(start, end - start), *form_};
}

} // namespace zu::picture
