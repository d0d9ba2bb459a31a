// Makes a universe of any size as a list of symbols for the console's option --universe.
//
//   quorin-make-universe --symbols 31000 --seed 1 > universe.csv

#include "embedded/UniverseMaker.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

namespace {

constexpr std::uint64_t DefaultSymbols = 1000;
constexpr std::uint64_t MostSymbols = 100'000'000;

bool TryNumber(const char* text, std::uint64_t& number) {
    char* end = nullptr;
    number = std::strtoull(text, &end, 10);
    return *text >= '0' && *text <= '9' && *end == '\0';
}

} // namespace

int main(int argc, char** argv) {
    std::uint64_t symbols = DefaultSymbols;
    std::uint64_t seed = 1;
    for (int index = 1; index < argc; index += 2) {
        const bool isSymbols = std::strcmp(argv[index], "--symbols") == 0;
        const bool isSeed = std::strcmp(argv[index], "--seed") == 0;
        if ((!isSymbols && !isSeed) || index + 1 >= argc ||
            !TryNumber(argv[index + 1], isSymbols ? symbols : seed) || symbols > MostSymbols) {
            std::cerr << "quorin-make-universe [--symbols N] [--seed S] > universe.csv\n";
            return 2;
        }
    }
    std::ios::sync_with_stdio(false);
    quorin::WriteUniverseList(std::cout, static_cast<quorin::Int64>(symbols), seed);
    std::cout.flush();
    return std::cout ? 0 : 1;
}
