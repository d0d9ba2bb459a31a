#include "tests/export/ExportFixture.h"

#include <csignal>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorin {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view OldContent = "the old file";

class TTargetTest : public TExportTest {
protected:
    // What the export raised; nothing when it did not.
    static std::optional<TExportFault> Fault(const TFormatCase& format, const fs::path& target,
                                             TExportTable& table, std::string* message = nullptr) {
        try {
            format.Export(target, table, nullptr);
            return std::nullopt;
        } catch (const EExportError& error) {
            if (message != nullptr) *message = error.what();
            return error.Fault();
        }
    }
    TUniformTable FTable{3, 2, u"7"};
};

TEST_F(TTargetTest, SaysWhyATargetCannotBeWritten) {
    fs::create_directory(File("folder"));
    fs::create_symlink(File("folder"), File("link"));
    const struct {
        const char* Name;
        fs::path Target;
        const char* Reason;
    } cases[] = {
        {"no name", "", "no file name"},
        {"a folder", File("folder"), "is a folder"},
        {"a link to a folder", File("link"), "is a folder"},
        {"no folder there", File("nowhere") / "a.x", "No such file or directory"},
        {"below a file", File("a.file") / "a.x", "Not a directory"},
        {"a name too long", File(std::string(300, 'n')), "File name too long"},
        {"full device", "/dev/full", "No space left on device"},
    };
    Put(File("a.file"), OldContent);
    for (const auto& row : cases) {
        for (const TFormatCase& format : AllFormats) {
            SCOPED_TRACE(std::string(row.Name) + ", " + format.Extension);
            std::string message;
            EXPECT_EQ(Fault(format, row.Target, FTable, &message), TExportFault::CannotWrite);
            EXPECT_TRUE(message.starts_with(row.Target.string() + " cannot be written: "));
            EXPECT_NE(message.find(row.Reason), std::string::npos) << message;
        }
    }
    EXPECT_EQ(Names(), "a.file folder link ");
    EXPECT_EQ(Content(File("a.file")), OldContent);
    EXPECT_TRUE(fs::is_empty(File("folder")));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(TTargetTest, RefusesAnOldFileThatIsProtected) {
    if (geteuid() == 0) GTEST_SKIP() << "nothing is protected from root";
    Put(File("a.csv"), OldContent);
    chmod(File("a.csv").c_str(), S_IRUSR);
    EXPECT_EQ(Fault(AllFormats[0], File("a.csv"), FTable), TExportFault::CannotWrite);
    EXPECT_EQ(Content(File("a.csv")), OldContent);
}

TEST_F(TTargetTest, ReplacesAnOldFileAndKeepsItsModeAndItsLinks) {
    for (const TFormatCase& format : AllFormats) {
        SCOPED_TRACE(format.Extension);
        ASSERT_TRUE(format.Export(File("new"), FTable, nullptr));
        const mode_t mask = umask(0);
        umask(mask);
        EXPECT_EQ(fs::status(File("new")).permissions(), fs::perms(0666 & ~mask));
        Put(File("old"), OldContent);
        chmod(File("old").c_str(), 0640);
        fs::create_symlink(File("old"), File("link"));
        ASSERT_TRUE(format.Export(File("link"), FTable, nullptr));
        EXPECT_TRUE(fs::is_symlink(File("link")));
        EXPECT_EQ(fs::status(File("old")).permissions(), fs::perms(0640));
        EXPECT_GT(fs::file_size(File("old")), OldContent.size());
        EXPECT_EQ(Names(), "link new old ");
        for (const char* name : {"link", "new", "old"}) fs::remove(File(name));
    }
}

TEST_F(TTargetTest, RefusesATableLargerThanTheFormatBeforeAnythingIsWritten) {
    const struct {
        const TFormatCase& Format;
        Integer Rows;
        Integer Columns;
        const char* Message;
    } cases[] = {
        {AllFormats[1], 65536, 1, "65536 rows below the captions: an XLS workbook holds 65535."},
        {AllFormats[1], 1, 257, "257 columns: an XLS workbook holds 256."},
        {AllFormats[2], 1048576, 1,
         "1048576 rows below the captions: an XLSX workbook holds 1048575."},
        {AllFormats[2], 1, 16385, "16385 columns: an XLSX workbook holds 16384."},
    };
    Put(File("a"), OldContent);
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Message);
        TUniformTable table(row.Rows, row.Columns, u"7");
        std::string message;
        EXPECT_EQ(Fault(row.Format, File("a"), table, &message), TExportFault::TooLarge);
        EXPECT_EQ(message, row.Message);
        EXPECT_EQ(Content(File("a")), OldContent);
        EXPECT_EQ(Names(), "a ");
    }
}

// Every write beyond a size fails, as on a full disk, also those into temporary files elsewhere.
class TFileSizeLimit {
public:
    explicit TFileSizeLimit(rlim_t bytes) : FSignal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &FBefore);
        const rlimit limit = {bytes, FBefore.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~TFileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &FBefore);
        std::signal(SIGXFSZ, FSignal);
    }

private:
    rlimit FBefore = {};
    void (*FSignal)(int);
};

TEST_F(TTargetTest, LeavesTheOldFileWhereverTheDiskFillsUp) {
    TUniformTable table(200, 4, u"a text \u9A30");
    for (const TFormatCase& format : AllFormats) {
        ASSERT_TRUE(format.Export(File("whole"), table, nullptr));
        const auto whole = fs::file_size(File("whole"));
        fs::remove(File("whole"));
        // A workbook's parts are larger, unpacked in temporary files, than it is itself.
        // The time of its creation, which is in it, packs now better and now worse.
        constexpr Double TimeBytes = 16;
        constexpr rlim_t Step = 499, Enough = 200 * Step;
        for (rlim_t limit = 0; limit <= Enough; limit += Step) {
            SCOPED_TRACE(std::string(format.Extension) + " " + std::to_string(limit));
            Put(File("a"), OldContent);
            std::optional<TExportFault> fault;
            {
                const TFileSizeLimit full(limit);
                fault = Fault(format, File("a"), table);
            }
            EXPECT_TRUE(fault || limit >= whole);
            EXPECT_TRUE(!fault || limit < Enough);
            if (fault) {
                EXPECT_EQ(fault, TExportFault::CannotWrite);
                EXPECT_EQ(Content(File("a")), OldContent);
            } else {
                EXPECT_NEAR(static_cast<Double>(fs::file_size(File("a"))),
                            static_cast<Double>(whole), TimeBytes);
            }
            EXPECT_EQ(Names(), "a ");
        }
    }
}

} // namespace
} // namespace quorin
