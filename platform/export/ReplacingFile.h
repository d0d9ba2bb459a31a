#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

namespace quorin {

// A new content for a file, written beside it under another name. Commit puts it in the place of
// the old content in one step; an object that goes without leaves nothing behind. Every operation
// raises EExportError with the system's reason.
class TReplacingFile {
public:
    explicit TReplacingFile(const std::filesystem::path& target);
    TReplacingFile(const TReplacingFile&) = delete;
    TReplacingFile& operator=(const TReplacingFile&) = delete;
    ~TReplacingFile();

    // Where the content is until Commit; somebody else may write there instead of Write.
    const std::filesystem::path& WorkingPath() const { return FWorking; }

    void Write(std::string_view bytes);
    // For many small pieces: at least `size` bytes to fill, of which Fill tells how many were used.
    char* Room(std::size_t size) {
        if (FBuffer.size() - FUsed < size) MakeRoom(size);
        return FBuffer.data() + FUsed;
    }
    void Fill(const char* end) { FUsed = static_cast<std::size_t>(end - FBuffer.data()); }

    void Commit();
    [[noreturn]] void Fail(std::string_view reason) const;

private:
    [[noreturn]] void FailWithSystemReason() const;
    void Resolve();
    void Create();
    void MakeRoom(std::size_t size);
    void Flush();
    void WriteThrough(int file, std::string_view bytes) const;
    void CopyIntoDevice();
    void TakeOverMode() const;
    void Close();

    std::filesystem::path FTarget; // as given, for messages
    std::filesystem::path FPlace;  // with links followed
    std::filesystem::path FWorking;
    std::vector<char> FBuffer;
    std::size_t FUsed = 0;
    int FFile = -1;
    bool FIsDevice = false;
};

} // namespace quorin
