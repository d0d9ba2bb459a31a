#include "terminal/desktop/MainWindow.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/WatchPane.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/services/ConfigKeys.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace quorin {

// Forms and windows that go at bad moments, layouts that two terminals store, and feeds that flood.
class TFaultsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ClosesInMidWork_data();
    void ClosesInMidWork();
    void ClosesAFormAfterItsBox_data();
    void ClosesAFormAfterItsBox();
    void ClosesTheWindowUnderABox_data();
    void ClosesTheWindowUnderABox();
    void KeepsLayoutsOfTwoTerminals_data();
    void KeepsLayoutsOfTwoTerminals();
    void DrawsAFloodOnce();

private:
    using TAct = void (*)(TPaneDock&);
    static constexpr Double StepSeconds = 0.05;
    static constexpr int Patience = 20000; // milliseconds

    void CloseAll();
    void ShowManyRows(TWatchPane& watch);
    Integer CountAfter(TPaneKind kind);
    void Settle();
    QString File() const { return FFolder->filePath("terminal.json"); }
    Integer Registrations() const { return FSession->Services().RegistrationCount(); }
    static QList<QObject*> Triggers(TPaneDock& dock);
    static void Trigger(QObject& trigger);
    // Runs whenever a box or a menu is open, until `watch` is gone.
    static void WatchBoxes(QTimer& watch, const std::function<void(QWidget&)>& act);
    static void Answer(QWidget& box, bool isYes);

    std::unique_ptr<QTemporaryDir> FFolder;
    std::unique_ptr<TWorkspace> FWorkspace;
    std::unique_ptr<TDesktopSession> FSession;
    std::unique_ptr<TMainWindow> FWindow;
    QString FFolderBefore;
};

void TFaultsTest::init() {
    FFolder = std::make_unique<QTemporaryDir>();
    FFolderBefore = QDir::currentPath();
    QDir::setCurrent(FFolder->path()); // exports go there
    FWorkspace = std::make_unique<TWorkspace>(File());
    FSession = std::make_unique<TDesktopSession>(TDesktopOptions(), QUORIN_DATA_DIR);
    FSession->Host().SaveProgress().SetPatience(0);
    for (const StringView key :
         {ConfigKey::ConfirmationPlaceOrd, ConfigKey::ConfirmationClosePosition}) {
        FSession->Services().Config().Set(DefaultConfigSection, key, u"Y");
    }
    FSession->Services().Config().Commit();
    FSession->Step();
    FWindow = std::make_unique<TMainWindow>(*FSession, TDesktopOptions(), *FWorkspace);
    FWindow->show();
    FWindow->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(FWindow.get()));
    Settle();
}

void TFaultsTest::cleanup() {
    QTest::failOnWarning(QRegularExpression("registrations are left"));
    FWindow.reset();
    FSession.reset();
    QDir::setCurrent(FFolderBefore);
}

void TFaultsTest::Settle() {
    QApplication::processEvents();
    FSession->Step();
    FWindow->Frame();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TFaultsTest::CloseAll() {
    const std::vector<TPaneDock*> docks = FWindow->Docks();
    for (TPaneDock* dock : docks) dock->close();
    Settle();
    QVERIFY(FWindow->Docks().empty());
}

// What forms share and keep for the next one is there after one of the kind.
Integer TFaultsTest::CountAfter(TPaneKind kind) {
    FWindow->Open(kind);
    Settle();
    CloseAll();
    return FSession->Services().RegistrationCount();
}

void TFaultsTest::WatchBoxes(QTimer& watch, const std::function<void(QWidget&)>& act) {
    connect(&watch, &QTimer::timeout, &watch, [act] {
        QWidget* box = QApplication::activePopupWidget();
        if (box == nullptr) box = QApplication::activeModalWidget();
        if (box != nullptr) act(*box);
    });
    watch.start(1);
}

void TFaultsTest::Answer(QWidget& box, bool isYes) {
    if (qobject_cast<QProgressDialog*>(&box) != nullptr && isYes) return; // ends by itself
    if (auto* files = qobject_cast<QFileDialog*>(&box)) {
        static int number = 0; // no name twice: it would be asked about
        files->selectFile(QDir::current().filePath(QString::number(++number)));
    }
    if (isYes && qobject_cast<QMessageBox*>(&box) == nullptr) {
        return static_cast<QDialog&>(box).done(QDialog::Accepted);
    }
    QTest::keyClick(&box, isYes ? Qt::Key_Return : Qt::Key_Escape);
}

QList<QObject*> TFaultsTest::Triggers(TPaneDock& dock) {
    QList<QObject*> triggers;
    for (QAction* action : dock.Pane().findChildren<QAction*>()) triggers << action;
    for (auto* button : dock.Pane().findChildren<QAbstractButton*>()) triggers << button;
    return triggers;
}

void TFaultsTest::Trigger(QObject& trigger) {
    if (auto* action = qobject_cast<QAction*>(&trigger)) return action->trigger();
    static_cast<QAbstractButton&>(trigger).click();
}

void TFaultsTest::ClosesInMidWork_data() {
    QTest::addColumn<TAct>("act");
    const auto row = [](const char* name, TAct act) { QTest::newRow(name) << act; };
    row("idle", [](TPaneDock&) {});
    row("find bar", [](TPaneDock& dock) {
        if (dock.Actions() == nullptr) return;
        dock.Actions()->FindBar().Open();
        QTest::keyClicks(&dock.Actions()->FindBar().Field(), "0");
    });
    row("typing", [](TPaneDock& dock) {
        const QPointer<TPane> pane(&dock.Pane());
        for (const QPointer<QLineEdit> field : pane->findChildren<QLineEdit*>()) {
            if (field && field->isVisible()) field->setFocus();
            if (field && field->hasFocus()) QTest::keyClicks(field, "9.");
        }
    });
    row("open lists", [](TPaneDock& dock) {
        for (auto* field : dock.Pane().findChildren<QLineEdit*>()) {
            QTest::keyClick(field, Qt::Key_Down, Qt::AltModifier);
        }
    });
    row("linked", [](TPaneDock& dock) {
        dock.Pane().SetGroup(1);
        dock.Pane().SetGroup(2);
    });
    row("sorted and filtered", [](TPaneDock& dock) {
        if (dock.Actions() == nullptr) return;
        dock.Actions()->Action(TerminalKey::Res_SortDescending)->trigger();
        dock.Actions()->FindBar().Open();
        dock.Actions()->FindBar().Field().setText("no such row");
    });
    row("pressed and dragged", [](TPaneDock& dock) {
        if (dock.Pane().ItemView() == nullptr) return;
        QWidget* area = dock.Pane().ItemView()->viewport();
        QTest::mousePress(area, Qt::LeftButton, {}, {9, 9});
        QMouseEvent move(QEvent::MouseMove, QPointF(9, 60), area->mapToGlobal(QPointF(9, 60)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &move);
    });
    row("floating", [](TPaneDock& dock) { dock.setFloating(true); });
}

// First each form alone, as the only one; then all of them with the window.
void TFaultsTest::ClosesInMidWork() {
    QFETCH(TAct, act);
    CloseAll();
    for (const TPaneKindInfo& info : PaneKinds()) {
        const Integer before = CountAfter(info.Kind);
        FWindow->Open(info.Kind);
        const QPointer<TPaneDock> dock = FWindow->Docks().front();
        Settle();
        bool isHeld = true;
        QTimer watch; // fields that are left may have something to say
        WatchBoxes(watch, [&](QWidget& box) {
            dock->close();
            Settle();
            isHeld &= !dock.isNull();
            Answer(box, false);
        });
        act(*dock);
        Settle();
        if (dock) dock->close();
        Settle();
        QVERIFY2(isHeld, info.Code);
        QVERIFY2(FWindow->Docks().empty(), info.Code);
        QVERIFY2(Registrations() == before, info.Code);
    }
    QTimer watch;
    WatchBoxes(watch, [](QWidget& box) { Answer(box, false); });
    for (const TPaneKindInfo& info : PaneKinds()) {
        FWindow->Open(info.Kind);
        Settle();
        act(*FWindow->Docks().back());
    }
    FWindow->close();
    QCOMPARE(TWorkspace(File()).Value("forms").split(' ').size(),
             static_cast<qsizetype>(PaneKinds().size()));
}

void TFaultsTest::ClosesAFormAfterItsBox_data() {
    QTest::addColumn<bool>("isYes");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

// Whatever a form can do: where that opens a box, the form goes after its answer.
void TFaultsTest::ClosesAFormAfterItsBox() {
    QFETCH(bool, isYes);
    CloseAll();
    QSet<QString> boxes;
    for (const TPaneKindInfo& info : PaneKinds()) {
        for (qsizetype index = 0;; ++index) {
            FWindow->Open(info.Kind);
            const QPointer<TPaneDock> dock = FWindow->Docks().front();
            Settle();
            if (TcxGrid* grid =
                    dock->Pane().Shown() ? dock->Pane().Shown()->FormView().Grid : nullptr) {
                grid->ActiveView()->SetFocusedRow(0);
            }
            Settle();
            const QList<QObject*> triggers = Triggers(*dock);
            const bool isOver = index >= triggers.size();
            QTimer watch;
            bool isHeld = true;
            WatchBoxes(watch, [&](QWidget& box) {
                const bool isMenu = box.windowType() == Qt::Popup;
                boxes << box.metaObject()->className();
                if (!isOver && dock) dock->close();
                const QPointer<QWidget> open(&box);
                Settle();
                isHeld &= isMenu || (dock && FWindow->Docks().size() == 1);
                if (open) Answer(*open, isYes && !isMenu);
            });
            if (!isOver) Trigger(*triggers[index]);
            if (dock) dock->close();
            Settle();
            QVERIFY2(isHeld, info.Code);
            QVERIFY2(dock.isNull() && FWindow->Docks().empty(), info.Code);
            if (isOver) break;
        }
    }
    for (const char* box : {"QMessageBox", "QFileDialog", "quorin::TColumnChooser", "QMenu",
                            "quorin::TFilterDialog"}) {
        QVERIFY2(boxes.contains(box), qPrintable(boxes.values().join(' ')));
    }
}

void TFaultsTest::ClosesTheWindowUnderABox_data() {
    QTest::addColumn<QString>("key"); // of what opens the box; empty: an order
    QTest::addColumn<QByteArray>("box");
    QTest::newRow("question") << QString() << QByteArray("QMessageBox");
    QTest::newRow("columns") << ToQt(TerminalKey::Res_ChooseColumns)
                             << QByteArray("quorin::TColumnChooser");
    QTest::newRow("filter") << ToQt(TerminalKey::Res_FilterColumn)
                            << QByteArray("quorin::TFilterDialog");
    QTest::newRow("menu") << ToQt(TerminalKey::Res_ColumnMenu) << QByteArray("QMenu");
    QTest::newRow("export") << ToQt(TerminalKey::Res_ExportXlsx) << QByteArray("QProgressDialog");
}

// So many that their export takes a while.
void TFaultsTest::ShowManyRows(TWatchPane& watch) {
    constexpr int symbols = 5000;
    TEmbeddedMarketAdapter& market = FSession->Services().Market();
    market.AddExchange({.Code = u"BIG", .Currency = u"HKD"});
    market.AddSeries({.Code = u"ALL", .Exchange = u"BIG"});
    for (int number = 0; number < symbols; ++number) {
        market.AddSymbol(
            {.Symbol = FromQt(QString::number(number)), .Exchange = u"BIG", .Series = u"ALL"});
    }
    watch.Form().ShowMarket(u"BIG");
}

void TFaultsTest::ClosesTheWindowUnderABox() {
    QFETCH(QString, key);
    QFETCH(QByteArray, box);
    FWindow->Docks().back()->setFloating(true); // a window of its own
    FWindow->Start(StepSeconds);
    QSet<QByteArray> seen;
    QTimer watch;
    WatchBoxes(watch, [&](QWidget& open) {
        seen << open.metaObject()->className();
        if (open.metaObject()->className() == box) return static_cast<void>(FWindow->close());
        Answer(open, true); // on the way to it
    });
    QTimer::singleShot(0, FWindow.get(), [&] {
        TWatchPane& watched = *FWindow->Watch();
        if (box == "QProgressDialog") ShowManyRows(watched);
        watched.Form().View().SetFocusedRow(0);
        Settle();
        if (key.isEmpty()) return watched.Bar().Button(0).click();
        static_cast<TPaneDock*>(watched.parentWidget())->Actions()->Action(FromQt(key))->trigger();
    });
    QTimer::singleShot(Patience, FWindow.get(), [] { QApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!FWindow->isVisible());
    QVERIFY2(seen.contains(box), seen.values().join(' ').constData());
}

void TFaultsTest::KeepsLayoutsOfTwoTerminals_data() {
    QTest::addColumn<QByteArray>("atStart"); // what both find
    QTest::newRow("no file") << QByteArray();
    QTest::newRow("a damaged file") << QByteArray("{\"version\":1,\"values\":{\"forms\":\"wa");
}

// The second one changed nothing, and is the later to store.
void TFaultsTest::KeepsLayoutsOfTwoTerminals() {
    QFETCH(QByteArray, atStart);
    QFile damaged(File());
    if (!atStart.isEmpty()) {
        QVERIFY(damaged.open(QIODevice::WriteOnly));
        damaged.write(atStart);
        damaged.close();
    }
    TWorkspace first(File());
    TWorkspace second(File());
    {
        TMainWindow one(*FSession, TDesktopOptions(), first);
        TMainWindow two(*FSession, TDesktopOptions(), second);
        one.show();
        two.show();
        QApplication::processEvents();
        one.Watch()->Grid().setColumnWidth(1, 222);
        static_cast<TWatchPane&>(one.Open(TPaneKind::Watch)).Grid().setColumnWidth(1, 111);
        one.close();
        two.close();
    }
    TWorkspace third(File());
    TMainWindow after(*FSession, TDesktopOptions(), third);
    after.show();
    after.Frame();
    QList<int> widths;
    for (TPaneDock* dock : after.Docks()) {
        auto* watch = qobject_cast<TWatchPane*>(&dock->Pane());
        if (watch != nullptr) widths << watch->Grid().columnWidth(1);
    }
    QCOMPARE(widths, QList<int>({222, 111}));
    QFile kept(File() + ".bad");
    QCOMPARE(kept.open(QIODevice::ReadOnly) ? kept.readAll() : QByteArray(), atStart);
}

void TFaultsTest::DrawsAFloodOnce() {
    constexpr Int64 flood = 200000;
    constexpr Int64 responsive = 1000; // milliseconds, of a slow build on a busy machine
    TGridSkin& grid = FWindow->Watch()->Grid();
    Settle();
    const Int64 before = FSession->Updates();
    while (FSession->Updates() - before < flood) FSession->Step();
    const Int64 paints = grid.PaintCount();
    QElapsedTimer timer;
    timer.start();
    FWindow->Frame();
    QApplication::processEvents();
    QVERIFY2(timer.elapsed() < responsive, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(grid.PaintCount(), paints + 1);
    FWindow->Frame();
    QCOMPARE(grid.PaintCount(), paints + 1); // nothing is left over from it
}

} // namespace quorin

QTEST_MAIN(quorin::TFaultsTest)
#include "FaultsTest.moc"
