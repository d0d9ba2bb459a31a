#pragma once

#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

// A stream's bytes, one read at a time; behind them the end, or a read error.
class TBreakingBuffer : public std::streambuf {
public:
    TBreakingBuffer(std::string bytes, bool breaks) : FBytes(std::move(bytes)), FBreaks(breaks) {}

protected:
    int_type underflow() override {
        if (FNext == FBytes.size()) {
            if (FBreaks) throw std::runtime_error("read error");
            return traits_type::eof();
        }
        char* const next = &FBytes[FNext++];
        setg(next, next, next + 1);
        return traits_type::to_int_type(*next);
    }
    pos_type seekpos(pos_type, std::ios_base::openmode) override {
        FNext = 0;
        return 0;
    }

private:
    std::string FBytes;
    bool FBreaks;
    std::size_t FNext = 0;
};
