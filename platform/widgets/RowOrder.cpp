#include "platform/widgets/RowOrder.h"

#include <algorithm>
#include <utility>

namespace quorin {

namespace {
std::size_t At(Integer index) {
    return static_cast<std::size_t>(index);
}
} // namespace

void TcxRowOrder::Build(Integer records, std::vector<bool> descending, TcxRowSource& source) {
    FDescending = std::move(descending);
    FKeys.assign(At(records) * FDescending.size(), TcxSortKey());
    FChunkOf.assign(At(records), NotShown);
    FChunks.clear();
    FOrder.clear();
    FFree.clear();
    FTaken.clear();
    FCount = 0;
    std::vector<Integer> shown;
    for (Integer record = 0; record < records; ++record) {
        ReadKeys(record, source);
        if (source.Passes(record)) shown.push_back(record);
    }
    if (!FDescending.empty()) {
        std::sort(shown.begin(), shown.end(),
                  [this](Integer left, Integer right) { return IsBefore(left, right); });
    }
    constexpr std::size_t rowsAtFirst = MostRows / 2; // room to grow
    for (std::size_t first = 0; first < shown.size(); first += rowsAtFirst) {
        const std::size_t end = std::min(first + rowsAtFirst, shown.size());
        const std::uint32_t chunk = NewChunk(FOrder.size());
        auto& rows = FChunks[chunk].Records;
        rows.assign(shown.begin() + static_cast<std::ptrdiff_t>(first),
                    shown.begin() + static_cast<std::ptrdiff_t>(end));
        for (const Integer record : rows) FChunkOf[At(record)] = chunk;
    }
    FCount = static_cast<Integer>(shown.size());
    FIsNumbered = false;
}

// All of them go before the first comes back: an order with a stale key in it can't be searched.
void TcxRowOrder::Update(std::span<const Integer> records, TcxRowSource& source) {
    for (const Integer record : records) {
        if (HasRecord(record)) Reread(record, source);
    }
    PutBack();
}

void TcxRowOrder::UpdateAll(TcxRowSource& source) {
    const auto records = static_cast<Integer>(FChunkOf.size());
    for (Integer record = 0; record < records; ++record) Reread(record, source);
    PutBack();
}

// A record that was hidden may have changed as it likes: only its coming and going counts.
void TcxRowOrder::Reread(Integer record, TcxRowSource& source) {
    const bool isMoved = ReadKeys(record, source);
    const bool isShown = source.Passes(record);
    const bool wasShown = FChunkOf[At(record)] != NotShown;
    if (isShown == wasShown && !(isMoved && isShown)) return;
    TakeOut(record);
    if (isShown) FTaken.push_back(record);
}

// Neighbours that are both read anew are weighed together, between the rows that stand.
Integer TcxRowOrder::CountMoves(std::span<const Integer> records, TcxRowSource& source) const {
    std::vector<std::pair<Integer, Integer>> rows; // row and record
    Integer moves = 0;
    for (const Integer record : records) {
        if (!HasRecord(record)) continue;
        const bool wasShown = FChunkOf[At(record)] != NotShown;
        if (source.Passes(record) != wasShown) {
            ++moves;
        } else if (wasShown) {
            rows.emplace_back(RowOf(record), record);
        }
    }
    std::sort(rows.begin(), rows.end());
    for (std::size_t first = 0; first < rows.size();) {
        std::size_t end = first + 1;
        while (end < rows.size() && rows[end].first == rows[end - 1].first + 1) ++end;
        moves += CountMovesIn(rows, first, end, source);
        first = end;
    }
    return moves;
}

// Rows of one run that stay: the longest rising sequence of those that fit between the row above
// the run and the row below it.
Integer TcxRowOrder::CountMovesIn(const std::vector<std::pair<Integer, Integer>>& rows,
                                  std::size_t first, std::size_t end, TcxRowSource& source) const {
    const std::size_t columns = FDescending.size();
    std::vector<TcxSortKey> keys;
    std::vector<Integer> records;
    const auto add = [&](Integer record, bool isFresh) {
        for (std::size_t column = 0; column < columns; ++column) {
            keys.push_back(FKeys[At(record) * columns + column]);
            const auto place = static_cast<Integer>(column);
            if (isFresh) keys.back().Assign(source.SortValue(record, place));
        }
        records.push_back(record);
    };
    const auto isBefore = [&](Integer left, Integer right) {
        const int order = TcxSortKey::CompareRows(keys, FDescending, left, right);
        return order != 0 ? order < 0 : records[At(left)] < records[At(right)];
    };
    for (std::size_t row = first; row < end; ++row) add(rows[row].second, /*isFresh=*/true);
    const auto count = static_cast<Integer>(records.size());
    const Integer above = RecordAt(rows[first].first - 1);
    const Integer below = RecordAt(rows[end - 1].first + 1);
    const Integer abovePlace = above < 0 ? -1 : static_cast<Integer>(records.size());
    if (above >= 0) add(above, /*isFresh=*/false);
    const Integer belowPlace = below < 0 ? -1 : static_cast<Integer>(records.size());
    if (below >= 0) add(below, /*isFresh=*/false);
    std::vector<Integer> lasts; // of the rising sequences of each length, the smallest last
    for (Integer place = 0; place < count; ++place) {
        if (abovePlace >= 0 && !isBefore(abovePlace, place)) continue;
        if (belowPlace >= 0 && !isBefore(place, belowPlace)) continue;
        const auto longer = std::lower_bound(lasts.begin(), lasts.end(), place, isBefore);
        if (longer == lasts.end()) {
            lasts.push_back(place);
        } else {
            *longer = place;
        }
    }
    return count - static_cast<Integer>(lasts.size());
}

void TcxRowOrder::PutBack() {
    for (const Integer record : FTaken) {
        if (FChunkOf[At(record)] == NotShown) PutIn(record); // else it was named twice
    }
    FTaken.clear();
}

// Whether the record has other keys now.
bool TcxRowOrder::ReadKeys(Integer record, TcxRowSource& source) {
    bool isOther = false;
    for (std::size_t column = 0; column < FDescending.size(); ++column) {
        TcxSortKey& key = FKeys[At(record) * FDescending.size() + column];
        isOther |= key.Assign(source.SortValue(record, static_cast<Integer>(column)));
    }
    return isOther;
}

bool TcxRowOrder::IsBefore(Integer left, Integer right) const {
    const int order = TcxSortKey::CompareRows(FKeys, FDescending, left, right);
    return order != 0 ? order < 0 : left < right;
}

void TcxRowOrder::TakeOut(Integer record) {
    const std::uint32_t chunk = std::exchange(FChunkOf[At(record)], NotShown);
    if (chunk == NotShown) return;
    auto& rows = FChunks[chunk].Records;
    rows.erase(std::find(rows.begin(), rows.end(), record));
    --FCount;
    FIsNumbered = false;
    if (rows.empty()) Drop(chunk);
}

void TcxRowOrder::PutIn(Integer record) {
    if (FOrder.empty()) NewChunk(0);
    const std::uint32_t chunk = FOrder[std::min(PlaceFor(record), FOrder.size() - 1)];
    auto& rows = FChunks[chunk].Records;
    const auto isBefore = [this](Integer left, Integer right) { return IsBefore(left, right); };
    rows.insert(std::lower_bound(rows.begin(), rows.end(), record, isBefore), record);
    FChunkOf[At(record)] = chunk;
    ++FCount;
    FIsNumbered = false;
    if (rows.size() > MostRows) Split(chunk);
}

// The first chunk that ends behind the record.
std::size_t TcxRowOrder::PlaceFor(Integer record) const {
    const auto endsBefore = [this](std::uint32_t chunk, Integer other) {
        return IsBefore(FChunks[chunk].Records.back(), other);
    };
    if (FChunks[FOrder.front()].Records.empty()) return 0;
    const auto found = std::lower_bound(FOrder.begin(), FOrder.end(), record, endsBefore);
    return static_cast<std::size_t>(found - FOrder.begin());
}

void TcxRowOrder::Split(std::uint32_t chunk) {
    Renumber();
    const std::uint32_t second = NewChunk(FChunks[chunk].Place + 1);
    auto& rows = FChunks[chunk].Records;
    auto& rest = FChunks[second].Records;
    const auto middle = rows.begin() + static_cast<std::ptrdiff_t>(rows.size() / 2);
    rest.assign(middle, rows.end());
    rows.erase(middle, rows.end());
    for (const Integer record : rest) FChunkOf[At(record)] = second;
}

void TcxRowOrder::Drop(std::uint32_t chunk) {
    FOrder.erase(std::find(FOrder.begin(), FOrder.end(), chunk));
    FFree.push_back(chunk);
}

std::uint32_t TcxRowOrder::NewChunk(std::size_t place) {
    std::uint32_t chunk;
    if (FFree.empty()) {
        chunk = static_cast<std::uint32_t>(FChunks.size());
        FChunks.emplace_back();
        FChunks.back().Records.reserve(MostRows + 1);
    } else {
        chunk = FFree.back();
        FFree.pop_back();
    }
    FOrder.insert(FOrder.begin() + static_cast<std::ptrdiff_t>(place), chunk);
    FIsNumbered = false;
    return chunk;
}

void TcxRowOrder::Renumber() const {
    if (FIsNumbered) return;
    Integer row = 0;
    for (std::size_t place = 0; place < FOrder.size(); ++place) {
        TChunk& chunk = FChunks[FOrder[place]];
        chunk.Place = place;
        chunk.FirstRow = row;
        row += static_cast<Integer>(chunk.Records.size());
    }
    FIsNumbered = true;
}

bool TcxRowOrder::IsInChunkAt(std::size_t place, Integer row) const {
    if (place >= FOrder.size()) return false;
    const TChunk& chunk = FChunks[FOrder[place]];
    return row >= chunk.FirstRow && At(row - chunk.FirstRow) < chunk.Records.size();
}

Integer TcxRowOrder::RecordAt(Integer row) const {
    if (row < 0 || row >= FCount) return -1;
    Renumber();
    if (!IsInChunkAt(FSeenPlace, row)) { // cells are read row by row
        const auto startsBehind = [this](Integer wanted, std::uint32_t chunk) {
            return wanted < FChunks[chunk].FirstRow;
        };
        const auto behind = std::upper_bound(FOrder.begin(), FOrder.end(), row, startsBehind);
        FSeenPlace = static_cast<std::size_t>(behind - FOrder.begin()) - 1;
    }
    const TChunk& chunk = FChunks[FOrder[FSeenPlace]];
    return chunk.Records[At(row - chunk.FirstRow)];
}

Integer TcxRowOrder::RowOf(Integer record) const {
    if (!HasRecord(record) || FChunkOf[At(record)] == NotShown) return -1;
    Renumber();
    const TChunk& chunk = FChunks[FChunkOf[At(record)]];
    const auto found = std::find(chunk.Records.begin(), chunk.Records.end(), record);
    return chunk.FirstRow + static_cast<Integer>(found - chunk.Records.begin());
}

} // namespace quorin
