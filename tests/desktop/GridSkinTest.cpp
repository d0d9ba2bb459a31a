#include "terminal/desktop/DesktopSession.h"
#include "terminal/desktop/QtText.h"
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
    void HoldsRowsUnderThePointer();
    void GreysAFeedThatStopped();
    void TellsWhoCannotSeeIt();

private:
    // One delivery.
    void Feed(Integer row, Double price);
    void Point(QEvent::Type type);
    int Section(Integer attribute);

    std::unique_ptr<TDesktopSession> FSession;
    std::unique_ptr<TWatchPane> FPane;
};

void TGridSkinTest::init() {
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

void TGridSkinTest::Feed(Integer row, Double price) {
    TEmbeddedSubscribeAdapter& items = FSession->Services().Items();
    TEmbeddedSubItem& item = items.Item(FPane->Form().Symbol(row));
    item.SetField(Field::LastPrice, price);
    items.Touch(item);
    FSession->Services().Deliver();
}

void TGridSkinTest::Point(QEvent::Type type) {
    QEvent event(type);
    QApplication::sendEvent(FPane->Grid().viewport(), &event);
}

int TGridSkinTest::Section(Integer attribute) {
    for (int section = 0;; ++section) {
        if (FPane->Grid().Model().Column(section)->Tag() == attribute) return section;
    }
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
