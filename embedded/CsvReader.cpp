#include "embedded/CsvReader.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr std::size_t ChunkSize = 64 * 1024;
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

} // namespace

// Reads on until the byte at that distance from the start is there; False beyond the end.
bool TCsvReader::Available(std::size_t offset) {
    while (FStart + offset >= FBuffer.size()) {
        if (!FStream.good()) return false;
        FBuffer.erase(0, FStart);
        FStart = 0;
        const std::size_t kept = FBuffer.size();
        FBuffer.resize(kept + ChunkSize);
        FStream.read(FBuffer.data() + kept, static_cast<std::streamsize>(ChunkSize));
        FBuffer.resize(kept + static_cast<std::size_t>(FStream.gcount()));
    }
    return true;
}

bool TCsvReader::Next() {
    if (!FIsOpen) SkipMark();
    FIsOpen = true;
    FFields.clear();
    FProblem = {};
    FLine = FNextLine;
    if (!Available(0)) return false;

    std::size_t length = 0;
    std::size_t next = 0;
    const TEnd end = ScanRecord(length, next);
    if (Failed()) return false;
    switch (end) {
    case TEnd::Found: {
        const auto raw = std::string_view(FBuffer).substr(FStart, length);
        SplitRecord(raw);
        if (!FProblem.empty()) {
            SkipLine();
            return true;
        }
        FNextLine += std::count(raw.begin(), raw.end(), '\n') + 1;
        FStart += next;
        return true;
    }
    case TEnd::OpenQuote: FProblem = "a quote is not closed"; break;
    case TEnd::TooLong: FProblem = "the record is too long"; break;
    }
    SkipLine();
    return true;
}

// `length`: of the record without its line end; `next`: to what follows it.
TCsvReader::TEnd TCsvReader::ScanRecord(std::size_t& length, std::size_t& next) {
    bool isQuoted = false;
    for (std::size_t offset = 0; offset <= MaxRecordLength; ++offset) {
        if (!Available(offset)) {
            length = next = offset;
            return isQuoted ? TEnd::OpenQuote : TEnd::Found;
        }
        const char byte = FBuffer[FStart + offset];
        if (byte == '"') isQuoted = !isQuoted; // a doubled quote closes and opens again
        if (byte != '\n' || isQuoted) continue;
        next = offset + 1;
        const bool hasReturn = offset > 0 && FBuffer[FStart + offset - 1] == '\r';
        length = hasReturn ? offset - 1 : offset;
        return TEnd::Found;
    }
    return isQuoted ? TEnd::OpenQuote : TEnd::TooLong;
}

void TCsvReader::SplitRecord(std::string_view raw) {
    FRecord.clear();
    FPieces.clear();
    std::size_t position = 0;
    while (true) {
        const std::size_t begin = FRecord.size();
        if (position < raw.size() && raw[position] == '"') {
            if (!AppendQuoted(raw, position)) return;
        } else {
            const std::size_t end = std::min(raw.find(',', position), raw.size());
            const std::string_view field = raw.substr(position, end - position);
            if (field.find('"') != field.npos) {
                FProblem = "a quote inside a field that is not quoted";
                return;
            }
            FRecord.append(field);
            position = end;
        }
        FPieces.push_back({begin, FRecord.size()});
        if (position >= raw.size()) break;
        ++position; // the comma
    }
    for (const TPiece& piece : FPieces) {
        FFields.push_back(std::string_view(FRecord).substr(piece.Begin, piece.End - piece.Begin));
    }
}

// From the opening quote to behind the closing one.
bool TCsvReader::AppendQuoted(std::string_view raw, std::size_t& position) {
    ++position;
    while (true) {
        const std::size_t quote = raw.find('"', position);
        if (quote == raw.npos) {
            FProblem = "a quote is not closed";
            return false;
        }
        FRecord.append(raw.substr(position, quote - position));
        position = quote + 1;
        if (position >= raw.size() || raw[position] == ',') return true;
        if (raw[position] != '"') {
            FProblem = "text behind a closing quote";
            return false;
        }
        FRecord.push_back('"');
        ++position;
    }
}

// Leaves the bad line, and only it, however long it is.
void TCsvReader::SkipLine() {
    ++FNextLine;
    while (Available(0)) {
        const std::size_t end = FBuffer.find('\n', FStart);
        FStart = end == FBuffer.npos ? FBuffer.size() : end + 1;
        if (end != FBuffer.npos) return;
    }
}

void TCsvReader::SkipMark() {
    if (Available(Utf8Mark.size() - 1) && FBuffer.compare(FStart, Utf8Mark.size(), Utf8Mark) == 0) {
        FStart += Utf8Mark.size();
    }
}

} // namespace quorin
