#include "piece_reader.h"

#include <algorithm>
#include <future>
#include <memory>
#include <thread>
#include <vector>

namespace zu::dxf {

namespace {

constexpr unsigned kMostThreads = 8;
constexpr std::uint64_t kSmallestAsciiPiece = std::uint64_t{256} * 1024;
constexpr std::uint64_t kSmallestBinaryPiece = std::uint64_t{384} * 1024;
/// Bytes that another thread reads until a new one runs.
constexpr std::uint64_t kAsciiLead = std::uint64_t{100} * 1024;
constexpr std::uint64_t kBinaryLead = std::uint64_t{256} * 1024;

/// The rest of a section from an entity on, read on a thread of its own. Where an entity starts can only be
/// guessed there: what was read counts when the reading of what is before it arrives at the same place.
class Piece {
public:
    Piece(std::unique_ptr<RecordInput> input, PartMemory& drawing, std::uint64_t size)
        : input_(std::move(input)), memory_(std::make_unique<PartMemory>(drawing)),
          start_(input_->offsetOf(input_->record().value.data())), reading_{*input_, *memory_, nullptr} {
        memory_->arena.expect(size);
    }

    [[nodiscard]] std::uint64_t start() const { return start_; }

    void read(std::uint64_t stop) {
        isStopped_ = std::async([this, stop] { return readEntities(reading_, stop); });
    }
    /// Adds what was read to what another reader has read up to the start of the piece. Returns whether it
    /// did: only the other reader may know the polyline of the first vertices.
    bool addTo(EntityReading& whole, bool& isStopped) {
        isStopped = isStopped_.get();
        if (reading_.hasStrayVertex)
            return false;
        for (std::unique_ptr<CEnt>& entity : reading_.run)
            whole.list->AddTail(entity.release());
        whole.memory.pieces.push_back(std::move(memory_));
        whole.input.continueAs(std::move(*input_));
        if (reading_.polyline != nullptr)
            whole.polyline = reading_.polyline;
        return true;
    }

private:
    std::unique_ptr<RecordInput> input_;
    std::unique_ptr<PartMemory> memory_;
    std::uint64_t start_;
    EntityReading reading_;
    std::future<bool> isStopped_; ///< Waits for the thread; declared after what it uses.
};

/// Divides the rest of the file, the greatest part of which is nearly always the section. The calling thread
/// reads what is before the first piece, more than the others because it starts first.
std::vector<std::unique_ptr<Piece>> piecesOf(const RecordInput& input, PartMemory& memory) {
    std::vector<std::unique_ptr<Piece>> pieces;
    const std::uint64_t start = input.offset();
    const std::uint64_t rest = std::max(input.length(), start) - start;
    const std::uint64_t threads = std::min(std::thread::hardware_concurrency(), kMostThreads);
    const std::uint64_t smallest = input.isBinary() ? kSmallestBinaryPiece : kSmallestAsciiPiece;
    const std::uint64_t count = std::min(threads, rest / smallest);
    if (count < 2)
        return pieces;
    const std::uint64_t lead = input.isBinary() ? kBinaryLead : kAsciiLead;
    const std::uint64_t size = (rest - lead) / count;
    for (std::uint64_t at = input.length() - size * (count - 1); at < input.length(); at += size)
        if (auto later = input.from(at, isKeptEntity))
            pieces.push_back(std::make_unique<Piece>(std::move(later), memory, size));
    return pieces;
}

} // namespace

void readInPieces(RecordInput& input, PartMemory& memory, CEntList& list) {
    const std::vector<std::unique_ptr<Piece>> pieces = piecesOf(input, memory);
    const auto startOf = [&](std::size_t i) { return i < pieces.size() ? pieces[i]->start() : kToTheEnd; };
    for (std::size_t i = 0; i < pieces.size(); ++i)
        pieces[i]->read(startOf(i + 1));
    EntityReading whole{input, memory, &list};
    bool isStopped = readEntities(whole, startOf(0));
    for (std::size_t i = 0; isStopped && i < pieces.size(); ++i)
        if (!pieces[i]->addTo(whole, isStopped))
            isStopped = readEntities(whole, startOf(i + 1));
}

} // namespace zu::dxf
