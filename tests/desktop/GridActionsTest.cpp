#include "terminal/desktop/GridActions.h"
#include "terminal/desktop/DesktopSession.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/ViewDialogSkins.h"
#include "terminal/desktop/WatchPane.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace quorin {

// What a person does with a grid through its keys and dialogs.
class TGridActionsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ChoosesColumnsAndTakesThemBack();
    void MovesColumns();
    void Filters();
    void HasAMenuOfARow();
    void CopiesWhatShows();
    void Finds();
    void SavesAFile();
    void BreaksALongExportOff();

private:
    TcxGridTableView& View() { return FPane->Form().View(); }
    void FilterBy(const QString& text);
    bool Says(StringView key) const;
    void Press(int key, Qt::KeyboardModifiers modifiers);
    // Answers the next dialog of that kind.
    template <class Dialog>
    void Answer(const std::function<void(Dialog&)>& answer);

    std::unique_ptr<TDesktopSession> FSession;
    std::unique_ptr<TWatchPane> FPane;
    TGridActions* FActions = nullptr; // the grid's
    bool FWasAnswered = false;
};

void TGridActionsTest::init() {
    FSession = std::make_unique<TDesktopSession>(TDesktopOptions(), QUORIN_DATA_DIR);
    FSession->Step();
    FPane = std::make_unique<TWatchPane>(FSession->Exchange(), FSession->Host().Orders());
    FActions = new TGridActions(FPane->Grid(), FPane->Form());
    FPane->show();
    FPane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(FPane.get()));
    FPane->Follow();
    FPane->Grid().setFocus();
    FPane->Grid().setCurrentIndex(FPane->Grid().model()->index(0, 0));
    FWasAnswered = false;
}

void TGridActionsTest::cleanup() {
    FPane.reset();
    FSession.reset();
}

void TGridActionsTest::Press(int key, Qt::KeyboardModifiers modifiers) {
    FPane->activateWindow(); // no window manager gives it back after a dialog
    QVERIFY(QTest::qWaitForWindowActive(FPane.get()));
    FPane->Grid().setFocus();
    QTest::keyClick(&FPane->Grid(), static_cast<Qt::Key>(key), modifiers);
    FPane->Follow();
}

template <class Dialog>
void TGridActionsTest::Answer(const std::function<void(Dialog&)>& answer) {
    constexpr int wait = 2; // milliseconds
    QTimer::singleShot(wait, this, [this, answer] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return Answer<Dialog>(answer);
        FWasAnswered = true;
        answer(*dialog);
    });
}

void TGridActionsTest::ChoosesColumnsAndTakesThemBack() {
    const String before = FActions->Keeper().Layout();
    const int columns = FPane->Grid().model()->columnCount();
    for (const bool isKept : {false, true}) {
        int shownAtOnce = 0;
        Answer<TColumnChooser>([&](TColumnChooser& dialog) {
            int last = dialog.List().count() - 1;
            while (dialog.List().item(last)->checkState() != Qt::Checked) --last;
            dialog.List().item(last)->setCheckState(Qt::Unchecked);
            FPane->Follow();
            shownAtOnce = FPane->Grid().model()->columnCount();
            isKept ? dialog.accept() : dialog.reject();
        });
        Press(Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(FWasAnswered);
        QCOMPARE(shownAtOnce, columns - 1);
        QCOMPARE(FPane->Grid().model()->columnCount(), isKept ? columns - 1 : columns);
    }
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(FPane->Grid().model()->columnCount(), columns);
    QCOMPARE(FActions->Keeper().Layout(), before);
    QVERIFY(!FActions->Keeper().Undo());
}

void TGridActionsTest::MovesColumns() {
    const TcxGridColumn* moved = View().GetColumn(0);
    FPane->Grid().horizontalHeader()->moveSection(0, 2);
    QCOMPARE(View().GetColumn(2), moved);
    FPane->Follow();
    QCOMPARE(FPane->Grid().model()->headerData(2, Qt::Horizontal).toString(),
             ToQt(moved->Caption()));
    QCOMPARE(FPane->Grid().horizontalHeader()->visualIndex(2), 2);
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(View().GetColumn(0), moved);
}

void TGridActionsTest::FilterBy(const QString& text) {
    Answer<TFilterDialog>([text](TFilterDialog& dialog) {
        dialog.Operators().setCurrentIndex(dialog.Operators().findData(FilterOperator::Equal));
        dialog.Text().setText(text);
        dialog.accept();
    });
    Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(FWasAnswered);
}

bool TGridActionsTest::Says(StringView key) const {
    for (const QLabel* label : FPane->Grid().findChildren<QLabel*>()) {
        if (label->isVisible() && label->text() == ToQt(InterfaceText(key))) return true;
    }
    return false;
}

void TGridActionsTest::Filters() {
    const Integer rows = View().RowCount();
    const String symbol = FPane->Form().Symbol(2);
    FilterBy(QStringLiteral("none"));
    QCOMPARE(View().RowCount(), 0);
    QVERIFY(Says(TerminalKey::Res_NothingPasses));
    Press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!Says(TerminalKey::Res_NothingPasses));
    FPane->Grid().setCurrentIndex(FPane->Grid().model()->index(0, 0));
    FilterBy(ToQt(symbol));
    QCOMPARE(View().RowCount(), 1);
    QCOMPARE(FPane->Form().Symbol(0), symbol);
    Press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(View().RowCount(), rows);
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(View().RowCount(), 1);
    FPane->Grid().setCurrentIndex(FPane->Grid().model()->index(0, 1));
    Press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier); // a column without a filter
    QCOMPARE(View().RowCount(), 1);
    Press(Qt::Key_C, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(View().RowCount(), rows);
}

void TGridActionsTest::HasAMenuOfARow() {
    const int row = 3;
    const QString copy = FActions->Action(TerminalKey::Res_CopyRow)->text();
    QTimer::singleShot(0, this, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        for (QAction* action : menu->actions()) {
            if (action->text() == copy) menu->setActiveAction(action);
        }
        FWasAnswered = true;
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QTableView& grid = FPane->Grid();
    const QPoint place = grid.visualRect(grid.model()->index(row, 1)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid.viewport()->mapToGlobal(place));
    QApplication::sendEvent(grid.viewport(), &event);
    QVERIFY(FWasAnswered);
    QCOMPARE(grid.currentIndex().row(), row);
    QVERIFY(QApplication::clipboard()->text().startsWith(ToQt(FPane->Form().Symbol(row))));
}

void TGridActionsTest::CopiesWhatShows() {
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines[0].startsWith(ToQt(View().GetColumn(0)->Caption()) + u'\t'));
    QCOMPARE(lines[1].split(u'\t').value(0), ToQt(FPane->Form().Symbol(0)));
    QCOMPARE(lines[1].count(u'\t'), lines[0].count(u'\t'));
}

void TGridActionsTest::Finds() {
    const Integer rows = View().RowCount();
    Press(Qt::Key_F, Qt::ControlModifier);
    QLineEdit& field = FActions->FindBar().Field();
    QVERIFY(field.hasFocus());
    QTest::keyClicks(&field, ToQt(FPane->Form().Symbol(3)));
    QVERIFY(View().RowCount() < rows);
    QTest::keyClick(&field, Qt::Key_Escape);
    QVERIFY(!FActions->FindBar().isVisible());
    QCOMPARE(View().RowCount(), rows);
}

void TGridActionsTest::SavesAFile() {
    const QTemporaryDir folder;
    const QString name = folder.filePath("watch.csv");
    Answer<QFileDialog>([&name](QFileDialog& dialog) {
        dialog.selectFile(name);
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    });
    Press(Qt::Key_E, Qt::ControlModifier);
    QVERIFY(FWasAnswered);
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().trimmed().count('\n'), View().RowCount()); // and the captions
}

void TGridActionsTest::BreaksALongExportOff() {
    constexpr int symbols = 5000;
    FSession->Host().SaveProgress().SetPatience(0);
    TEmbeddedMarketAdapter& market = FSession->Services().Market();
    market.AddExchange({.Code = u"BIG", .Currency = u"HKD"});
    market.AddSeries({.Code = u"ALL", .Exchange = u"BIG"});
    for (int number = 0; number < symbols; ++number) {
        market.AddSymbol(
            {.Symbol = FromQt(QString::number(number)), .Exchange = u"BIG", .Series = u"ALL"});
    }
    FPane->Form().ShowMarket(u"BIG");
    FPane->Follow();
    QCOMPARE(View().RowCount(), symbols);
    const QTemporaryDir folder;
    const QString name = folder.filePath("watch.xlsx");
    const auto content = [&name] {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QFile old(name);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("the old file");
    old.close();

    for (const bool isCancelled : {true, false}) {
        bool wasShown = false;
        bool hasHeldStill = true;
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            wasShown = true;
            const Integer before = FSession->Deliveries();
            FSession->Step();
            hasHeldStill &= FSession->Deliveries() == before && FActions->IsBusy();
            if (isCancelled) QTest::keyClick(dialog, Qt::Key_Escape);
        });
        watch.start(1);
        Answer<QFileDialog>([&](QFileDialog& dialog) {
            dialog.selectFile(name);
            Answer<QMessageBox>([](QMessageBox& box) { box.buttons().front()->click(); });
            static_cast<QDialog&>(dialog).done(QDialog::Accepted);
        });
        Press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(wasShown);
        QVERIFY(hasHeldStill);
        QVERIFY(!FActions->IsBusy());
        QCOMPARE(content() == "the old file", isCancelled);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("watch.xlsx"));
    }
    QVERIFY(content().startsWith("PK"));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    FSession->Step();
}

} // namespace quorin

QTEST_MAIN(quorin::TGridActionsTest)
#include "GridActionsTest.moc"
