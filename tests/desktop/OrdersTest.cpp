#include "terminal/desktop/CloseAllDialog.h"
#include "terminal/desktop/KeysDialog.h"
#include "terminal/desktop/MainWindow.h"
#include "terminal/desktop/OrdersPane.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/PositionPane.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/WatchPane.h"
#include "terminal/forms/OrderText.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/FieldNumbers.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>

#include <cmath>
#include <functional>
#include <memory>

namespace quorin {

namespace {

constexpr Integer BuyBest = 0;
constexpr Integer CloseAllRows = 3;
constexpr Integer CopyRow = 5; // of the position list
constexpr Integer Focused = 1; // row of the watch

} // namespace

// Orders as a person gives them: keys go in, and what the desk has comes out.
class TOrdersTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void SendsOneOrderHoweverLongAKeyIsHeld_data();
    void SendsOneOrderHoweverLongAKeyIsHeld();
    void SaysBothPricesWhenThePriceHasMoved();
    void RefusesARowThatHasBecomeAnother();
    void LeavesKeysToFields();
    void ClosesWhatIsTicked_data();
    void ClosesWhatIsTicked();
    void CopiesIntoTheTicket();
    void CancelsByKey();
    void ClosesAFormAfterItsQuestion();
    void ListsEveryKeyOnce();

private:
    std::size_t OrderCount() { return FSession->Services().Desk().Orders().size(); }
    const TDeskOrder& LastOrder() { return FSession->Services().Desk().Orders().back(); }
    void Ask(StringView key, bool isAsked);
    TPaneDock& DockOf(TPane& pane);
    // Brings the form to the front, with its grid focused.
    void Show(TPane& pane);
    // Runs when a box is open.
    void Meanwhile(const std::function<void(QDialog&)>& act);
    void Press(TPane& pane, Integer place, bool isRepeat = false);

    std::unique_ptr<TDesktopSession> FSession;
    TWorkspace FWorkspace;
    std::unique_ptr<TMainWindow> FWindow;
    TWatchPane* FWatch = nullptr;
    TPositionPane* FPositions = nullptr;
    TOrdersPane* FOrders = nullptr;
    int FBoxes = 0;
};

void TOrdersTest::init() {
    FWindow.reset(); // where the last case could not be begun
    FSession = std::make_unique<TDesktopSession>(TDesktopOptions(), QUORIN_DATA_DIR);
    FSession->Step();
    FWindow = std::make_unique<TMainWindow>(*FSession, TDesktopOptions(), FWorkspace);
    FWindow->show();
    FWatch = FWindow->Watch();
    FPositions = static_cast<TPositionPane*>(FWindow->Find(TPaneKind::Positions));
    FOrders = static_cast<TOrdersPane*>(FWindow->Find(TPaneKind::Orders));
    FWindow->Frame();
    FSession->Step();
    FPositions->Form().View().SetFocusedRow(0);
    FWatch->Form().View().SetFocusedRow(Focused);
    Show(*FWatch);
    FBoxes = 0;
}

void TOrdersTest::cleanup() {
    QTest::failOnWarning(QRegularExpression("registrations are left"));
    FWindow.reset();
    FSession.reset();
}

TPaneDock& TOrdersTest::DockOf(TPane& pane) {
    return *static_cast<TPaneDock*>(pane.parentWidget());
}

void TOrdersTest::Show(TPane& pane) {
    FWindow->activateWindow(); // no window manager gives it back after a box
    QVERIFY(QTest::qWaitForWindowActive(FWindow.get()));
    DockOf(pane).raise();
    QApplication::processEvents();
    FWindow->Frame(); // Qt would choose a row of its own for a list without one
    pane.ItemView()->setFocus();
    FWindow->Frame();
}

void TOrdersTest::Ask(StringView key, bool isAsked) {
    FSession->Services().Config().Set(DefaultConfigSection, key, isAsked ? u"Y" : u"N");
    FSession->Services().Config().Commit();
}

void TOrdersTest::Meanwhile(const std::function<void(QDialog&)>& act) {
    constexpr int wait = 10;
    QTimer::singleShot(wait, FWindow.get(), [this, act] {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (box == nullptr) return Meanwhile(act);
        ++FBoxes;
        act(*box);
    });
}

void TOrdersTest::Press(TPane& pane, Integer place, bool isRepeat) {
    qt_sendShortcutOverrideEvent(pane.ItemView(), 0, Qt::Key_1 + place, Qt::AltModifier, {},
                                 isRepeat);
}

void TOrdersTest::SendsOneOrderHoweverLongAKeyIsHeld_data() {
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("taken at once") << false;
    QTest::newRow("asked about") << true;
}

void TOrdersTest::SendsOneOrderHoweverLongAKeyIsHeld() {
    QFETCH(bool, isAsked);
    Ask(ConfigKey::ConfirmationPlaceOrd, isAsked);
    const std::size_t before = OrderCount();
    const String symbol = FWatch->Form().Symbol(Focused);
    if (isAsked) {
        Meanwhile([this, before](QDialog& box) {
            Press(*FWatch, BuyBest); // what reaches the list in spite of the box
            FWatch->Bar().Actions().Take(BuyBest, MarketAttribute::LastPrice);
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
            QApplication::sendEvent(box.focusWidget(), &held);
            QVERIFY(box.isVisible());
            QCOMPARE(OrderCount(), before);
            QTest::keyClick(&box, Qt::Key_Return);
        });
    }
    Press(*FWatch, BuyBest);
    for (int repeat = 0; repeat < 5; ++repeat) Press(*FWatch, BuyBest, /*isRepeat=*/true);
    QCOMPARE(FBoxes, isAsked ? 1 : 0);
    QCOMPARE(OrderCount(), before + 1);
    QCOMPARE(LastOrder().Values.Symbol, symbol);
    QCOMPARE(LastOrder().Values.BuySell, OrderSide::Buy);
}

void TOrdersTest::SaysBothPricesWhenThePriceHasMoved() {
    Ask(ConfigKey::ConfirmationPlaceOrd, true);
    const QString shown = FWatch->Bar().Button(BuyBest).text().section(u'\n', 1);
    QVERIFY(!shown.isEmpty());
    TEmbeddedSubItem& item = FSession->Services().Items().Item(FWatch->Form().Symbol(Focused));
    QString question;
    const auto note = [&question](QDialog& box) {
        question = static_cast<QMessageBox&>(box).text();
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    Meanwhile(note);
    Press(*FWatch, BuyBest);
    QCOMPARE(question.count(u'\n'), 0);
    QCOMPARE(question.count(shown), 1);
    const Double moved = 2.0 * item.GetFieldDouble(Field::BestAsk);
    Show(*FWatch);
    item.SetField(Field::BestAsk, moved);
    Meanwhile(note);
    Press(*FWatch, BuyBest);
    QCOMPARE(question.count(u'\n'), 1);
    QCOMPARE(question.count(shown), 1);
    QCOMPARE(question.count(ToQt(PriceText(moved, item.GetKey()))), 2); // moved to, and the order's
    QCOMPARE(FBoxes, 2);
}

void TOrdersTest::RefusesARowThatHasBecomeAnother() {
    Ask(ConfigKey::ConfirmationPlaceOrd, false);
    const QString seen = ToQt(FWatch->Form().Symbol(Focused));
    FWatch->Form().List().MoveRecord(Focused, Focused + 2);
    const QString now = ToQt(FWatch->Form().Symbol(FWatch->Form().View().FocusedRow()));
    QVERIFY(now != seen);
    const std::size_t before = OrderCount();
    Meanwhile([&](QDialog& box) {
        const QString text = static_cast<QMessageBox&>(box).text();
        QVERIFY(text.contains(seen) && text.contains(now));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Press(*FWatch, BuyBest);
    QCOMPARE(FBoxes, 1);
    QCOMPARE(OrderCount(), before);
    Show(*FWatch); // the person sees the row as it is now
    Press(*FWatch, BuyBest);
    QCOMPARE(OrderCount(), before + 1);
    QCOMPARE(ToQt(LastOrder().Values.Symbol), now);
}

void TOrdersTest::LeavesKeysToFields() {
    Ask(ConfigKey::ConfirmationPlaceOrd, false);
    QLineEdit field(FWatch);
    field.show();
    field.setFocus();
    const std::size_t before = OrderCount();
    Press(*FWatch, BuyBest);
    QTest::keyClicks(&field, "123");
    QCOMPARE(field.text(), "123");
    QCOMPARE(OrderCount(), before);
}

void TOrdersTest::ClosesWhatIsTicked_data() {
    QTest::addColumn<int>("tickedOff");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("all of them") << 0 << true;
    QTest::newRow("all but one") << 1 << true;
    QTest::newRow("cancelled") << 1 << false;
}

void TOrdersTest::ClosesWhatIsTicked() {
    QFETCH(int, tickedOff);
    QFETCH(bool, isAccepted);
    Ask(ConfigKey::ConfirmationClosePosition, true);
    Show(*FPositions);
    auto control = CreateComponent<TPositionControl>();
    control->SetAccount(FPositions->Form().Control().Account());
    TCloseAllForm list(std::move(control)); // ticks what can be closed
    int open = 0;
    for (Integer row = 0; row < list.RowCount(); ++row) open += list.CanTick(row) ? 1 : 0;
    QVERIFY(open > 1);
    QString left;
    Meanwhile([&](QDialog& box) {
        QTableView& table = static_cast<TCloseAllDialog&>(box).Table();
        QAbstractItemModel& rows = *table.model();
        QCOMPARE(rows.rowCount(), list.RowCount());
        for (int row = 0; row < rows.rowCount() && left.isEmpty() && tickedOff > 0; ++row) {
            table.setCurrentIndex(rows.index(row, 0));
            QTest::keyClick(&table, Qt::Key_Space);
            if (list.CanTick(row)) left = ToQt(list.Symbol(row));
        }
        QTest::keyClick(&box, isAccepted ? Qt::Key_Return : Qt::Key_Escape);
    });
    const std::size_t before = OrderCount();
    Press(*FPositions, CloseAllRows);
    QCOMPARE(FBoxes, 1);
    QCOMPARE(OrderCount() - before, static_cast<std::size_t>(isAccepted ? open - tickedOff : 0));
    for (std::size_t index = before; index < OrderCount(); ++index) {
        const TDeskOrder& order = FSession->Services().Desk().Orders()[index];
        QVERIFY(order.Values.IsMarket());
        QVERIFY(ToQt(order.Values.Symbol) != left);
    }
}

void TOrdersTest::CopiesIntoTheTicket() {
    TTicketForm& linked = FWindow->Ticket()->Form();
    TTicketForm& last = static_cast<TTicketPane&>(FWindow->Open(TPaneKind::Ticket)).Form();
    TPositionForm& positions = FPositions->Form();
    const String other = linked.Symbol();
    Show(*FPositions);
    FPositions->SetGroup(NoGroup);
    Press(*FPositions, CopyRow);
    QCOMPARE(last.Symbol(), positions.Symbol(0));
    QCOMPARE(last.Account(), positions.Control().Account());
    QCOMPARE(last.Quantity(),
             std::fabs(positions.Value(0, PositionAttribute::NetQuantity).ToDouble()));
    QCOMPARE(linked.Symbol(), other);
    FPositions->SetGroup(1);
    positions.View().SetFocusedRow(1);
    FWindow->Frame();
    Press(*FPositions, CopyRow);
    QCOMPARE(linked.Symbol(), positions.Symbol(1));
    QCOMPARE(last.Symbol(), positions.Symbol(0));
}

void TOrdersTest::CancelsByKey() {
    Ask(ConfigKey::ConfirmationPlaceOrd, true);
    TOrderDesk& desk = FSession->Services().Desk();
    for (const Double price : {100.0, 101.0}) { // of symbols that cost more
        const TOrderReason reason = desk.Take({.Account = String(FirstAccount),
                                               .Symbol = u"00700",
                                               .Quantity = 100.0,
                                               .Price = price});
        QCOMPARE(static_cast<int>(reason), static_cast<int>(TOrderReason::None));
    }
    FSession->Step();
    const int working = FOrders->Form().RowCount();
    FOrders->Form().View().SetFocusedRow(working - 1);
    Show(*FOrders);
    Meanwhile([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
    QTest::keyClick(&FOrders->Grid(), Qt::Key_Delete);
    QCOMPARE(FBoxes, 1);
    QCOMPARE(static_cast<int>(LastOrder().State), static_cast<int>(TOrderState::Cancelled));
    FSession->Step();
    FWindow->Frame();
    QCOMPARE(FOrders->Form().RowCount(), working - 1);
    FOrders->SetChoice(u"all");
    QVERIFY(FOrders->Form().RowCount() >= working);
}

void TOrdersTest::ClosesAFormAfterItsQuestion() {
    Ask(ConfigKey::ConfirmationPlaceOrd, true);
    const std::size_t before = OrderCount();
    const auto closeMeanwhile = [this] {
        FWindow->Frame();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    Meanwhile([&](QDialog& box) {
        DockOf(*FWatch).close();
        FSession->Step();
        closeMeanwhile();
        QVERIFY(FWindow->Watch() != nullptr);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Press(*FWatch, BuyBest);
    QCOMPARE(FBoxes, 1);
    QCOMPARE(OrderCount(), before + 1);
    closeMeanwhile();
    QVERIFY(FWindow->Watch() == nullptr);
}

void TOrdersTest::ListsEveryKeyOnce() {
    for (const TPaneKindInfo& info : PaneKinds()) FWindow->Open(info.Kind);
    FWindow->Frame();
    const QList<TKeyEntry> entries = KeysOf(*FWindow);
    QVERIFY(entries.front().Form.isEmpty());
    QSet<QString> used;
    for (const TKeyEntry& entry : entries) {
        for (const QString& key : entry.Keys) {
            QVERIFY2(!used.contains(entry.Form + key), qPrintable(entry.Action));
            QVERIFY2(!used.contains(key), qPrintable(entry.Action)); // the window's come first
            used.insert(entry.Form + key);
        }
    }
    for (const char* key : {"F1", "OrdersDel", "PositionsAlt+4", "Market watchAlt+1"}) {
        QVERIFY2(used.contains(key), key);
    }
    Meanwhile([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
    QTest::keyClick(FWindow.get(), Qt::Key_F1);
    QCOMPARE(FBoxes, 1);
}

} // namespace quorin

QTEST_MAIN(quorin::TOrdersTest)
#include "OrdersTest.moc"
