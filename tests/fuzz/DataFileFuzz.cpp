// Settings, lists of symbols and recordings of any bytes; the first byte says which. A file is
// taken in whole or refused in one line, and then nothing of it counts.

#include "embedded/DataError.h"
#include "embedded/ReplayFile.h"
#include "embedded/UniverseFile.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/FuzzServices.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace quorin {
namespace {

constexpr StringView SeedSymbol = u"AAA"; // the first one of the seeds

// One file of this process, written anew for each run.
const std::filesystem::path& WriteFile(std::string_view bytes) {
    static const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("quorin-fuzz-" + std::to_string(getpid()));
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

template <class Load>
bool Loads(const Load& load) {
    try {
        load();
        return true;
    } catch (const EDataError& error) {
        const std::string_view message = error.what();
        ExpectLaw(!message.empty() && message.find('\n') == message.npos, "one line says why");
        return false;
    }
}

void FuzzSettings(std::string_view bytes) {
    TEmbeddedConfigManager config;
    config.Set(u"section", u"key", u"before");
    const bool isLoaded = Loads([&] { config.Load(WriteFile(bytes)); });
    ExpectLaw(isLoaded || config.ReadString(u"section", u"key") == u"before",
              "a refused file changes no setting");
    config.Commit();
}

void FuzzSymbols(std::string_view bytes) {
    TFuzzServices world;
    TEmbeddedMarketAdapter& market = world.Services.Market();
    const bool isLoaded = Loads([&] { LoadUniverseList(WriteFile(bytes), market); });
    ExpectLaw(market.FindMarketData(u"00700") != nullptr, "what was there stays there");
    world.Services.Deliver();
    ExpectLaw(isLoaded || market.FindMarketData(SeedSymbol) == nullptr,
              "of a refused list no symbol is there");
}

void FuzzRecording(std::string_view bytes) {
    std::istringstream stream{std::string(bytes)};
    Int64 lastLine = 0;
    TReplayReader reader(stream, [&](Int64 line, std::string_view reason) {
        ExpectLaw(line >= lastLine && !reason.empty(), "lines are reported in their order");
        lastLine = line;
    });
    if (!reader.ReadHeader()) return;
    TReplayEvent event;
    Int64 time = 0;
    while (reader.Next(event)) {
        ExpectLaw(event.Time >= time, "times never go back");
        ExpectLaw(!event.Symbol.empty() && event.Quantity >= 0.0, "a symbol, a quantity");
        time = event.Time;
    }
}

} // namespace
} // namespace quorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    TFuzzInput input(data, size);
    switch (input.TakeByte()) {
    case 'i': FuzzSettings(input.Rest()); break;
    case 's': FuzzSymbols(input.Rest()); break;
    default: FuzzRecording(input.Rest()); break;
    }
    return 0;
}
