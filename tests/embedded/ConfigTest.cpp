#include "embedded/ConfigService.h"

#include "embedded/DataError.h"
#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"

#include <string>

namespace quorin {
namespace {

std::string LoadError(TEmbeddedConfigManager& config, const std::filesystem::path& path) {
    try {
        config.Load(path);
    } catch (const EDataError& error) {
        return error.what();
    }
    return "";
}

TEST(ConfigTest, FileSettingsAreRead) {
    const TTempFile file("\xEF\xBB\xBF; a comment\n"
                         "[quorin.terminal]\n"
                         "AmountPrecision = 3\n"
                         "  T1Market=SSE,SZSE ; both\r\n"
                         "  Note: \xE6\xB8\xAF\xE8\x82\xA1\n"
                         "\n"
                         "[QRN_TRADEPLATFORM]\t; the platform\n"
                         "DefaultGroupDataMode=1");
    TEmbeddedConfigManager config;
    config.Load(file.Path());

    EXPECT_EQ(config.ReadString(u"quorin.terminal", u"AmountPrecision"), u"3");
    EXPECT_EQ(config.ReadString(u"quorin.terminal", u"T1Market"), u"SSE,SZSE");
    EXPECT_EQ(config.ReadString(u"quorin.terminal", u"Note"), u"港股");
    EXPECT_EQ(config.ReadString(u"QRN_TRADEPLATFORM", u"DefaultGroupDataMode"), u"1");
    EXPECT_EQ(config.ReadString(u"quorin.terminal", u"DefaultGroupDataMode"), u"");
    EXPECT_EQ(config.ReadString(u"quorin.terminal", u"amountprecision"), u"") << "case counts";
    EXPECT_EQ(config.GetCurrentSection(), u"quorin.terminal");
}

TEST(ConfigTest, DamagedFileIsRefusedWithItsLineAndNothingOfItStays) {
    struct TCase {
        const char* Name;
        std::string Content;
        const char* Line;
    };
    const TCase cases[] = {
        {"a line that is no setting", "[a]\nk=2\nnonsense\n", ":3: "},
        {"a section that is not closed", "[a\nk=2\n", ":1: "},
        {"a setting outside any section", "k=2\n[a]\n", ":1: "},
        {"a setting given twice", "[a]\nk=2\nj=3\nk=4\n", ":4: "},
        {"a setting given twice, indented", "[a]\n k=2\n k=4\n", ":3: "},
        {"a section given twice with the same key", "[a]\nk=2\n[a]\n\nk=4", ":5: "},
        {"a line that is too long", "[a]\nk=" + std::string(300, 'x') + "\nj=1\n", ":2: "},
        {"a section name that is too long", "[" + std::string(60, 's') + "]\nk=2\n", ":2: "},
        {"bytes that are no UTF-8", "[a]\nk=2\nj=\xC3(\n", ":3: "},
        {"a NUL in a line", std::string("[a]\nk=2\0j\n", 10), ":2: "},
        {"returns alone as line ends", "[a]\rk=2\r", ":1: "},
        {"an escape", "[a]\nk=\x1B[1m\n", ":2: "},
        {"text behind a section", "[a] junk\nk=2\n", ":1: "},
        {"an empty key", "[a]\nk=2\n=5\n", ":3: "},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.Name);
        const TTempFile file(row.Content);
        TEmbeddedConfigManager config;
        TCountingReceiver receiver;
        config.Set(u"a", u"k", u"before");
        config.Commit();
        config.RegisterConfigCallback(receiver.Event(), &receiver);

        const std::string error = LoadError(config, file.Path());
        EXPECT_EQ(error.find(file.Path().string() + row.Line), 0u) << error;
        config.Commit();
        EXPECT_EQ(config.ReadString(u"a", u"k"), u"before");
        EXPECT_EQ(config.ReadString(u"a", u"j"), u"");
        EXPECT_EQ(receiver.Count(), 0);
    }
}

TEST(ConfigTest, MissingFileAndFolderAreRefused) {
    TEmbeddedConfigManager config;
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    const std::filesystem::path missing = folder / "quorin-no-such-file.ini";
    EXPECT_EQ(LoadError(config, missing), missing.string() + ": cannot be read");
    EXPECT_EQ(LoadError(config, folder), folder.string() + ": cannot be read");
    const std::filesystem::path unreadable = "/proc/self/mem"; // opens; reading its start fails
    if (std::filesystem::exists(unreadable)) {
        EXPECT_EQ(LoadError(config, unreadable), "/proc/self/mem: cannot be read");
    }
    EXPECT_STREQ(EDataError("a\nb", 2, "\x1B[1m \xC2\x9B \xC2\xA3").what(),
                 "a b:2:  [1m   \xC2\xA3");
}

TEST(ConfigTest, OneCallbackPerCommittedChange) {
    TEmbeddedConfigManager config;
    TCountingReceiver receiver;
    config.RegisterConfigCallback(receiver.Event(), &receiver);

    config.Set(u"s", u"a", u"1");
    config.Set(u"s", u"b", u"2");
    EXPECT_EQ(receiver.Count(), 0) << "before the commit";
    config.Commit();
    config.Commit();
    EXPECT_EQ(receiver.Count(), 1) << "both settings together";

    config.Set(u"s", u"a", u"1");
    config.Set(u"s", u"absent", u"");
    config.SetCurrentSection(DefaultConfigSection);
    config.Commit();
    EXPECT_EQ(receiver.Count(), 1) << "equal values";

    config.Set(u"s", u"a", u"");
    config.Commit();
    config.SetCurrentSection(u"s");
    config.Commit();
    EXPECT_EQ(receiver.Count(), 3) << "a setting taken away, another section";

    config.RemoveConfigCallback(&receiver);
    config.Set(u"s", u"a", u"3");
    config.Commit();
    EXPECT_EQ(receiver.Count(), 3) << "after removal";
}

} // namespace
} // namespace quorin
