#include "platform/widgets/RowOrder.h"

#include "platform/rtl/Prefetch.h"

#include <algorithm>
#include <cmath>
#include <limits>
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
    FEnds.clear();
    FFree.clear();
    FTaken.clear();
    FCount = 0;
    std::vector<TRow> shown;
    for (Integer record = 0; record < records; ++record) {
        ReadKeys(record, source);
        if (source.Passes(record)) shown.push_back(RowFor(record));
    }
    if (!FDescending.empty()) {
        std::sort(shown.begin(), shown.end(),
                  [this](const TRow& left, const TRow& right) { return IsBefore(left, right); });
    }
    constexpr std::size_t rowsAtFirst = MostRows / 2; // room to grow
    for (std::size_t first = 0; first < shown.size(); first += rowsAtFirst) {
        const std::size_t end = std::min(first + rowsAtFirst, shown.size());
        const std::uint32_t number = NewChunk(FOrder.size());
        TChunk& chunk = FChunks[number];
        for (std::size_t row = first; row < end; ++row) {
            chunk.Records.push_back(shown[row].Record);
            chunk.Leads.push_back(shown[row].Lead);
            FChunkOf[At(shown[row].Record)] = number;
        }
        FEnds.back() = chunk.Leads.back();
    }
    FCount = static_cast<Integer>(shown.size());
    FIsNumbered = false;
}

// All of them go before the first comes back: an order with a stale key in it can't be searched.
void TcxRowOrder::Update(std::span<const Integer> records, TcxRowSource& source) {
    for (const Integer record : records) Fetch(record);
    for (const Integer record : records) {
        if (HasRecord(record)) Reread(record, source);
    }
    PutBack();
}

// The records of a long list lie far apart in memory.
void TcxRowOrder::Fetch(Integer record) const {
    if (!HasRecord(record)) return;
    FetchSoon(&FChunkOf[At(record)]);
    FetchSoon(FKeys.data() + At(record) * FDescending.size());
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

TcxRowOrder::TRow TcxRowOrder::RowFor(Integer record) const {
    if (FDescending.empty()) return {static_cast<Double>(record), record};
    return {FKeys[At(record) * FDescending.size()].Lead(FDescending.front()), record};
}

bool TcxRowOrder::IsBefore(const TRow& left, const TRow& right) const {
    if (left.Lead != right.Lead) return left.Lead < right.Lead;
    return IsTieBefore(left.Lead, left.Record, right.Record);
}

// Numbers that are equal need no look at their keys where no other column follows.
bool TcxRowOrder::IsTieBefore(Double lead, Integer left, Integer right) const {
    if (FDescending.size() == 1 && std::isfinite(lead)) return left < right;
    const int order = TcxSortKey::CompareRows(FKeys, FDescending, left, right);
    return order != 0 ? order < 0 : left < right;
}

void TcxRowOrder::TakeOut(Integer record) {
    const std::uint32_t number = std::exchange(FChunkOf[At(record)], NotShown);
    if (number == NotShown) return;
    TChunk& chunk = FChunks[number];
    const auto row = std::find(chunk.Records.begin(), chunk.Records.end(), record);
    chunk.Leads.erase(chunk.Leads.begin() + (row - chunk.Records.begin()));
    chunk.Records.erase(row);
    --FCount;
    FIsNumbered = false;
    if (chunk.Records.empty()) Drop(number);
}

void TcxRowOrder::PutIn(Integer record) {
    const TRow row = RowFor(record);
    if (FOrder.empty()) NewChunk(0);
    const std::size_t place = std::min(PlaceFor(row), FOrder.size() - 1);
    const std::uint32_t number = FOrder[place];
    TChunk& chunk = FChunks[number];
    const auto [first, last] = std::equal_range(chunk.Leads.begin(), chunk.Leads.end(), row.Lead);
    const auto ties = chunk.Records.begin() + (first - chunk.Leads.begin());
    const auto end = ties + (last - first);
    const auto isBefore = [&](Integer left, Integer right) {
        return IsTieBefore(row.Lead, left, right);
    };
    const auto behind = std::lower_bound(ties, end, record, isBefore);
    chunk.Leads.insert(first + (behind - ties), row.Lead);
    chunk.Records.insert(behind, record);
    FEnds[place] = std::max(FEnds[place], row.Lead);
    FChunkOf[At(record)] = number;
    ++FCount;
    FIsNumbered = false;
    if (chunk.Records.size() > MostRows) Split(number);
}

// The first chunk that ends behind the row. An end that has been taken out still counts for those
// that differ from it.
std::size_t TcxRowOrder::PlaceFor(const TRow& row) const {
    const auto endsBefore = [this](std::uint32_t number, const TRow& other) {
        const TChunk& chunk = FChunks[number];
        return !chunk.Records.empty() &&
               IsBefore({chunk.Leads.back(), chunk.Records.back()}, other);
    };
    const auto [first, last] = std::equal_range(FEnds.begin(), FEnds.end(), row.Lead);
    const auto ties = FOrder.begin() + (first - FEnds.begin());
    const auto found = std::lower_bound(ties, ties + (last - first), row, endsBefore);
    return static_cast<std::size_t>(found - FOrder.begin());
}

void TcxRowOrder::Split(std::uint32_t chunk) {
    Renumber();
    const std::size_t place = FChunks[chunk].Place;
    const std::uint32_t second = NewChunk(place + 1);
    TChunk& whole = FChunks[chunk];
    TChunk& rest = FChunks[second];
    const auto middle = static_cast<std::ptrdiff_t>(whole.Records.size() / 2);
    rest.Records.assign(whole.Records.begin() + middle, whole.Records.end());
    rest.Leads.assign(whole.Leads.begin() + middle, whole.Leads.end());
    whole.Records.erase(whole.Records.begin() + middle, whole.Records.end());
    whole.Leads.erase(whole.Leads.begin() + middle, whole.Leads.end());
    FEnds[place + 1] = FEnds[place];
    FEnds[place] = whole.Leads.back();
    for (const Integer record : rest.Records) FChunkOf[At(record)] = second;
}

void TcxRowOrder::Drop(std::uint32_t chunk) {
    const auto place = std::find(FOrder.begin(), FOrder.end(), chunk);
    FEnds.erase(FEnds.begin() + (place - FOrder.begin()));
    FOrder.erase(place);
    FFree.push_back(chunk);
}

std::uint32_t TcxRowOrder::NewChunk(std::size_t place) {
    std::uint32_t chunk;
    if (FFree.empty()) {
        chunk = static_cast<std::uint32_t>(FChunks.size());
        FChunks.emplace_back();
        FChunks.back().Records.reserve(MostRows + 1);
        FChunks.back().Leads.reserve(MostRows + 1);
    } else {
        chunk = FFree.back();
        FFree.pop_back();
    }
    const auto offset = static_cast<std::ptrdiff_t>(place);
    FOrder.insert(FOrder.begin() + offset, chunk);
    FEnds.insert(FEnds.begin() + offset, -std::numeric_limits<Double>::infinity());
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
