#include "painters/png_file.h"

#include <QBuffer>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdint>
#include <future>
#include <optional>
#include <unordered_map>
#include <vector>
#include <zlib.h>

namespace zu::picture {

namespace {

constexpr QRgb kColour = 0xFFFFFF;
constexpr int kCompression = 4; // 3 is twice as fast, but its files are a third larger
constexpr char kNoFilter = 0;

const Bytef* bytesOf(QByteArrayView bytes) {
    return reinterpret_cast<const Bytef*>(bytes.data());
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
    const QByteArrayView covered = QByteArrayView(file).sliced(start);
    file +=
        number(static_cast<qint64>(crc32_z(0, bytesOf(covered), static_cast<std::size_t>(covered.size()))));
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

/// A part of a compressed stream and the sum of its uncompressed bytes.
struct Part {
    QByteArray bytes; ///< Empty when memory does not suffice.
    uLong sum = 0;
};

Part compressed(QByteArrayView bytes, bool isLast) {
    constexpr int kNoHeader = -15; // and the largest window
    constexpr int kDefaultMemory = 8;
    constexpr uLong kEndOfPart = 16;
    z_stream stream{};
    if (deflateInit2(&stream, kCompression, Z_DEFLATED, kNoHeader, kDefaultMemory, Z_DEFAULT_STRATEGY) !=
        Z_OK)
        return {};
    const auto size = static_cast<uInt>(bytes.size());
    Part part{QByteArray(static_cast<qsizetype>(deflateBound(&stream, size) + kEndOfPart), Qt::Uninitialized),
              adler32(adler32(0, nullptr, 0), bytesOf(bytes), size)};
    stream.next_in = bytesOf(bytes);
    stream.avail_in = size;
    stream.next_out = reinterpret_cast<Bytef*>(part.bytes.data());
    stream.avail_out = static_cast<uInt>(part.bytes.size());
    const int result = deflate(&stream, isLast ? Z_FINISH : Z_SYNC_FLUSH);
    part.bytes.resize(result == (isLast ? Z_STREAM_END : Z_OK) ? static_cast<qsizetype>(stream.total_out)
                                                               : 0);
    deflateEnd(&stream);
    return part;
}

/// One stream, of which large ones are compressed in parts at the same time. Empty when memory does not
/// suffice.
QByteArray compressed(QByteArrayView bytes) {
    constexpr qsizetype kParts = 4;
    constexpr qsizetype kWorthThreads = qsizetype{1} << 20U;
    const qsizetype size = bytes.size() < kWorthThreads ? bytes.size() : bytes.size() / kParts + 1;
    std::vector<std::future<Part>> parts;
    for (qsizetype at = 0; at < bytes.size(); at += size)
        parts.push_back(
            std::async([part = bytes.sliced(at, std::min(size, bytes.size() - at)),
                        isLast = at + size >= bytes.size()] { return compressed(part, isLast); }));
    QByteArray stream("\x78\x5E"); // as kCompression has it
    uLong sum = adler32(0, nullptr, 0);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part part = parts[i].get();
        if (part.bytes.isEmpty())
            return {};
        stream += part.bytes;
        const qsizetype length = std::min(size, bytes.size() - static_cast<qsizetype>(i) * size);
        sum = adler32_combine(sum, part.sum, static_cast<z_off_t>(length));
    }
    return stream + number(static_cast<qint64>(sum));
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
    const QByteArray stream = compressed(lines->bytes);
    if (stream.isEmpty())
        return {};
    appendChunk(file, "IDAT", stream);
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace zu::picture
