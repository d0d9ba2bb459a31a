#include "terminal/desktop/MainWindow.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TicketPane.h"
#include "terminal/desktop/WatchPane.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <memory>

namespace quorin {

// The window as a person uses it: real events of Qt go in, and what the headless fields and grids
// hold comes out.
class TDesktopTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void TypesNumbers_data();
    void TypesNumbers();
    void StepsAcrossATickBand_data();
    void StepsAcrossATickBand();
    void RepeatsWhileAButtonIsHeld();
    void CountsEveryPressOfAQuickSeries();
    void HearsNoReleaseWhileAKeyRepeats();
    void FiltersAndPicksFromTheList();
    void ComposesBesideTheText();
    void MirrorsCaretAndSelection();
    void UsesTheClipboard();
    void KeepsTheFocusOfARefusedField();
    void PaintsOncePerFrame();
    void FollowsScrollAndChoice();

private:
    TEditSkin& Into(TTicketField field);
    void Turn(QWidget& field, int delta);
    void Open(std::optional<TPaneKind> form);
    void Refuse(TObject*, Variant&, String& text, Boolean& error) {
        text = u"not like this";
        error = FRefuses;
    }
    void NoteRelease(TObject*, Word&, TShiftState) { ++FReleases; }

    TDesktopOptions FOptions;
    TWorkspace FWorkspace;
    std::unique_ptr<TDesktopSession> FSession;
    std::unique_ptr<TMainWindow> FWindow;
    bool FRefuses = true;
    int FReleases = 0;
};

void TDesktopTest::init() {
    FOptions = {};
    FOptions.Symbol = u"00005"; // steps of 0.05 below 100, of 0.1 from there on
    FSession = std::make_unique<TDesktopSession>(FOptions, QUORIN_DATA_DIR);
    FSession->Step();
    Open(TPaneKind::Ticket);
}

void TDesktopTest::cleanup() {
    QTest::failOnWarning(QRegularExpression("registrations are left"));
    FWindow.reset();
    FSession.reset();
}

void TDesktopTest::Open(std::optional<TPaneKind> form) {
    FWindow.reset();
    FOptions.Form = form;
    FWindow = std::make_unique<TMainWindow>(*FSession, FOptions, FWorkspace);
    FWindow->show();
    FWindow->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(FWindow.get()));
    FWindow->Frame();
}

TEditSkin& TDesktopTest::Into(TTicketField field) {
    TEditSkin& skin = FWindow->Ticket()->FieldSkin(field);
    skin.setFocus();
    return skin;
}

void TDesktopTest::Turn(QWidget& field, int delta) {
    const QPointF at = QRectF(field.rect()).center();
    QWheelEvent event(at, field.mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &event);
}

void TDesktopTest::TypesNumbers_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    const int price = static_cast<int>(TTicketField::Price);
    const int quantity = static_cast<int>(TTicketField::Quantity);
    QTest::newRow("thousands") << quantity << "12k"
                               << "12,000" << 12000.0;
    QTest::newRow("millions") << quantity << "2M"
                              << "2,000,000" << 2000000.0;
    QTest::newRow("letters are refused") << quantity << "4x0"
                                         << "40" << 40.0;
    QTest::newRow("price") << price << "99.95"
                           << "99.95" << 99.95;
    QTest::newRow("full width") << price << QStringLiteral("\uFF11\uFF10\uFF10\uFF0E\uFF11")
                                << "100.1" << 100.1;
}

void TDesktopTest::TypesNumbers() {
    QFETCH(int, field);
    QFETCH(QString, typed);
    TEditSkin& skin = Into(static_cast<TTicketField>(field));
    for (const QChar character : typed) {
        if (character.unicode() < 0x80) {
            QTest::keyClick(&skin, character.toLatin1());
        } else {
            QTest::sendKeyEvent(QTest::Click, &skin, Qt::Key_unknown, QString(character),
                                Qt::NoModifier);
        }
    }
    QTEST(skin.text(), "text");
    QCOMPARE(skin.cursorPosition(), static_cast<int>(skin.text().size()));
    QTEST(ObjectAs<TcxSpinEdit>(&skin.Edit())->EditValue().ToDouble(), "value");
}

void TDesktopTest::StepsAcrossATickBand_data() {
    QTest::addColumn<bool>("isByWheel");
    QTest::newRow("keys") << false;
    QTest::newRow("wheel") << true;
}

void TDesktopTest::StepsAcrossATickBand() {
    QFETCH(bool, isByWheel);
    const QList<double> prices{100.0, 99.95, 100.0, 100.1}; // two steps down, two up
    TEditSkin& price = Into(TTicketField::Price);
    QTest::keyClicks(&price, "100.1");
    QTest::keyClick(&price, Qt::Key_Return);
    for (qsizetype step = 0; step < prices.size(); ++step) {
        const bool isUp = step >= 2;
        if (isByWheel) {
            Turn(price, isUp ? WheelNotch : -WheelNotch);
        } else {
            QTest::keyClick(&price, isUp ? Qt::Key_Up : Qt::Key_Down);
        }
        QCOMPARE(price.text().toDouble(), prices[step]);
    }
}

void TDesktopTest::RepeatsWhileAButtonIsHeld() {
    TEditSkin& price = Into(TTicketField::Price);
    QTest::keyClicks(&price, "99.9");
    const TRect button = price.Edit().ButtonRect(TcxSpinEdit::UpButton);
    const QPoint at(button.Center().X, button.Center().Y);
    QTest::mousePress(&price, Qt::LeftButton, {}, at);
    QCOMPARE(price.text().toDouble(), 99.95);
    QTRY_VERIFY(price.text().toDouble() >= 100.2); // three steps further, over the band's edge
    QTest::mouseRelease(&price, Qt::LeftButton, {}, at);
    const QString released = price.text();
    QTest::qWait(2 * TcxSpinEdit::RepeatInterval);
    QCOMPARE(price.text(), released);
}

void TDesktopTest::CountsEveryPressOfAQuickSeries() {
    TEditSkin& quantity = Into(TTicketField::Quantity);
    const TRect button = quantity.Edit().ButtonRect(TcxSpinEdit::UpButton);
    const QPoint at(button.Center().X, button.Center().Y);
    QTest::mouseClick(&quantity, Qt::LeftButton, {}, at);
    const double once = quantity.text().remove(u',').toDouble();
    QVERIFY(once > 0.0);
    QTest::mouseDClick(&quantity, Qt::LeftButton, {}, at);
    QTest::mouseRelease(&quantity, Qt::LeftButton, {}, at);
    QCOMPARE(quantity.text().remove(u',').toDouble(), 2.0 * once);
}

void TDesktopTest::HearsNoReleaseWhileAKeyRepeats() {
    TcxSpinEdit edit;
    edit.SetOnKeyUp(MakeEvent<&TDesktopTest::NoteRelease>(this));
    TSpinSkin skin(edit, FWindow.get());
    skin.show();
    skin.setFocus();
    for (const bool isRepeat : {true, true, false}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, {}, isRepeat);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Up, Qt::NoModifier, {}, isRepeat);
        QApplication::sendEvent(&skin, &press);
        QApplication::sendEvent(&skin, &release);
    }
    QCOMPARE(edit.EditValue().ToInt64(), 3);
    QCOMPARE(FReleases, 1);
    FReleases = 0;
}

void TDesktopTest::FiltersAndPicksFromTheList() {
    auto& symbol = static_cast<TPopupSkin&>(Into(TTicketField::Symbol));
    QTest::keyClick(&symbol, Qt::Key_F4);
    QVERIFY(symbol.OpenList() != nullptr);
    const int all = symbol.OpenList()->model()->rowCount();
    QTest::keyClicks(&symbol, "007");
    FWindow->Frame();
    QVERIFY(symbol.hasFocus());
    QVERIFY(symbol.OpenList() != nullptr);
    QAbstractItemModel& list = *symbol.OpenList()->model();
    QVERIFY(list.rowCount() > 0 && list.rowCount() < all);
    QVERIFY(list.index(0, 0).data().toString().startsWith("007"));
    const QString first = list.index(0, 0).data().toString();
    QTest::keyClick(&symbol, Qt::Key_Down);
    QTest::keyClick(&symbol, Qt::Key_Return);
    QCOMPARE(ToQt(FWindow->Ticket()->Form().Symbol()), first);
    QVERIFY(symbol.OpenList() == nullptr);
    QVERIFY(symbol.text().startsWith(first));
}

void TDesktopTest::ComposesBesideTheText() {
    TEditSkin& quantity = Into(TTicketField::Quantity);
    QTest::keyClicks(&quantity, "40");
    QTest::keyClick(&quantity, Qt::Key_A, Qt::ControlModifier);
    QInputMethodEvent compose(QStringLiteral("\u4E09"), {});
    QApplication::sendEvent(&quantity, &compose);
    QCOMPARE(ToQt(quantity.Edit().CompositionText()), QStringLiteral("\u4E09"));
    QCOMPARE(quantity.text(), "40");
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("\uFF13\uFF15"));
    QApplication::sendEvent(&quantity, &commit);
    QVERIFY(quantity.Edit().CompositionText().empty());
    QCOMPARE(quantity.text(), "35");
    QInputMethodEvent correct;
    correct.setCommitString("6", -1, 1);
    QApplication::sendEvent(&quantity, &correct);
    QCOMPARE(quantity.text(), "36");
}

void TDesktopTest::MirrorsCaretAndSelection() {
    TcxPopupEdit edit;
    TPopupSkin field(edit, FWindow.get());
    field.show();
    field.setFocus();
    QTest::keyClicks(&field, "abcdef");
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&field, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(field.selectedText(), "ef");
    QCOMPARE(field.cursorPosition(), 4);
    QTest::keyClicks(&field, "xyz");
    QCOMPARE(field.text(), "abcdxyz");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier); // the line edit's own undo is out
    QCOMPARE(field.text(), "abcdxyz");
    QTest::keyClick(&field, Qt::Key_Escape);
    QCOMPARE(field.text(), "abcdef");
    edit.SetSelStart(1);
    edit.SetSelLength(2);
    field.Mirror();
    QCOMPARE(field.selectedText(), "bc");
    QCOMPARE(field.cursorPosition(), edit.CaretPosition());
}

void TDesktopTest::UsesTheClipboard() {
    QClipboard& clipboard = *QApplication::clipboard();
    clipboard.setText(" 1,200\nsecond line");
    TEditSkin& quantity = Into(TTicketField::Quantity);
    QTest::keyClick(&quantity, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(quantity.text(), "1,200");
    QTest::keyClick(&quantity, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&quantity, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(clipboard.text(), "1,200");
    QCOMPARE(quantity.text(), "");
    clipboard.setText("many");
    QTest::keyClick(&quantity, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(quantity.text(), "");
}

void TDesktopTest::KeepsTheFocusOfARefusedField() {
    TcxSpinEdit edit;
    edit.Properties().SetOnValidate(MakeEvent<&TDesktopTest::Refuse>(this));
    edit.SetParent(&FWindow->Ticket()->Form());
    auto skin = std::make_unique<TSpinSkin>(edit, FWindow.get());
    skin->show();
    skin->setFocus();
    QTest::keyClicks(skin.get(), "7");
    TEditSkin& price = Into(TTicketField::Price);
    QTRY_VERIFY(skin->hasFocus());
    QVERIFY(edit.Focused());
    QVERIFY(!price.Edit().Focused());
    QCOMPARE(skin->toolTip(), "not like this");
    FRefuses = false;
    price.setFocus();
    QVERIFY(price.hasFocus());
    QVERIFY(price.Edit().Focused());
    QCOMPARE(skin->text(), "7");
    FRefuses = true;
}

void TDesktopTest::PaintsOncePerFrame() {
    Open(TPaneKind::Watch);
    TGridSkin& grid = FWindow->Watch()->Grid();
    FWindow->Frame();
    const Int64 before = grid.PaintCount();
    for (int delivery = 0; delivery < 50; ++delivery) FSession->Step();
    FWindow->Frame();
    FWindow->Frame(); // nothing new
    QCOMPARE(grid.PaintCount(), before + 1);
    TcxGridTableView& view = FWindow->Watch()->Form().View();
    const QAbstractItemModel& model = *grid.model();
    QCOMPARE(model.rowCount(), view.RowCount());
    for (int section = 0; section < model.columnCount(); ++section) {
        auto& column = static_cast<TcxGridColumn&>(*grid.Model().Column(section));
        QCOMPARE(model.index(3, section).data().toString(), ToQt(view.CellText(3, column)));
        QCOMPARE(model.headerData(section, Qt::Horizontal).toString(), ToQt(column.Caption()));
    }
}

void TDesktopTest::FollowsScrollAndChoice() {
    Open({});
    TGridSkin& grid = FWindow->Watch()->Grid();
    TMarketWatchForm& watch = FWindow->Watch()->Form();
    QApplication::processEvents(); // Qt lays rows out when it is idle
    grid.verticalScrollBar()->setValue(5);
    QCOMPARE(watch.View().TopRow(), 5);
    FWindow->Frame();
    QCOMPARE(grid.verticalScrollBar()->value(), 5);
    const QPoint at = grid.visualRect(grid.model()->index(8, 0)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(watch.View().FocusedRow(), 8);
    QTest::keyClick(&grid, Qt::Key_Return);
    QCOMPARE(FWindow->Ticket()->Form().Symbol(), watch.Symbol(8));
    QVERIFY(FWindow->Ticket()->FieldSkin(TTicketField::Price).hasFocus());
}

} // namespace quorin

QTEST_MAIN(quorin::TDesktopTest)
#include "DesktopTest.moc"
