#include "terminal/desktop/AccountTreePane.h"
#include "terminal/desktop/AuditPane.h"
#include "terminal/desktop/CashTreePane.h"
#include "terminal/desktop/MessagesPane.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/SettingsPane.h"
#include "terminal/desktop/TradesPane.h"
#include "terminal/desktop/UnderlyerPane.h"
#include "terminal/forms/TradeSides.h"
#include "viewdata/services/ConfigKeys.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace quorin {

// The forms beside watch, ticket and positions, each as its own window.
class TPanesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void OpensAndClosesInAnyState_data();
    void OpensAndClosesInAnyState();
    void ChoosesAnUnderlyerFromTheTop();
    void ChoosesAccountsAndSums();
    void KeepsTradesThatTheDetectorForgets();
    void AppliesSettingsAtOnce();
    void LeavesATextAloneThatIsTyped();
    void ListsMessagesAndAudit();

private:
    TEmbeddedServices& Services() { return FSession->Services(); }
    void Step(int steps = 1) {
        for (; steps > 0; --steps) FSession->Step();
    }
    static void Pick(TCodeBox& box, const QString& code) {
        const int index = box.findData(code);
        QVERIFY2(index >= 0, qPrintable(code));
        box.setCurrentIndex(index);
        emit box.activated(index);
    }

    std::unique_ptr<TDesktopSession> FSession;
};

void TPanesTest::init() {
    FSession = std::make_unique<TDesktopSession>(TDesktopOptions{}, QUORIN_DATA_DIR);
    Step();
}

void TPanesTest::cleanup() {
    QTest::failOnWarning(QRegularExpression("registrations are left"));
    FSession.reset();
}

void TPanesTest::OpensAndClosesInAnyState_data() {
    QTest::addColumn<int>("kind");
    for (const TPaneKindInfo& info : PaneKinds()) {
        QTest::newRow(info.Code) << static_cast<int>(info.Kind);
    }
}

void TPanesTest::OpensAndClosesInAnyState() {
    QFETCH(int, kind);
    Services().Market().SetMarketDataReady(false);
    Services().Accounts().SetReady(false);
    const std::unique_ptr<TPane> early(MakePane(static_cast<TPaneKind>(kind), *FSession));
    std::unique_ptr<TPane> closed(MakePane(static_cast<TPaneKind>(kind), *FSession));
    early->SetGroup(1);
    early->TakeAccount(u"no such account");
    early->TakeSymbol(u"no such symbol");
    const String choice = early->Choice();
    early->SetChoice(u"|nonsense|");
    early->SetChoice(choice);
    closed.reset();
    Services().Market().SetMarketDataReady(true);
    Services().Accounts().SetReady(true);
    early->show();
    for (const TAppLanguage language : {TAppLanguage::TraditionalChinese,
                                        TAppLanguage::SimplifiedChinese, TAppLanguage::English}) {
        Services().Language().SetLanguage(language);
        Step(2);
        early->Follow();
        QVERIFY(!early->Caption().isEmpty());
        for (const QWidget* widget : early->findChildren<QWidget*>()) {
            const bool isOwn = widget->focusPolicy() != Qt::NoFocus && widget->isVisible() &&
                               (qobject_cast<const QAbstractItemView*>(widget) == nullptr ||
                                widget == early->ItemView()) &&
                               widget->focusProxy() == nullptr &&
                               !widget->objectName().startsWith("qt_");
            if (!isOwn) continue;
            const auto* seen = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
            QVERIFY2(!seen->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
        }
    }
}

void TPanesTest::ChoosesAnUnderlyerFromTheTop() {
    TUnderlyerPane pane(FSession->Host().Orders());
    TUnderlyerForm& form = pane.Form();
    pane.Follow();
    QVERIFY(form.RowCount() > 0);
    QCOMPARE(form.Exchange(), String(u"HKFE")); // the first with futures
    QVERIFY(pane.MonthBox().isHidden());

    Pick(pane.SeriesBox(), "HKFE.HSI");
    Pick(pane.ModeBox(), QString::number(static_cast<int>(udmOptions)));
    QVERIFY(!pane.MonthBox().isHidden());
    const QString month = pane.MonthBox().itemData(1).toString();
    Pick(pane.MonthBox(), month);
    const Integer all = form.RowCount();
    Pick(pane.CallPutBox(), QString::number(static_cast<int>(otPut)));
    QVERIFY(form.RowCount() > 0 && form.RowCount() < all);
    for (Integer row = 0; row < form.RowCount(); ++row) {
        const auto* data = Services().Market().FindMarketData(form.Symbol(row));
        QCOMPARE(data->GetProductType(), ProductType::Options);
        QCOMPARE(ToQt(data->GetExpiryMonth()), month);
    }
    const String choice = pane.Choice();
    const String symbol = form.Symbol(0);

    TUnderlyerPane again(FSession->Host().Orders());
    again.SetChoice(choice);
    again.Follow();
    QCOMPARE(again.Form().Symbol(0), symbol);
    QCOMPARE(again.MonthBox().currentText(), month);
    again.SetChoice(u"HKFE|HKFE.HSI|9||0|");
    QCOMPARE(again.Choice(), choice);
    again.TakeSymbol(u"HSIZ6");
    again.Follow();
    QCOMPARE(again.Form().Symbol(again.Form().View().FocusedRow()), String(u"HSIZ6"));
    QVERIFY(again.MonthBox().isHidden());
}

void TPanesTest::ChoosesAccountsAndSums() {
    TAccountTreePane pane(u"M88001");
    pane.show();
    pane.Follow();
    QCheckBox& sums = pane.Bar().SumBox();
    const auto total = [&pane] { return pane.Shown()->CellText(0, 1); };
    const String own = total();
    QVERIFY(sums.isVisible() && !sums.isChecked());
    sums.click();
    pane.Follow();
    QVERIFY(total() != own);
    QCOMPARE(pane.Choice(), String(u"M88001+"));
    sums.click();
    pane.Follow();
    QCOMPARE(total(), own);
    Services().Accounts().SetReady(false);
    Services().Accounts().SetReady(true);
    Step();
    QVERIFY(!static_cast<TTreeForm*>(pane.Shown())->Aggregated()); // and stays apart

    Services().Positions().FeedPosition(u"M88001", u"UNPRICED", {.Quantity = 100.0});
    static_cast<TTreeForm*>(pane.Shown())->ForgetPartial();
    const auto said = [&pane](int column, int role) {
        return pane.Tree().model()->index(1, column).data(role); // the market value
    };
    QVERIFY(said(1, TViewModel::PartialRole).toBool() && !said(0, TViewModel::PartialRole).toBool());
    QVERIFY(said(1, Qt::ToolTipRole).toString().contains("UNPRICED"));
    QVERIFY(said(1, Qt::AccessibleDescriptionRole).toString().contains("UNPRICED"));

    const int rows = pane.Tree().model()->rowCount();
    auto& tree = static_cast<TTreeForm*>(pane.Shown())->View();
    Integer parent = 0;
    while (!tree.Row(parent).HasChildren) ++parent;
    const QPoint sign = pane.Tree().SignRect(parent).center();
    QTest::mouseClick(pane.Tree().viewport(), Qt::LeftButton, {}, sign);
    QVERIFY(pane.Tree().model()->rowCount() < rows);
    pane.Tree().setCurrentIndex(pane.Tree().model()->index(parent, 1));
    QTest::keyClick(&pane.Tree(), Qt::Key_Right);
    QCOMPARE(pane.Tree().model()->rowCount(), rows);
    QTest::keyClick(&pane.Tree(), Qt::Key_Left);
    QVERIFY(pane.Tree().model()->rowCount() < rows);
    const int caption = pane.Tree().columnViewportPosition(1) + 20;
    QTest::mouseClick(pane.Tree().horizontalHeader()->viewport(), Qt::LeftButton, {}, {caption, 5});
    QCOMPARE(tree.GetSortedColumn(0), tree.GetColumn(1));
    QCOMPARE(pane.Tree().horizontalHeader()->sortIndicatorSection(), 1);

    TCashTreePane cash({});
    cash.Follow();
    const int all = cash.Tree().model()->rowCount();
    QCOMPARE(cash.Choice(), String(u"*"));
    Pick(cash.Bar().Box(), "M88001");
    QVERIFY(cash.Tree().model()->rowCount() < all);
    cash.SetChoice(u"*");
    cash.Follow();
    QCOMPARE(cash.Tree().model()->rowCount(), all);
    QCOMPARE(cash.Bar().Box().currentIndex(), 0);
}

void TPanesTest::KeepsTradesThatTheDetectorForgets() {
    const String symbol = u"00700";
    TTradesPane pane;
    pane.TakeSymbol(symbol);
    TTradeListForm& form = pane.Form();
    QCOMPARE(form.Symbol(), symbol);
    Integer atStart = form.Trades().GetCount();
    TTradeSides sides; // hands over each trade once, delivery by delivery
    sides.Follow(symbol);
    sides.TakeNew([](StringView, const TMarketDataTrade&) {});
    std::vector<QString> prices;
    for (int step = 0; step < 1500; ++step) {
        Step();
        sides.TakeNew([&prices](StringView, const TMarketDataTrade& trade) {
            prices.push_back(ToQt(trade.Time() + u" " + trade.Qty()).remove(','));
        });
    }
    pane.Follow(); // the only frame
    QVERIFY(prices.size() > 5);
    const auto wanted =
        std::min<Integer>(atStart + static_cast<Integer>(prices.size()), TTradeControl::MostTrades);
    QCOMPARE(form.RowCount(), wanted);
    int marked = 0;
    for (Integer row = 0; row < std::min<Integer>(wanted, static_cast<Integer>(prices.size()));
         ++row) {
        const QString shown = ToQt(form.Text(row, TradeAttribute::Time) + u" " +
                                   form.Text(row, TradeAttribute::Quantity))
                                  .remove(',');
        QCOMPARE(shown, prices[prices.size() - 1 - static_cast<std::size_t>(row)]);
        const auto mark = form.Mark(row, TradeAttribute::Side);
        const QString side = ToQt(form.Text(row, TradeAttribute::Side));
        QCOMPARE(side, !mark.has_value() ? "-" : *mark == pcsUp ? "At ask" : "At bid");
        if (mark.has_value()) ++marked;
    }
    QVERIFY(marked > 0);
    pane.TakeSymbol(u"00005");
    pane.Follow();
    QVERIFY(form.RowCount() <= 5);
}

void TPanesTest::AppliesSettingsAtOnce() {
    TEmbeddedConfigManager& config = Services().Config();
    const String section = config.GetCurrentSection();
    TSettingsPane pane(config);
    auto& confirm = *static_cast<QCheckBox*>(pane.Editor(ConfigKey::ConfirmationPlaceOrd));
    auto& wheel = *static_cast<QCheckBox*>(pane.Editor(ConfigKey::EnableMouseWheel));
    auto& decimals = *static_cast<QSpinBox*>(pane.Editor(ConfigKey::AmountPrecision));
    auto& average = *static_cast<QComboBox*>(pane.Editor(ConfigKey::PVAvgPriceMode));
    QVERIFY(confirm.isChecked() && wheel.isChecked());
    confirm.click();
    wheel.click();
    decimals.setValue(4);
    average.setCurrentIndex(2);
    emit average.activated(2);
    QVERIFY(!config.ReadBool(section, ConfigKey::ConfirmationPlaceOrd));
    QCOMPARE(config.ReadString(section, ConfigKey::EnableMouseWheel), String(u"N"));
    QCOMPARE(config.ReadInteger(section, ConfigKey::AmountPrecision), 4);
    QCOMPARE(config.ReadInteger(section, ConfigKey::PVAvgPriceMode), 2);

    config.Set(section, ConfigKey::ConfirmationPlaceOrd, u"0"); // somebody else
    config.Set(section, ConfigKey::EnableMouseWheel, u"yes");
    config.Commit();
    pane.Follow();
    QVERIFY(!confirm.isChecked() && wheel.isChecked());
    pane.ResetButton(ConfigKey::AmountPrecision)->click();
    pane.Follow();
    QCOMPARE(decimals.text(), "Default");
    pane.ResetAllButton().click();
    pane.Follow();
    QCOMPARE(average.currentIndex(), 0);
    QCOMPARE(config.ReadString(section, ConfigKey::PVAvgPriceMode), String());
    // What a session begins with asks about orders and keeps the groups apart.
    QVERIFY(confirm.isChecked());
    QCOMPARE(config.ReadString(TradePlatformSection, ConfigKey::DefaultGroupDataMode),
             String(u"0"));

    const TSetting& amount = *std::find_if(Settings().begin(), Settings().end(), [](auto& setting) {
        return setting.Key == ConfigKey::AmountPrecision;
    });
    for (const StringView text : {u"9", u"-1", u"many"}) {
        QVERIFY(!ChangeSetting(config, amount, text));
    }
    for (const TSetting& setting : Settings()) {
        QVERIFY2(!SettingCaption(setting).empty() && !SettingHint(setting).empty(),
                 qPrintable(ToQt(setting.Key)));
    }
}

void TPanesTest::LeavesATextAloneThatIsTyped() {
    TSettingsPane pane(Services().Config());
    pane.show();
    pane.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&pane));
    auto& markets = *static_cast<QLineEdit*>(pane.Editor(ConfigKey::T1Market));
    markets.setFocus();
    QTest::keyClicks(&markets, "SSE,SZ");
    Services().Language().SetLanguage(TAppLanguage::SimplifiedChinese);
    Services().Config().Set(Services().Config().GetCurrentSection(), ConfigKey::T1Market, u"SEHK");
    Services().Config().Commit();
    pane.Follow();
    QCOMPARE(markets.text(), "SSE,SZ");
    QTest::keyClicks(&markets, "SE");
    QTest::keyClick(&markets, Qt::Key_Return);
    QCOMPARE(Services().Config().ReadString(Services().Config().GetCurrentSection(),
                                            ConfigKey::T1Market),
             String(u"SSE,SZSE"));
}

void TPanesTest::ListsMessagesAndAudit() {
    TMessagesPane messages(FSession->Host().Messages());
    Services().Log().WriteLog(u"first\nsecond", 3);
    messages.Follow();
    TMessageListForm& list = messages.Form();
    QCOMPARE(list.RowCount(), 1);
    QCOMPARE(list.Text(0, MessageAttribute::Text), String(u"first; second"));
    QCOMPARE(list.Value(0, MessageAttribute::Level), Variant(3));
    for (Integer line = 1; line <= TMessageLog::MostEntries; ++line) {
        Services().Log().WriteLog(u"more", 1);
    }
    messages.Follow();
    QCOMPARE(list.RowCount(), TMessageLog::MostEntries);
    QCOMPARE(list.Value(0, MessageAttribute::Number), Variant(Int64{2})); // 1 was dropped

    TAuditPane audit(Services().Desk());
    QCOMPARE(audit.Form().RowCount(), 0);
    TOrderValues order{.Account = u"M88001", .Symbol = u"00005", .Quantity = 400.0};
    order.Flags = OrderFlag::Market;
    Services().Desk().Take(order);
    order.Symbol = u"no such";
    Services().Desk().Take(order);
    Step(2);
    audit.Follow();
    TAuditForm& form = audit.Form();
    const Integer last = form.RowCount() - 1;
    QVERIFY(last >= 1);
    QCOMPARE(form.Symbol(0), String(u"00005"));
    QCOMPARE(form.Value(0, AuditAttribute::Quantity), Variant(400.0));
    QCOMPARE(form.Text(0, AuditAttribute::Price), String(u"market"));
    QTemporaryDir folder;
    QVERIFY(audit.SaveAs(folder.filePath("audit.csv").toStdString()));
    QFile saved(folder.filePath("audit.csv"));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll().count('\n'), last + 2); // and the names of the columns
    QVERIFY(!audit.SaveAs(folder.filePath("none/audit.csv").toStdString()));
}

} // namespace quorin

QTEST_MAIN(quorin::TPanesTest)
#include "PanesTest.moc"
