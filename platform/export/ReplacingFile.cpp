#include "platform/export/ReplacingFile.h"

#include "platform/widgets/ExportLinks.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace quorin {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t BufferSize = 1 << 16;
constexpr mode_t NewFileMode = 0666; // less what the user's mask takes away
constexpr mode_t ModeBits = 0777;

} // namespace

TReplacingFile::TReplacingFile(const fs::path& target) : FTarget(target), FBuffer(BufferSize) {
    Resolve();
    Create();
}

TReplacingFile::~TReplacingFile() {
    if (FFile >= 0) close(FFile);
    std::error_code ignored;
    if (!FWorking.empty()) fs::remove(FWorking, ignored);
}

void TReplacingFile::Fail(std::string_view reason) const {
    throw EExportError(TExportFault::CannotWrite,
                       FTarget.string() + " cannot be written: " + std::string(reason));
}

void TReplacingFile::FailWithSystemReason() const {
    Fail(std::generic_category().message(errno));
}

void TReplacingFile::Resolve() {
    if (FTarget.empty()) Fail("there is no file name");
    std::error_code error;
    const fs::file_status status = fs::status(FTarget, error);
    FPlace = FTarget;
    if (!fs::exists(status)) return; // a missing folder shows when the file is made
    if (fs::is_directory(status)) Fail("it is a folder");
    FIsDevice = !fs::is_regular_file(status);
    FPlace = fs::canonical(FTarget, error);
    if (error) Fail(error.message());
    // To replace a file takes no right to write into it, so the question has to be asked.
    if (access(FPlace.c_str(), W_OK) != 0) FailWithSystemReason();
}

void TReplacingFile::Create() {
    static std::atomic<unsigned> serial = 0;
    std::error_code error;
    const fs::path folder = FIsDevice ? fs::temp_directory_path(error) : FPlace.parent_path();
    if (error) Fail(error.message());
    fs::path working;
    do {
        working = folder / (".quorin-export-" + std::to_string(getpid()) + "-" +
                            std::to_string(++serial) + ".tmp");
        FFile = open(working.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    } while (FFile < 0 && errno == EEXIST); // left behind by a process that died
    if (FFile < 0) FailWithSystemReason();
    FWorking = working;
}

void TReplacingFile::WriteThrough(int file, std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) FailWithSystemReason();
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void TReplacingFile::Flush() {
    WriteThrough(FFile, std::string_view(FBuffer.data(), FUsed));
    FUsed = 0;
}

void TReplacingFile::MakeRoom(std::size_t size) {
    Flush();
    if (FBuffer.size() < size) FBuffer.resize(size);
}

void TReplacingFile::Write(std::string_view bytes) {
    if (bytes.size() >= BufferSize) {
        Flush();
        WriteThrough(FFile, bytes);
        return;
    }
    char* room = Room(bytes.size());
    std::memcpy(room, bytes.data(), bytes.size());
    Fill(room + bytes.size());
}

void TReplacingFile::TakeOverMode() const {
    struct stat old = {};
    if (FIsDevice || stat(FPlace.c_str(), &old) != 0) return;
    // A file system without modes refuses, and then there is nothing to keep.
    [[maybe_unused]] const int ignored = fchmod(FFile, old.st_mode & ModeBits);
}

void TReplacingFile::Close() {
    const int file = FFile;
    FFile = -1;
    // Some file systems tell only here that a disk is full.
    if (close(file) != 0) FailWithSystemReason();
}

void TReplacingFile::CopyIntoDevice() {
    struct TFile {
        ~TFile() {
            if (Number >= 0) close(Number);
        }
        int Number;
    };
    const TFile from{open(FWorking.c_str(), O_RDONLY | O_CLOEXEC)};
    if (from.Number < 0) FailWithSystemReason();
    const TFile to{open(FPlace.c_str(), O_WRONLY | O_CLOEXEC)};
    if (to.Number < 0) FailWithSystemReason();
    while (true) {
        const ssize_t count = read(from.Number, FBuffer.data(), FBuffer.size());
        if (count == 0) return;
        if (count < 0 && errno != EINTR) FailWithSystemReason();
        if (count > 0) {
            WriteThrough(to.Number,
                         std::string_view(FBuffer.data(), static_cast<std::size_t>(count)));
        }
    }
}

void TReplacingFile::Commit() {
    Flush();
    TakeOverMode();
    Close();
    if (FIsDevice) {
        CopyIntoDevice();
        return; // the working file goes with this object
    }
    std::error_code error;
    fs::rename(FWorking, FPlace, error);
    if (error) Fail(error.message());
    FWorking.clear();
}

} // namespace quorin
