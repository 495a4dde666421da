#include "painters/png_file.h"

#include <QBuffer>
#include <QtEndian>

#include <array>
#include <cstdint>
#include <optional>
#include <unordered_map>

namespace zu::picture {

namespace {

constexpr QRgb kColour = 0xFFFFFF;
constexpr int kCompression = 4; // 3 is twice as fast, but its files are a third larger
constexpr char kNoFilter = 0;

using CrcTable = std::array<std::uint32_t, 256>;

constexpr CrcTable crcTable() {
    constexpr std::uint32_t kPolynomial = 0xEDB88320U;
    CrcTable table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value >> 1U) ^ ((value & 1U) != 0 ? kPolynomial : 0U);
        table[i] = value;
    }
    return table;
}

std::uint32_t crcOf(QByteArrayView bytes) {
    static constexpr CrcTable kTable = crcTable();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes)
        crc = kTable[(crc ^ static_cast<std::uint8_t>(byte)) & 0xFFU] ^ (crc >> 8U);
    return ~crc;
}

/// In four bytes.
QByteArray number(qint64 value) {
    QByteArray bytes(sizeof(std::uint32_t), '\0');
    qToBigEndian(static_cast<std::uint32_t>(value), bytes.data());
    return bytes;
}

void appendChunk(QByteArray& file, QByteArrayView type, QByteArrayView data) {
    file += number(data.size());
    const qsizetype start = file.size();
    file += type;
    file += data;
    file += number(crcOf(QByteArrayView(file).sliced(start)));
}

/// The lines of a picture as the file has them, before compression.
struct Lines {
    QByteArray palette; ///< Three bytes a colour; empty for lines of three bytes a pixel.
    QByteArray bytes;
};

/// Nullopt when the picture has more colours than a palette.
std::optional<Lines> linesByPalette(const QImage& picture) {
    constexpr std::size_t kMostColours = 256;
    const int width = picture.width();
    Lines lines;
    lines.bytes.resize(picture.height() * (qsizetype{width} + 1));
    std::unordered_map<QRgb, char> known;
    QRgb last = 0;
    char index = 0;
    char* at = lines.bytes.data();
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const pixels = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        *at++ = kNoFilter;
        for (int x = 0; x < width; ++x) {
            const QRgb colour = pixels[x] & kColour;
            if (colour != last || known.empty()) {
                if (known.size() == kMostColours && !known.contains(colour))
                    return std::nullopt;
                const auto [found, isNew] = known.try_emplace(colour, static_cast<char>(known.size()));
                if (isNew)
                    lines.palette += number(colour).last(3);
                last = colour;
                index = found->second;
            }
            *at++ = index;
        }
    }
    return lines;
}

Lines linesOfPixels(const QImage& picture) {
    constexpr qsizetype kBytes = 3;
    const int width = picture.width();
    Lines lines;
    lines.bytes.resize(picture.height() * (kBytes * width + 1));
    char* at = lines.bytes.data();
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const pixels = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        *at++ = kNoFilter;
        for (int x = 0; x < width; ++x) {
            *at++ = static_cast<char>(qRed(pixels[x]));
            *at++ = static_cast<char>(qGreen(pixels[x]));
            *at++ = static_cast<char>(qBlue(pixels[x]));
        }
    }
    return lines;
}

/// Needs no more memory than the picture itself.
QByteArray lineByLine(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG") ? bytes : QByteArray();
}

} // namespace

QByteArray pngOf(const QImage& picture) {
    constexpr qsizetype kMostAtOnce = qsizetype{256} << 20U;
    constexpr char kPalette = 3;
    constexpr char kPixels = 2;
    constexpr qsizetype kLength = 4; // of the uncompressed bytes, before the compressed ones
    if (picture.isNull() || picture.format() != QImage::Format_RGB32 || picture.sizeInBytes() > kMostAtOnce)
        return lineByLine(picture);
    std::optional<Lines> lines = linesByPalette(picture);
    if (!lines)
        lines = linesOfPixels(picture);
    const std::array<char, 5> form{8, lines->palette.isEmpty() ? kPixels : kPalette, 0, 0, 0};
    QByteArray file("\x89PNG\r\n\x1A\n");
    appendChunk(file, "IHDR",
                number(picture.width()) + number(picture.height()) + QByteArray(form.data(), form.size()));
    appendChunk(file, "pHYs", number(picture.dotsPerMeterX()) + number(picture.dotsPerMeterY()) + '\1');
    if (!lines->palette.isEmpty())
        appendChunk(file, "PLTE", lines->palette);
    appendChunk(file, "IDAT", QByteArrayView(qCompress(lines->bytes, kCompression)).sliced(kLength));
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace zu::picture
