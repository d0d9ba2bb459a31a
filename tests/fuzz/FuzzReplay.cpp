// The program around a fuzz target where the compiler brings none: runs every file of the folders
// that it is given, and each of them once more with a few bytes changed.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int ChangedRuns = 20; // of each file

void Run(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

std::string Changed(std::string bytes, std::mt19937& random) {
    for (int change = 0; change < 3 && !bytes.empty(); ++change) {
        const std::size_t place = random() % bytes.size();
        switch (random() % 4) {
        case 0: bytes[place] = static_cast<char>(random()); break;
        case 1: bytes.erase(place, 1 + random() % 4); break;
        case 2: bytes.insert(place, bytes.substr(random() % bytes.size(), 8)); break;
        default: bytes.insert(place, 1, static_cast<char>(' ' + random() % 95)); break;
        }
    }
    return bytes;
}

} // namespace

int main(int count, char** arguments) {
    std::vector<std::filesystem::path> files;
    for (int index = 1; index < count; ++index) {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[index])) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    std::mt19937 random(1);
    for (const auto& path : files) {
        std::ifstream file(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        Run(bytes);
        for (int run = 0; run < ChangedRuns; ++run) Run(Changed(bytes, random));
    }
    std::cout << files.size() << " files\n";
    return files.empty() ? 1 : 0;
}
