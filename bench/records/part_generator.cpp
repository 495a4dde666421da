#include "part_generator.h"

#include "dxf_records/number_text.h"

#include <bit>
#include <cstdint>
#include <random>
#include <string_view>

namespace {

/// Writes records in ASCII or binary form.
class RecordWriter {
public:
    explicit RecordWriter(bool binary) : binary_(binary) {
        if (binary_)
            bytes_ = std::string("AutoCAD Binary DXF\r\n\x1a\0", 22);
    }

    void text(int code, std::string_view value) {
        startRecord(code);
        bytes_ += value;
        bytes_ += binary_ ? '\0' : '\n';
    }
    void real(int code, double value) {
        startRecord(code);
        if (binary_)
            putBits(std::bit_cast<std::uint64_t>(value), 8);
        else
            (bytes_ += zuhost::formatReal(value)) += '\n';
    }
    void integer(int code, int value, int size = 2) {
        startRecord(code);
        if (binary_)
            putBits(static_cast<std::uint64_t>(value), size);
        else
            bytes_ += std::string(value < 100000 ? 6 - std::to_string(value).size() : 0, ' ') +
                      std::to_string(value) + '\n';
    }
    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    std::string take() { return std::move(bytes_); }

private:
    void startRecord(int code) {
        if (binary_) {
            putBits(static_cast<std::uint64_t>(code), 2);
            return;
        }
        const std::string digits = std::to_string(code);
        bytes_.append(digits.size() < 3 ? 3 - digits.size() : 0, ' ').append(digits) += '\n';
    }
    void putBits(std::uint64_t bits, int size) {
        for (int i = 0; i < size; ++i)
            bytes_ += static_cast<char>(bits >> (8 * i));
    }

    bool binary_;
    std::string bytes_;
};

class PartGenerator {
public:
    explicit PartGenerator(bool binary) : out_(binary) {}

    std::string make(std::size_t bytes) {
        writeStart();
        for (int i = 0; out_.size() < bytes; ++i)
            writeEntity(i % 8);
        out_.text(0, "ENDSEC");
        out_.text(0, "EOF");
        return out_.take();
    }

private:
    /// Returns a coordinate with four decimal places.
    double coordinate() {
        return static_cast<double>(static_cast<int>(random_() % 200000000) - 100000000) / 10000;
    }

    void point(int code) {
        out_.real(code, coordinate());
        out_.real(code + 10, coordinate());
        out_.real(code + 20, 0);
    }

    void start(std::string_view type, std::string_view subclass) {
        static constexpr std::string_view kLayers[] = {"0", "OUTLINE", "CENTER", "TEXT"};
        out_.text(0, type);
        out_.text(5, zuhost::formatHandle(handle_++));
        out_.text(100, "AcDbEntity");
        out_.text(8, kLayers[random_() % 4]);
        if (random_() % 4 == 0)
            out_.integer(62, static_cast<int>(random_() % 7));
        out_.text(100, subclass);
    }

    void writeStart() {
        out_.text(0, "SECTION");
        out_.text(2, "HEADER");
        out_.text(9, "$ACADVER");
        out_.text(1, "AC1015");
        out_.text(0, "ENDSEC");
        out_.text(0, "SECTION");
        out_.text(2, "BLOCKS");
        out_.text(0, "BLOCK");
        out_.text(2, "PART");
        point(10);
        start("LINE", "AcDbLine");
        point(10);
        point(11);
        out_.text(0, "ENDBLK");
        out_.text(0, "ENDSEC");
        out_.text(0, "SECTION");
        out_.text(2, "ENTITIES");
    }

    void writePolyline() {
        start("LWPOLYLINE", "AcDbPolyline");
        out_.integer(90, 6, 4);
        out_.integer(70, 1);
        for (int i = 0; i < 6; ++i) {
            out_.real(10, coordinate());
            out_.real(20, coordinate());
        }
    }

    void writeEntity(int kind) {
        switch (kind) {
        case 0:
            start("ARC", "AcDbCircle");
            point(10);
            out_.real(40, 12.5);
            out_.text(100, "AcDbArc");
            out_.real(50, 270);
            out_.real(51, 359.5);
            break;
        case 1:
            start("CIRCLE", "AcDbCircle");
            point(10);
            out_.real(40, 7.25);
            break;
        case 2:
            writePolyline();
            break;
        case 3:
            start("TEXT", "AcDbText");
            point(10);
            out_.real(40, 3.5);
            out_.text(1, "DN 100 x 4.5");
            break;
        case 4:
            start("INSERT", "AcDbBlockReference");
            out_.text(2, "PART");
            point(10);
            out_.real(50, 90);
            break;
        default:
            start("LINE", "AcDbLine");
            point(10);
            point(11);
        }
    }

    RecordWriter out_;
    std::mt19937 random_{1};
    std::uint64_t handle_ = 0x100;
};

} // namespace

std::string makePart(std::size_t bytes, bool binary) {
    return PartGenerator(binary).make(bytes);
}
