#pragma once

#include "platform/widgets/SortKey.h"

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace quorin {

// What a view's rows are made from: which records are shown, and what they sort by.
class TcxRowSource {
public:
    virtual ~TcxRowSource() = default;
    // The record passes the filter.
    virtual bool Passes(Integer record) = 0;
    // The raw value of a record in the sort column at that place of the sort sequence.
    virtual Variant SortValue(Integer record, Integer column) = 0;
};

// Records in view order: those that pass the filter, sorted by several columns; records that tie
// keep their own order, in both directions. A change of some records moves these alone and costs by
// their number, with the logarithm of the rest.
class TcxRowOrder {
public:
    // Reads everything anew. One direction for each sort column; none keeps the records' order.
    void Build(Integer records, std::vector<bool> descending, TcxRowSource& source);
    // Reads these records anew and moves those that have changed. Records outside are ignored, and
    // one may be named twice.
    void Update(std::span<const Integer> records, TcxRowSource& source);
    // The same for every record.
    void UpdateAll(TcxRowSource& source);

    // How many rows at least would move, come or go if these records, each named once, were read
    // anew; all others count as they stand. Changes nothing.
    Integer CountMoves(std::span<const Integer> records, TcxRowSource& source) const;

    Integer Count() const { return FCount; }
    // Both -1 outside, and for a record that is not shown.
    Integer RecordAt(Integer row) const;
    Integer RowOf(Integer record) const;

private:
    static constexpr std::uint32_t NotShown = 0xFFFFFFFF;
    static constexpr std::size_t MostRows = 256; // of a chunk

    // What one row brings to a comparison. Most are settled by the number that leads, without a
    // look at keys that are far away in memory.
    struct TRow {
        Double Lead; // TcxSortKey::Lead of the first sort column; the record where there is none
        Integer Record;
    };
    // A run of the order. Runs keep their number for life; their places change.
    struct TChunk {
        std::vector<Integer> Records;
        std::vector<Double> Leads; // of the records
        std::size_t Place = 0;
        Integer FirstRow = 0;
    };

    TRow RowFor(Integer record) const;
    bool IsBefore(const TRow& left, const TRow& right) const;
    bool IsTieBefore(Double lead, Integer left, Integer right) const;
    bool ReadKeys(Integer record, TcxRowSource& source);
    void Fetch(Integer record) const;
    void Reread(Integer record, TcxRowSource& source);
    void PutBack();
    void TakeOut(Integer record);
    void PutIn(Integer record);
    std::size_t PlaceFor(const TRow& row) const;
    void Split(std::uint32_t chunk);
    void Drop(std::uint32_t chunk);
    std::uint32_t NewChunk(std::size_t place);
    void Renumber() const;
    bool IsInChunkAt(std::size_t place, Integer row) const;
    Integer CountMovesIn(const std::vector<std::pair<Integer, Integer>>& rows, std::size_t first,
                         std::size_t end, TcxRowSource& source) const;
    bool HasRecord(Integer record) const {
        return record >= 0 && static_cast<std::size_t>(record) < FChunkOf.size();
    }

    std::vector<bool> FDescending;
    std::vector<TcxSortKey> FKeys; // of each record in turn, one per sort column
    std::vector<std::uint32_t> FChunkOf;
    mutable std::vector<TChunk> FChunks;
    std::vector<std::uint32_t> FOrder; // numbers of chunks, place by place
    std::vector<Double> FEnds; // of those, not below any lead in one nor above any in the next
    std::vector<std::uint32_t> FFree;
    std::vector<Integer> FTaken; // out of the order, on their way to new places
    Integer FCount = 0;
    mutable bool FIsNumbered = true;    // the chunks know their places and first rows
    mutable std::size_t FSeenPlace = 0; // of the row that was looked at last
};

} // namespace quorin
