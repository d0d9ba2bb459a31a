#include "tests/export/ExportFixture.h"

#include <stdexcept>

namespace quorin {
namespace {

constexpr Integer Never = -1;

class TListener {
public:
    Integer CancelAt = Never;
    std::string Heard;

    Boolean Progress(Integer done, Integer all) {
        Heard += std::to_string(done) + "/" + std::to_string(all) + " ";
        return done != CancelAt;
    }
    TExportProgressEvent Event() { return MakeEvent<&TListener::Progress>(this); }
};

class TProgressTest : public TExportTest {
protected:
    void SetUp() override { Put(File("a"), "the old file"); }
    void ExpectOldFile() {
        EXPECT_EQ(Content(File("a")), "the old file");
        EXPECT_EQ(Names(), "a ");
    }
};

TEST_F(TProgressTest, TellsOfRowsAndStopsWhenTold) {
    const struct {
        Integer Rows;
        Integer CancelAt;
        const char* Heard;
    } cases[] = {
        {0, Never, "0/0 "},
        {999, Never, "999/999 "},
        {1000, Never, "1000/1000 "},
        {2500, Never, "1000/2500 2000/2500 2500/2500 "},
        {2500, 1000, "1000/2500 "},
        {2500, 2500, "1000/2500 2000/2500 2500/2500 "},
        {0, 0, "0/0 "},
    };
    for (const TFormatCase& format : AllFormats) {
        for (const auto& row : cases) {
            SCOPED_TRACE(std::string(format.Extension) + " " + row.Heard);
            TUniformTable table(row.Rows, 2, u"text");
            TListener listener;
            listener.CancelAt = row.CancelAt;
            const auto target = File(row.CancelAt == Never ? "b" : "a");
            EXPECT_EQ(format.Export(target, table, listener.Event()), row.CancelAt == Never);
            EXPECT_EQ(listener.Heard, row.Heard);
            std::filesystem::remove(File("b"));
            ExpectOldFile();
        }
    }
}

TEST_F(TProgressTest, LetsWhatTheTableRaisesThrough) {
    struct TBreakingTable : TUniformTable {
        TBreakingTable() : TUniformTable(100, 2, u"7") {}
        void GetCellText(Integer row, Integer, String&) override {
            if (row == 99) throw std::logic_error("broken");
        }
    };
    for (const TFormatCase& format : AllFormats) {
        TBreakingTable table;
        EXPECT_THROW(format.Export(File("a"), table, nullptr), std::logic_error);
        ExpectOldFile();
    }
}

TEST_F(TProgressTest, LinksRaiseAClearErrorUntilSomebodyInstallsThem) {
    TcxExportLinks::Install(nullptr);
    try {
        TcxExportLinks::Installed();
        FAIL();
    } catch (const EExportError& error) {
        EXPECT_EQ(error.Fault(), TExportFault::NoExporter);
    }
}

} // namespace
} // namespace quorin
