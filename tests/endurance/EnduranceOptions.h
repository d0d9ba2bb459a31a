#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorin {

struct TEnduranceOptions {
    std::uint64_t Seed = 1;
    std::int64_t Updates = 10'000'000; // delivered; the day ends with the last of them
    double Seconds = 0.0;              // 0: as long as the updates take
};

struct TEnduranceCommandLine {
    std::optional<TEnduranceOptions> Options; // nothing: the program ends at once
    std::string Output;
    std::string Error; // one line
    int ExitStatus = 0;
};

TEnduranceCommandLine ParseEnduranceCommandLine(int argc, const char* const* argv);

} // namespace quorin
