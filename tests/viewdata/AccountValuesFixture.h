#pragma once

#include "tests/viewdata/AccountFixture.h"

#include <stdexcept>

namespace quorin {

inline constexpr Integer Caption = AccountTreeColumn::Caption;
inline constexpr Integer Value = AccountTreeColumn::Value;

inline constexpr Integer Thrower = 9999;

// Fails on one attribute, as a descendant's figures may.
class TFailingInfo : public TCustomAccountInfoDataControl {
    QUORIN_CLASS(TFailingInfo, TCustomAccountInfoDataControl)
    using TCustomAccountInfoDataControl::TCustomAccountInfoDataControl;
    Variant GetAccountCurrencyData(TCustomAccountData* data, Integer attribute) override {
        if (attribute == Thrower) throw std::runtime_error("no figure");
        return Inherited::GetAccountCurrencyData(data, attribute);
    }
};

// The master M has the sub-accounts S1, S2 and S3, of which the last has no dollars. MC and S1C
// hold the China Connect data of M and S1.
class TAccountValuesFixture : public TAccountFixture<TFailingInfo> {
protected:
    TAccountValuesFixture() {
        struct TType {
            StringView Key;
            StringView Type;
        };
        for (const auto& [key, type] : std::initializer_list<TType>{{u"1601", u"amount"},
                                                                    {u"1602", u"Percent"},
                                                                    {u"1603", u"STRING"},
                                                                    {u"1604", u""},
                                                                    {u"1605", u"string"}}) {
            SetText(TestColumnTag, key, u"Custom", type);
        }
        Accounts().FeedAccount(
            u"M",
            {.Tag = u"Main", .Name = u"Chan", .Type = AccountType::Master, .IsAggregate = true});
        for (const StringView sub : {u"S1", u"S2", u"S3"}) {
            Accounts().FeedAccount(sub, {.MasterAccount = u"M"});
        }
        TBalanceFigures figures = Figures(1, 9.5, 1.25, 2000, 100, 50, 20);
        figures.Fields = Texts({u"17.5", u"n/a", u"1000", u"12.5", u"Ho", u"", u"12"});
        Accounts().FeedBalance(u"M", u"USD", figures);
        figures = Figures(10, 90, 10, 20, -30, 5, 10);
        figures.Fields = Texts({u"2", u"4", u"5", u"", u"Yu", u"", u"12"});
        Accounts().FeedBalance(u"S1", u"USD", figures);
        figures = Figures(100, 900, 100, 2, -80, 1, 0);
        figures.Fields = Texts({u"", u"", u"", u"", u"", u"", u"12"});
        Accounts().FeedBalance(u"S2", u"USD", figures);
        Accounts().FeedBalance(u"S3", u"HKD", Figures(1000, 1, 1, 1, -500, 1, 1));
        Accounts().FeedBalance(u"M", u"", {.Value604 = 800.0, .Value607 = 20.0});
        Deliver();
        View().SetAccount(u"M");
    }

    static TBalanceFigures Figures(Double unit, Double total, Double held, Double cash,
                                   Double surplus, Double a, Double b) {
        return {.Value155 = unit,
                .Value156 = 2 * unit,
                .Value185 = 3 * unit,
                .Value186 = 4 * unit,
                .Value445 = 5 * unit,
                .Value446 = 6 * unit,
                .Value604 = 7 * unit,
                .Value606 = 8 * unit,
                .Value607 = total,
                .Value990 = held,
                .Value991 = cash,
                .Value996 = surplus,
                .Value1205 = 12 * unit,
                .Value1502 = 13 * unit,
                .Value1503 = -14 * unit,
                .Value9018A = a,
                .Value9018B = b,
                .Value9028 = 16 * unit};
    }
    // Of the fields 777, 778 and 1601 to 1605.
    static TDictionary<Integer, String> Texts(std::initializer_list<StringView> texts) {
        TDictionary<Integer, String> fields;
        const Integer numbers[] = {777, 778, 1601, 1602, 1603, 1604, 1605};
        const Integer* number = numbers;
        for (const StringView text : texts) fields.Add(*number++, String(text));
        return fields;
    }
    TCustomAccountData* Record(StringView account, StringView currency) {
        return Accounts().GetAccount(account, false)->GetAccountData(currency);
    }
    String Raw(TCustomAccountData* data, Integer attribute) {
        return Kinded(View().Aggregated() ? View().GetAggregatedAccountCurrencyData(data, attribute)
                                          : View().GetAccountCurrencyData(data, attribute));
    }
    String Text(TCustomAccountData* data, Integer attribute, Boolean convert = false) {
        return View().GetAccountCurrencyDisplayData(data, attribute, convert);
    }
};

} // namespace quorin
