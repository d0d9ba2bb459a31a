#include "benchmarks/Workloads.h"

namespace quorin {

namespace {

constexpr const char* QtModel = "QAbstractTableModel over a vector";
constexpr const char* QtProxy = "QSortFilterProxyModel";
constexpr const char* HandChain = "chain by hand";

// What is not on the screen must not be felt.
constexpr Double Flat = 1.5;
constexpr Int64 Hundred = 100'000;
constexpr Double HundredTimesBelow = 0.01;

constexpr TWorkload AllWorkloads[] = {
    {"numeric cell, raw",
     "cell",
     "LibraryCells",
     {{"QtCells", QtModel, 1.0}, {"HandWrittenCells", HandChain, 1.5}},
     Flat},
    {"price as display text",
     "text",
     "LibraryPriceTexts",
     {{"ToCharsPriceTexts", "to_chars and group marks", 1.5}},
     Flat},
    {"100 updates and the window, watch",
     "batch",
     "WatchWindow",
     {{"QtWindow", QtModel, 1.0}, {"HandWindow", HandChain}},
     Flat},
    {"100 updates and the window, table",
     "batch",
     "TableWindow",
     {{"QtWindow", QtModel, 1.0}},
     Flat},
    {"the same sorted, watch",
     "batch",
     "WatchSortedWindow",
     {{"QtSortedWindow", QtProxy, HundredTimesBelow, Hundred},
      {"HandSortedWindow", "chain and std::set by hand"}},
     Flat},
    {"the same sorted, table",
     "batch",
     "TableSortedWindow",
     {{"QtSortedWindow", QtProxy, HundredTimesBelow, Hundred}},
     Flat},
    {"the same filtered, watch",
     "batch",
     "WatchFilteredWindow",
     {{"QtFilteredWindow", QtProxy, 1.0, Hundred},
      {"HandFilteredWindow", "chain and std::set by hand"}},
     Flat},
    {"the same filtered, table",
     "batch",
     "TableFilteredWindow",
     {{"QtFilteredWindow", QtProxy, 1.0, Hundred}},
     Flat},
    {"delivery in batches of 100",
     "update",
     "BatchedDelivery",
     {{"RealtimeDelivery", "one delivery per update", 1.0}},
     Flat},
    {"delivery and repaint of 50 rows", "frame", "DeliverAndRepaint", {}, Flat},
    {"move of a price", "look", "PriceMoves", {}, Flat},
    {"aggregated rebuild", "position", "AggregateView", {{"AggregateByHand", "hash map", 3.0}}},
    {"price on an aggregated view", "update", "AggregatedPrice", {}, Flat},
    {"price on a position list", "update", "PositionPriceChange", {}, Flat},
    {"currency ratio on a position list", "update", "PositionRatioChange", {}, Flat},
    {"update of one position", "update", "PositionUpdateOfOne", {}, Flat},
    {"first row goes", "row", "RemoveFirstRow", {{"EraseFirst", "vector", 3.0}}},
    {"middle row goes", "row", "RemoveMiddleRow", {{"EraseMiddle", "vector", 3.0}}},
    {"last row goes", "row", "RemoveLastRow", {{"PositionUpdateOfOne", "update of one", 3.0}}},
    {"account tree repainted", "frame", "RepaintTree", {{"TreeByHand", "50 texts by hand"}}, Flat},
    {"cash tree repainted", "frame", "RepaintCashTree", {}, Flat},
    {"figure summed over sub-accounts",
     "cell",
     "AggregatedCells",
     {{"PlainSums", "loops", 2.0}, {"PlainSumsByRow", "loops in the order of the rows"}}},
    {"side of a trade", "update", "DetectSides", {{"SidesByHand", "newest line by hand"}}, Flat},
    {"key in a price field",
     "key",
     "PriceKeyPress",
     {{"ToCharsGrouped", "to_chars and group marks", 10.0}},
     Flat},
    {"linked symbol field follows", "field", "LinkedSymbolFields"},
    {"column layout read and applied",
     "layout",
     "ApplyLayout",
     {{"LayoutByHand", "by hand"}},
     Flat},
    {"CSV export, 20 columns", "row", "CsvExport", {{"CsvPlain", "buffered output", 2.0}}},
    {"XLSX export, 20 columns", "row", "XlsxExport", {{"XlsxByLibrary", "the library alone", 1.3}}},
    {"XLS export, 20 columns", "row", "XlsExport"},
    {"rows into a watch", "row", "LoadControl", {{"LoadByHand", "vector and hash map", 1.5}}},
    {"subscription of a row", "row", "FollowRows"},
    {"symbols from a file", "symbol", "LoadList"},
    {"start to the first screen",
     "start",
     "StartWatch",
     {{"StartByHand", "split into a hash map"}}},
    {"venue, nobody looking", "update", "VenueUpdates"},
    {"venue, start", "symbol", "VenueStart"},
};

constexpr const char* Allocations = "allocations";
constexpr const char* Bytes = "bytes";

constexpr TCount AllCounts[] = {
    {"allocations per numeric cell", "LibraryCells", Allocations, 0.0},
    {"allocations per update, in batches", "BatchedDelivery", Allocations, 0.0},
    {"allocations per update, one by one", "RealtimeDelivery", Allocations, 0.0},
    {"allocations per price move", "PriceMoves", Allocations, 0.0},
    {"allocations per batch and window, watch", "WatchWindow", Allocations, 0.0},
    {"allocations per batch and window, sorted", "WatchSortedWindow", Allocations, 0.0},
    {"allocations per batch and window, filtered", "WatchFilteredWindow", Allocations, 0.0},
    {"allocations per price text", "LibraryPriceTexts", Allocations},
    {"allocations per side told", "DetectSides", Allocations},
    {"bytes a row of a watch", "LoadControl", Bytes, 200.0},
    {"bytes a row, vector and hash map by hand", "LoadByHand", Bytes},
    {"bytes a subscription", "FollowRows", Bytes},
    {"bytes a symbol of the market service", "LoadList", Bytes},
    {"bytes a live item without a quote", "MakeItems", Bytes},
    {"bytes a node of the account tree", "BuildTree", Bytes},
};

} // namespace

std::span<const TWorkload> Workloads() {
    return AllWorkloads;
}

std::span<const TCount> Counts() {
    return AllCounts;
}

} // namespace quorin
