#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace quorin {

// A file of this test's own that goes with it.
class TTempFile {
public:
    explicit TTempFile(std::string_view content) {
        static int serial = 0;
        FPath = std::filesystem::temp_directory_path() /
                ("quorin-test-" + std::to_string(getpid()) + "-" + std::to_string(++serial));
        std::ofstream file(FPath, std::ios::binary);
        file << content;
        file.close();
        EXPECT_TRUE(file.good()) << FPath;
    }
    TTempFile(const TTempFile&) = delete;
    TTempFile& operator=(const TTempFile&) = delete;
    ~TTempFile() {
        std::error_code ignored;
        std::filesystem::remove(FPath, ignored);
    }

    const std::filesystem::path& Path() const { return FPath; }
    std::string Content() const {
        std::ifstream file(FPath, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }

private:
    std::filesystem::path FPath;
};

// The same for a folder.
class TTempFolder {
public:
    TTempFolder() { std::filesystem::create_directory(FPath); }
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;
    ~TTempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(FPath, ignored);
    }

    const std::filesystem::path& Path() const { return FPath; }
    void Write(const std::string& name, std::string_view content) const {
        std::ofstream(FPath / name, std::ios::binary) << content;
    }

private:
    const TTempFile FPlace{""};
    const std::filesystem::path FPath = FPlace.Path().string() + ".d";
};

} // namespace quorin
