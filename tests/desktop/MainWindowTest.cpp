#include "terminal/desktop/MainWindow.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/WatchPane.h"

#include <QApplication>
#include <QHeaderView>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace quorin {

// Forms that come and go, are linked, change language and are there again at the next start.
class TMainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void LinksFormsOfAGroup();
    void SwitchesLanguageInMidEdit();
    void FindsFormsAndLayoutsAgain();
    void KeepsTheOrderOfFavourites();
    void SharesAWorkspace();
    void TakesWhatItCanOfAWorkspace_data();
    void TakesWhatItCanOfAWorkspace();
    void ClosesAnyFormAtAnyTime();

private:
    void Start();
    void Stop(bool stores);
    QString File() const { return FFolder->filePath("terminal.json"); }

    TDesktopOptions FOptions;
    std::unique_ptr<QTemporaryDir> FFolder;
    std::unique_ptr<TWorkspace> FWorkspace;
    std::unique_ptr<TDesktopSession> FSession;
    std::unique_ptr<TMainWindow> FWindow;
};

void TMainWindowTest::init() {
    FFolder = std::make_unique<QTemporaryDir>();
    FOptions = {};
    Start();
}

void TMainWindowTest::cleanup() {
    Stop(false);
}

void TMainWindowTest::Start() {
    FWorkspace = std::make_unique<TWorkspace>(File());
    FSession = std::make_unique<TDesktopSession>(FOptions, QUORIN_DATA_DIR);
    FSession->Step();
    FWindow = std::make_unique<TMainWindow>(*FSession, FOptions, *FWorkspace);
    FWindow->show();
    FWindow->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(FWindow.get()));
    FWindow->Frame();
}

void TMainWindowTest::Stop(bool stores) {
    if (stores) FWindow->Store();
    QTest::failOnWarning(QRegularExpression("registrations are left"));
    FWindow.reset();
    FSession.reset();
}

void TMainWindowTest::LinksFormsOfAGroup() {
    TWatchPane& watch = *FWindow->Watch();
    TTicketPane& first = *FWindow->Ticket();
    auto& second = static_cast<TTicketPane&>(FWindow->Open(TPaneKind::Ticket));
    second.SetGroup(2);
    second.TakeSymbol(u"00939");
    QCOMPARE(first.Form().Symbol(), watch.Form().Symbol(0)); // group 1 has not heard of it

    QApplication::processEvents();
    const QPoint row = watch.Grid().visualRect(watch.Grid().model()->index(3, 0)).center();
    QTest::mouseClick(watch.Grid().viewport(), Qt::LeftButton, {}, row);
    QCOMPARE(first.Form().Symbol(), watch.Form().Symbol(3));
    QCOMPARE(second.Form().Symbol(), String(u"00939"));
    second.SetGroup(1);
    QCOMPARE(second.Form().Symbol(), watch.Form().Symbol(3));
}

void TMainWindowTest::SwitchesLanguageInMidEdit() {
    TGridSkin& grid = FWindow->Watch()->Grid();
    TTicketPane& ticket = *FWindow->Ticket();
    QApplication::processEvents();
    grid.verticalScrollBar()->setValue(4);
    grid.setCurrentIndex(grid.model()->index(6, 0));
    FWindow->Frame();
    const QString english = ticket.FieldSkin(TTicketField::Symbol).text();
    TEditSkin& price = ticket.FieldSkin(TTicketField::Price);
    price.setFocus();
    price.selectAll();
    QTest::keyClicks(&price, "99.");
    FWindow->SwitchLanguage(TAppLanguage::TraditionalChinese);
    QApplication::processEvents();

    QCOMPARE(price.text(), QStringLiteral("99."));
    QVERIFY(price.hasFocus());
    QCOMPARE(grid.verticalScrollBar()->value(), 4);
    QCOMPARE(grid.currentIndex().row(), 6);
    QCOMPARE(grid.model()->headerData(0, Qt::Horizontal).toString(),
             QStringLiteral("\u4EE3\u865F")); // symbol
    QVERIFY(ticket.FieldSkin(TTicketField::Symbol).text() != english);
    QVERIFY(FWindow->menuBar()->actions().front()->text().contains(QStringLiteral("\u8868\u55AE")));
}

void TMainWindowTest::FindsFormsAndLayoutsAgain() {
    auto& watch = static_cast<TWatchPane&>(FWindow->Open(TPaneKind::Watch));
    watch.SetGroup(2);
    watch.SetChoice(FavoriteExchange);
    watch.Grid().setColumnWidth(1, 222);
    QTest::mouseClick(watch.Grid().horizontalHeader()->viewport(), Qt::LeftButton, {},
                      QPoint(watch.Grid().columnViewportPosition(1) + 20, 5));
    QCOMPARE(watch.Form().View().GetSortedItem(0), watch.Form().View().GetColumn(1));
    FWindow->SwitchLanguage(TAppLanguage::SimplifiedChinese);
    Stop(true);

    FWorkspace = std::make_unique<TWorkspace>(File());
    QCOMPARE(FWorkspace->Language(), TAppLanguage::SimplifiedChinese);
    Start();
    std::vector<TWatchPane*> watches;
    for (TPaneDock* dock : FWindow->Docks()) {
        if (auto* pane = qobject_cast<TWatchPane*>(&dock->Pane())) watches.push_back(pane);
    }
    QCOMPARE(watches.size(), 2U);
    QCOMPARE(watches[1]->Group(), 2);
    QCOMPARE(watches[1]->Choice(), String(FavoriteExchange));
    QCOMPARE(watches[1]->Grid().columnWidth(1), 222);
    QCOMPARE(watches[1]->Form().View().GetSortedItem(0), watches[1]->Form().View().GetColumn(1));
    QVERIFY(watches[0]->Grid().columnWidth(1) != 222);
}

void TMainWindowTest::KeepsTheOrderOfFavourites() {
    const auto order = [this] {
        QStringList symbols;
        for (Integer row = 0; row < FWindow->Watch()->Form().RowCount(); ++row) {
            symbols << ToQt(FWindow->Watch()->Form().Symbol(row));
        }
        return symbols;
    };
    const auto frame = [this] {
        FSession->Step();
        FWindow->Frame();
        QApplication::processEvents();
    };
    FWindow->Watch()->SetChoice(FavoriteExchange);
    frame();
    TGridSkin& grid = FWindow->Watch()->Grid();
    QStringList wanted = order();
    QVERIFY(wanted.size() > 3);

    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(0, 0));
    frame();
    const auto keys = Qt::ControlModifier | Qt::ShiftModifier;
    QTest::keyClick(&grid, Qt::Key_Up, keys); // is the first already
    QTest::keyClick(&grid, Qt::Key_Down, keys);
    frame();
    wanted.move(0, 1);
    QCOMPARE(order(), wanted);
    QCOMPARE(grid.currentIndex().row(), 1);

    const auto drag = [&grid](int from, int y, bool isCancelled) {
        QTest::mousePress(grid.viewport(), Qt::LeftButton, {},
                          grid.visualRect(grid.model()->index(from, 0)).center());
        for (const int place : {y / 2, y}) {
            QMouseEvent move(QEvent::MouseMove, QPointF(9, place),
                             grid.viewport()->mapToGlobal(QPointF(9, place)), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(grid.viewport(), &move);
        }
        if (isCancelled) QTest::keyClick(&grid, Qt::Key_Escape);
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, {9, y});
    };
    const int height = grid.rowHeight(0);
    drag(0, 3 * height - 2, true);
    drag(0, 3 * height - 2, false); // to the lower edge of the third row
    frame();
    wanted.move(0, 2);
    QCOMPARE(order(), wanted);
    drag(0, height * static_cast<int>(wanted.size()) + 40, false);
    frame();
    wanted.move(0, wanted.size() - 1);
    QCOMPARE(order(), wanted);
    FWindow->Watch()->Form().View().GetColumn(0)->SetSortOrder(soDescending);
    frame();
    const QStringList sorted = order();
    drag(0, 3 * height - 2, false);
    frame();
    QCOMPARE(order(), sorted);
    FWindow->Watch()->Form().View().ClearSorting();
    Stop(true);
    Start();
    QCOMPARE(order(), wanted);

    TGridSkin& restarted = FWindow->Watch()->Grid();
    restarted.setFocus();
    restarted.setCurrentIndex(restarted.model()->index(0, 0));
    frame();
    TCustomMarketAdapter::GetInstance()->RemoveFavorite(FromQt(wanted.takeFirst()));
    QTest::keyClick(&restarted, Qt::Key_Down, keys); // the row is gone, and was not drawn so yet
    frame();
    QCOMPARE(order(), wanted);
    FWindow->Watch()->Form().List().ClearAllFavoritePrice();
    Stop(true);
    Start();
    QCOMPARE(order(), QStringList());
}

// The other terminal opened a form meanwhile and kept its layout.
void TMainWindowTest::SharesAWorkspace() {
    TWorkspace other(File());
    other.Set("watch-7.choice", "HKFE");
    QVERIFY(other.Store());
    FWindow->Watch()->SetGroup(2);
    FWindow->Store();
    const TWorkspace after(File());
    QCOMPARE(after.Value("watch-7.choice"), QStringLiteral("HKFE"));
    QCOMPARE(after.Value("watch-1.group"), QStringLiteral("2"));
}

void TMainWindowTest::TakesWhatItCanOfAWorkspace_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("watches");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("another version")
        << QByteArray(R"({"version":9,"values":{"forms":"watch-1 hologram-1 watch-2 watch-x",
            "watch-2.layout":"what is this\n9999,1,2;","watch-2.group":"77",
            "watch-1.choice":"NOWHERE","new.thing":"stays","window.state":"AAAA"}})")
        << 2 << false;
    QTest::newRow("cut off") << QByteArray(R"({"version":1,"values":{"forms":"wat)") << 1 << true;
    QTest::newRow("empty") << QByteArray() << 1 << true;
}

void TMainWindowTest::TakesWhatItCanOfAWorkspace() {
    QFETCH(QByteArray, content);
    Stop(false);
    QFile file(File());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    Start();
    int watches = 0;
    for (TPaneDock* dock : FWindow->Docks()) watches += dock->Pane().Kind() == TPaneKind::Watch;
    QTEST(watches, "watches");
    QVERIFY(FWindow->Watch()->Form().RowCount() > 0);
    FWindow->SwitchTheme(TTheme::Light);
    FWindow->Store();
    const TWorkspace after(File());
    QVERIFY(after.Problem().isEmpty());
    if (content.contains("new.thing")) QCOMPARE(after.Value("new.thing"), QStringLiteral("stays"));
    QFETCH(bool, isKept);
    QCOMPARE(QFile::exists(File() + ".bad"), isKept);
}

void TMainWindowTest::ClosesAnyFormAtAnyTime() {
    for (const TPaneKindInfo& info : PaneKinds()) FWindow->Open(info.Kind).SetGroup(2);
    FWindow->Frame();
    FSession->Step();
    const std::vector<TPaneDock*> docks = FWindow->Docks();
    for (std::size_t index = 0; index < docks.size(); index += 2) docks[index]->close();
    FWindow->Frame();
    FSession->Step();
    FWindow->ArrangeAsAtFirst();
    FWindow->Frame();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    FSession->Step();
    FWindow->Frame();
    QVERIFY(FWindow->Watch() != nullptr);
}

} // namespace quorin

QTEST_MAIN(quorin::TMainWindowTest)
#include "MainWindowTest.moc"
