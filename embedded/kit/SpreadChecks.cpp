#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"

#include <cmath>

namespace quorin {

namespace {

constexpr TTickBand Bands[] = {
    {0.0, 0.25, 0.001}, {0.25, 0.5, 0.005},  {0.5, 10.0, 0.01},
    {10.0, 20.0, 0.02}, {20.0, 100.0, 0.05}, {100.0, 200.0, 0.1},
};
constexpr Double TicksTolerance = 1e-6; // of a price step
constexpr Integer ManySteps = 7;

// Prices on a tick, with what lies one step up and down and the price steps that count there.
struct TPriceRow {
    Double Price;
    Double Up;
    Double Down;
    Double StepUp;
    Double StepDown;
};
constexpr TPriceRow Prices[] = {
    {0.001, 0.002, 0.0, 0.001, 0.001},  {0.249, 0.25, 0.248, 0.001, 0.001},
    {0.25, 0.255, 0.249, 0.005, 0.001}, {0.495, 0.5, 0.49, 0.005, 0.005},
    {0.5, 0.51, 0.495, 0.01, 0.005},    {9.99, 10.0, 9.98, 0.01, 0.01},
    {10.0, 10.02, 9.99, 0.02, 0.01},    {10.02, 10.04, 10.0, 0.02, 0.02},
    {19.98, 20.0, 19.96, 0.02, 0.02},   {20.0, 20.05, 19.98, 0.05, 0.02},
    {57.35, 57.4, 57.3, 0.05, 0.05},    {99.95, 100.0, 99.9, 0.05, 0.05},
    {100.0, 100.1, 99.95, 0.1, 0.05},   {199.9, 200.0, 199.8, 0.1, 0.1},
};

bool IsOnTick(Double price) {
    for (const TTickBand& band : Bands) {
        if (price < band.From - TicksTolerance || price > band.To + TicksTolerance) continue;
        const Double ticks = (price - band.From) / band.Step;
        if (std::fabs(ticks - std::nearbyint(ticks)) <= TicksTolerance) return true;
    }
    return false;
}

class TSpreadChecks {
public:
    TSpreadChecks(TMarketDriver& driver, TContractReport& report)
        : FDriver(driver), FCheck(report, u"SpreadTable") {}

    void CheckAll() {
        const String code = FDriver.NewSpreadTable(Bands);
        TCustomMarketAdapter& service = FDriver.Service();
        if (const TCustomSpreadTable* early = service.FindSpreadTable(code)) WithoutBands(*early);
        FDriver.Deliver();
        const TCustomSpreadTable* table = service.FindSpreadTable(code);
        if (!FCheck.IsThere(u"a table that was asked for arrives", table)) return;
        FCheck.Equal(u"a table that was asked for arrives", SpreadTableLoaded, table->GetStatus());
        FCheck.IsSame(u"a known code gives the same table", table, service.FindSpreadTable(code));
        for (const TPriceRow& row : Prices) CheckPrice(*table, row);
        ManyStepsAtOnce(*table);
    }

private:
    void WithoutBands(const TCustomSpreadTable& table) {
        if (table.GetStatus() == SpreadTableLoaded) return;
        Double upper = -1.0;
        Double lower = -1.0;
        const StringView rule = u"without a band the step and both bounds are 0.0";
        FCheck.Equal(rule, 0.0, table.GetSpreadUp(1.0, upper, lower), u"GetSpreadUp");
        FCheck.Equal(rule, 0.0, upper + lower, u"GetSpreadUp's bounds");
        upper = lower = -1.0;
        FCheck.Equal(rule, 0.0, table.GetSpreadDown(1.0, upper, lower), u"GetSpreadDown");
        FCheck.Equal(rule, 0.0, upper + lower, u"GetSpreadDown's bounds");
    }

    void CheckPrice(const TCustomSpreadTable& table, const TPriceRow& row) {
        const String where = u"the price " + ShowValue(row.Price);
        const Double up = table.MovePrice(row.Price, 1);
        const Double down = table.MovePrice(row.Price, -1);
        FCheck.Near(u"MovePrice by 1 gives the next price up", row.Up, up, where);
        FCheck.Near(u"MovePrice by -1 gives the next price down", row.Down, down, where);
        FCheck.True(u"MovePrice ends on a tick", IsOnTick(up) && IsOnTick(down), where);
        FCheck.Near(u"MovePrice up and down again comes back", row.Price, table.MovePrice(up, -1),
                    where);
        FCheck.Near(u"MovePrice down and up again comes back", row.Price, table.MovePrice(down, 1),
                    where);
        FCheck.Near(u"MovePrice by 0 stays", row.Price, table.MovePrice(row.Price, 0), where);

        Double upper = -1.0;
        Double lower = -1.0;
        FCheck.Near(u"GetSpreadUp gives the step that counts upwards", row.StepUp,
                    table.GetSpreadUp(row.Price, upper, lower), where);
        CheckBounds(row, upper, lower, up, where + u", upwards");
        upper = lower = -1.0;
        FCheck.Near(u"GetSpreadDown gives the step that counts downwards", row.StepDown,
                    table.GetSpreadDown(row.Price, upper, lower), where);
        CheckBounds(row, upper, lower, down, where + u", downwards");
    }

    // The band of a move holds the price itself and where the move ends.
    void CheckBounds(const TPriceRow& row, Double upper, Double lower, Double moved,
                     StringView where) {
        const auto isInside = [&](Double price) {
            return lower - TicksTolerance <= price && price <= upper + TicksTolerance;
        };
        FCheck.True(u"the bounds of the band hold the price and the next one",
                    isInside(row.Price) && isInside(moved), where);
    }

    void ManyStepsAtOnce(const TCustomSpreadTable& table) {
        for (const TPriceRow& row : Prices) {
            if (row.Price < 0.01 || row.Price > 199.0) continue; // no room for so many steps
            Double up = row.Price;
            Double down = row.Price;
            for (Integer step = 0; step < ManySteps; ++step) {
                up = table.MovePrice(up, 1);
                down = table.MovePrice(down, -1);
            }
            const StringView rule = u"MovePrice by many steps is that many single steps";
            const String where = u"the price " + ShowValue(row.Price);
            FCheck.Near(rule, up, table.MovePrice(row.Price, ManySteps), where);
            FCheck.Near(rule, down, table.MovePrice(row.Price, -ManySteps), where);
        }
    }

    TMarketDriver& FDriver;
    TChecker FCheck;
};

} // namespace

void CheckSpreadTables(TMarketDriver& driver, TContractReport& report) {
    TSpreadChecks(driver, report).CheckAll();
}

} // namespace quorin
