#pragma once

#include "platform/rtl/Types.h"

#include <istream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {

// Reads comma separated records from a stream, one by one, whatever its size: fields may be quoted
// and then hold commas, line breaks and doubled quotes; records end with LF or CRLF; a UTF-8 mark
// at the start is skipped. Bytes are handed on as they are. An empty line is a record of one empty
// field.
//
// A line that breaks these rules is a record with a Problem and no fields; reading goes on with the
// line after it, also after a quote that nothing closes.
class TCsvReader {
public:
    // No record is longer, in bytes.
    static constexpr std::size_t MaxRecordLength = 64 * 1024;

    // `stream` must live as long as the reader reads.
    explicit TCsvReader(std::istream& stream) : FStream(stream) {}

    // Goes to the next record; False at the end, and where the stream cannot be read on: what was
    // read of a record until then is none.
    bool Next();
    // The records ended because the stream could not be read, not because there are no more.
    bool Failed() const { return FStream.bad(); }
    // Of the record; good until the next one.
    std::span<const std::string_view> Fields() const { return FFields; }
    // What is wrong with the record; empty for a good one.
    std::string_view Problem() const { return FProblem; }
    // The number of the record's first line, from 1.
    Int64 Line() const { return FLine; }

private:
    struct TPiece { // of a field, in FRecord
        std::size_t Begin;
        std::size_t End;
    };
    enum class TEnd { Found, OpenQuote, TooLong };

    bool Available(std::size_t offset);
    TEnd ScanRecord(std::size_t& length, std::size_t& next);
    void SplitRecord(std::string_view raw);
    bool AppendQuoted(std::string_view raw, std::size_t& position);
    void SkipLine();
    void SkipMark();

    std::istream& FStream;
    std::string FBuffer; // what was read and not handed out yet begins at FStart
    std::size_t FStart = 0;
    std::string FRecord; // the fields one after the other, without their quotes
    std::vector<TPiece> FPieces;
    std::vector<std::string_view> FFields;
    std::string_view FProblem;
    Int64 FLine = 0;
    Int64 FNextLine = 1;
    bool FIsOpen = false;
};

} // namespace quorin
