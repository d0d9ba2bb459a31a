#include "terminal/desktop/DesktopSession.h"
#include "terminal/desktop/PositionPane.h"
#include "terminal/desktop/PositionViewPane.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"
#include "terminal/desktop/WatchPane.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/FieldNumbers.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QTest>

#include <memory>

namespace quorin {

// How a list looks while its feed moves, rests or stops.
class TGridSkinTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void FlashesTheLargestMoveSinceThePaint_data();
    void FlashesTheLargestMoveSinceThePaint();
    void FlashesWhatAPriceDrives_data();
    void FlashesWhatAPriceDrives();
    void ComparesWithTheSameRowAlone();
    void WritesMovesInColourWhereItCanBeRead();
    void HoldsRowsUnderThePointer();
    void GreysAFeedThatStopped();
    void TellsWhoCannotSeeIt();

private:
    // One delivery.
    void Feed(Integer row, Double price) { Feed(FPane->Form().Symbol(row), price); }
    void Feed(StringView symbol, Double price);
    void Point(QEvent::Type type);
    int Section(Integer attribute) { return Section(FPane->Grid(), attribute); }
    static int Section(TGridSkin& grid, Integer attribute);
    // The state of a cell's flash; -1 without one.
    static int Flash(TGridSkin& grid, Integer row, Integer attribute);

    std::unique_ptr<TDesktopSession> FSession;
    std::unique_ptr<TWatchPane> FPane;
};

void TGridSkinTest::init() {
    ApplyTheme(*qApp, TTheme::Light);
    FSession = std::make_unique<TDesktopSession>(TDesktopOptions(), QUORIN_DATA_DIR);
    FPane = std::make_unique<TWatchPane>(FSession->Exchange(), FSession->Host().Orders());
    FPane->resize(1000, 500);
    FPane->show();
    QVERIFY(QTest::qWaitForWindowExposed(FPane.get()));
    FPane->Follow();
    for (Integer row = 0; row < 10; ++row) Feed(row, 50.0 - row);
    FPane->Follow();
}

void TGridSkinTest::cleanup() {
    QTest::failOnWarning(QRegularExpression("registrations are left"));
    FPane.reset();
    FSession.reset();
}

void TGridSkinTest::Feed(StringView symbol, Double price) {
    TEmbeddedSubscribeAdapter& items = FSession->Services().Items();
    TEmbeddedSubItem& item = items.Item(symbol);
    item.SetField(Field::LastPrice, price);
    items.Touch(item);
    FSession->Services().Deliver();
}

void TGridSkinTest::Point(QEvent::Type type) {
    QEvent event(type);
    QApplication::sendEvent(FPane->Grid().viewport(), &event);
}

int TGridSkinTest::Section(TGridSkin& grid, Integer attribute) {
    for (int section = 0;; ++section) {
        if (grid.Model().Column(section)->Tag() == attribute) return section;
    }
}

int TGridSkinTest::Flash(TGridSkin& grid, Integer row, Integer attribute) {
    const QVariant flash =
        grid.Model().index(row, Section(grid, attribute)).data(TViewModel::FlashRole);
    return flash.isValid() ? flash.toInt() : -1;
}

void TGridSkinTest::FlashesTheLargestMoveSinceThePaint_data() {
    QTest::addColumn<QList<double>>("prices"); // 50.0 was painted
    QTest::addColumn<int>("state");
    QTest::newRow("up") << QList<double>{51.0} << static_cast<int>(pcsUp);
    QTest::newRow("down") << QList<double>{49.0} << static_cast<int>(pcsDown);
    QTest::newRow("a fall that was taken back")
        << QList<double>{50.5, 47.0, 50.0} << static_cast<int>(pcsDown);
    QTest::newRow("a rise that ends below") << QList<double>{53.0, 49.5} << static_cast<int>(pcsUp);
    QTest::newRow("the same again") << QList<double>{50.0} << -1;
}

void TGridSkinTest::FlashesTheLargestMoveSinceThePaint() {
    QFETCH(QList<double>, prices);
    TViewModel& model = FPane->Grid().Model();
    model.Flashes() = TCellFlashes(); // of the prices before
    for (const double price : prices) Feed(0, price);
    FPane->Follow();
    const QModelIndex cell = model.index(0, Section(MarketAttribute::LastPrice));
    const QVariant flash = cell.data(TViewModel::FlashRole);
    QTEST(flash.isValid() ? flash.toInt() : -1, "state");
    QVERIFY(!model.index(1, cell.column()).data(TViewModel::FlashRole).isValid());
}

void TGridSkinTest::FlashesWhatAPriceDrives_data() {
    QTest::addColumn<QString>("choice"); // of the position view; empty for the position list
    QTest::addColumn<double>("change");
    QTest::addColumn<int>("state");
    for (const char* choice : {"", "M88001", "M88001+"}) {
        QTest::addRow("up '%s'", choice) << choice << 1.0 << static_cast<int>(pcsUp);
        QTest::addRow("down '%s'", choice) << choice << -1.0 << static_cast<int>(pcsDown);
        QTest::addRow("the same '%s'", choice) << choice << 0.0 << -1;
    }
}

void TGridSkinTest::FlashesWhatAPriceDrives() {
    QFETCH(QString, choice);
    QFETCH(double, change);
    QFETCH(int, state);
    std::unique_ptr<TActionPane> pane;
    if (choice.isEmpty()) {
        pane = std::make_unique<TPositionPane>(FSession->Host().Orders());
    } else {
        pane = std::make_unique<TPositionViewPane>(u"M88001", FSession->Host().Orders());
        pane->SetChoice(FromQt(choice));
    }
    pane->resize(1400, 500);
    pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(pane.get()));
    TGridSkin& grid = pane->Grid();
    auto& form = static_cast<TListForm&>(*pane->Shown());
    QVERIFY(form.RowCount() > 1);
    const String symbol = form.Symbol(0);
    Feed(symbol, 50.0);
    pane->Follow();
    grid.Model().Flashes() = TCellFlashes(); // of what came before
    Feed(symbol, 50.0);
    pane->Follow();
    Feed(symbol, 50.0 + change);
    pane->Follow();
    QCOMPARE(Flash(grid, 0, PositionAttribute::LastPrice), state);
    QCOMPARE(Flash(grid, 0, PositionAttribute::SymbolCode), -1);
    QCOMPARE(Flash(grid, 1, PositionAttribute::LastPrice), -1);
    const bool isLong = form.Value(0, PositionAttribute::MarketValue).ToDouble() > 0.0;
    const int against = static_cast<int>(state == static_cast<int>(pcsUp) ? pcsDown : pcsUp);
    QCOMPARE(Flash(grid, 0, PositionAttribute::MarketValue),
             isLong || state == -1 ? state : against);
    const QModelIndex cell = grid.Model().index(0, Section(grid, PositionAttribute::LastPrice));
    const QString told = cell.data(Qt::AccessibleTextRole).toString();
    QCOMPARE(told.endsWith(" up") || told.endsWith(" down"), state != -1);
}

void TGridSkinTest::ComparesWithTheSameRowAlone() {
    constexpr std::size_t here = 1;
    constexpr std::size_t elsewhere = 2;
    TCellFlashes flashes;
    const auto draw = [&flashes](std::size_t identity, double number) {
        flashes.BeginFrame();
        flashes.Compare(0, 3, identity, number);
        return flashes.Find(0, 3) != nullptr;
    };
    QVERIFY(!draw(here, 1.0));      // the first time
    QVERIFY(!draw(elsewhere, 2.0)); // the rows have moved
    QVERIFY(!draw(here, 3.0));      // and back
    flashes.BeginFrame();
    QVERIFY(!draw(here, 4.0)); // was off the screen meanwhile
    QVERIFY(draw(here, 3.0));
    QCOMPARE(flashes.Find(0, 3)->State, pcsDown);
}

void TGridSkinTest::WritesMovesInColourWhereItCanBeRead() {
    TGridSkin& grid = FPane->Grid();
    Feed(0, 51.0);
    FPane->Follow();
    const auto isColoured = [&grid, this] {
        const QModelIndex cell = grid.model()->index(0, Section(MarketAttribute::LastPrice));
        const QImage image = grid.viewport()->grab(grid.visualRect(cell)).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == MoveColor(pcsUp)) return true;
            }
        }
        return false;
    };
    QVERIFY(!isColoured()); // flashes
    grid.Model().Flashes() = TCellFlashes();
    QVERIFY(isColoured());
    grid.selectRow(0);
    QVERIFY(!isColoured());
}

void TGridSkinTest::HoldsRowsUnderThePointer() {
    TcxViewColumn& last = *FPane->Grid().Model().Column(Section(MarketAttribute::LastPrice));
    last.SetSortOrder(soDescending);
    FPane->Follow();
    const String before = FPane->Form().Symbol(4);
    Point(QEvent::Enter);
    Feed(4, 999.0);
    FPane->Follow();
    QCOMPARE(FPane->Form().Symbol(4), before);
    QVERIFY(
        FPane->Grid().Model().index(4, last.VisibleIndex()).data().toString().startsWith("999"));
    QLabel* corner = nullptr;
    for (QLabel* label : FPane->Grid().viewport()->findChildren<QLabel*>()) {
        if (label->isVisible()) corner = label;
    }
    QVERIFY(corner != nullptr && corner->text().contains(u'1'));
    Point(QEvent::Leave);
    FPane->Follow();
    QCOMPARE(FPane->Form().Symbol(0), before);
    QVERIFY(!corner->isVisible());
}

void TGridSkinTest::GreysAFeedThatStopped() {
    const QModelIndex cell = FPane->Grid().Model().index(0, 0);
    FPane->Grid().SetFeedAge(1.0, "09:30:00");
    QVERIFY(!cell.data(Qt::ToolTipRole).isValid());
    FPane->Grid().SetFeedAge(60.0, "09:30:00");
    QVERIFY(cell.data(Qt::ToolTipRole).toString().contains("09:30:00"));
    QVERIFY(cell.data(Qt::AccessibleDescriptionRole).toString().contains("09:30:00"));
    FPane->Grid().SetFeedAge(0.0, {});
    QVERIFY(!cell.data(Qt::ToolTipRole).isValid());
}

void TGridSkinTest::TellsWhoCannotSeeIt() {
    QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&FPane->Grid());
    QVERIFY(grid != nullptr && grid->tableInterface() != nullptr);
    QCOMPARE(grid->role(), QAccessible::Table);
    QVERIFY(!grid->text(QAccessible::Name).isEmpty());
    QCOMPARE(grid->tableInterface()->rowCount(), FPane->Form().RowCount());
    QAccessibleInterface* cell = grid->tableInterface()->cellAt(0, 0);
    QCOMPARE(cell->text(QAccessible::Name), ToQt(FPane->Form().Symbol(0)));
    Feed(0, 51.0);
    FPane->Follow();
    cell = grid->tableInterface()->cellAt(0, Section(MarketAttribute::LastPrice));
    QVERIFY(cell->text(QAccessible::Name).startsWith("51."));
    QVERIFY(cell->text(QAccessible::Name).endsWith(" up"));
    for (QWidget* widget : FPane->findChildren<QWidget*>()) {
        const bool takesFocus = (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (!takesFocus || !widget->isVisible()) continue;
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(!told->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
    }
}

} // namespace quorin

QTEST_MAIN(quorin::TGridSkinTest)
#include "GridSkinTest.moc"
