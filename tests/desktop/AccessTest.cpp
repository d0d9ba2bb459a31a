#include "terminal/desktop/DesktopSession.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"
#include "viewdata/services/ClientOrder.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QPalette>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>

namespace quorin {

// That everybody can read what is on the screen, or hear it.
class TAccessTest : public QObject {
    Q_OBJECT

private slots:
    void TellsWhatEachFormShows_data();
    void TellsWhatEachFormShows();
    void ColoursCanBeRead_data();
    void ColoursCanBeRead();
};

void TAccessTest::TellsWhatEachFormShows_data() {
    QTest::addColumn<int>("kind");
    for (const TPaneKindInfo& info : PaneKinds()) {
        QTest::newRow(info.Code) << static_cast<int>(info.Kind);
    }
}

void TAccessTest::TellsWhatEachFormShows() {
    QFETCH(int, kind);
    QTest::failOnWarning(QRegularExpression("registrations are left"));
    ApplyTheme(*qApp, TTheme::Light);
    TDesktopSession session({}, QUORIN_DATA_DIR);
    const std::unique_ptr<TPane> pane(MakePane(static_cast<TPaneKind>(kind), session));
    pane->TakeSymbol(u"00700");
    pane->show();
    session.Services().Log().WriteLog(u"a message", 1);
    TOrderValues order{.Account = u"M88001", .Symbol = u"00005", .Quantity = 400.0, .Price = 20.0};
    session.Services().Desk().Take(order);
    for (int step = 0; step < 50; ++step) {
        pane->Follow();
        session.Step();
    }
    pane->Follow();

    for (QWidget* widget : pane->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisibleTo(pane.get())) continue;
        if (widget->focusProxy() != nullptr || widget->objectName().startsWith("qt_")) continue;
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(!told->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
        QVERIFY2(told->role() != QAccessible::NoRole, widget->metaObject()->className());
    }

    if (pane->ItemView() == nullptr) return;
    const QFontMetricsF metrics(pane->ItemView()->font());
    for (char16_t figure = u'1'; figure <= u'9'; ++figure) {
        QCOMPARE(metrics.horizontalAdvance(figure), metrics.horizontalAdvance(u'0'));
    }
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(pane->ItemView());
    QAccessibleTableInterface* table = list->tableInterface();
    TShownForm& form = *pane->Shown();
    QVERIFY(table != nullptr && form.RowCount() > 0);
    QCOMPARE(table->rowCount(), form.RowCount());
    int section = 0;
    for (Integer index = 0; index < form.ColumnCount(); ++index) {
        if (!form.Column(index).GetVisible()) continue;
        QCOMPARE(table->columnDescription(section), ToQt(form.Column(index).Caption()));
        for (int row = 0; row < std::min(table->rowCount(), 20); ++row) {
            const QString heard = table->cellAt(row, section)->text(QAccessible::Name);
            const QString shown = ToQt(form.CellText(row, index));
            QVERIFY2(heard == shown || heard.startsWith(shown + u' '), qPrintable(shown));
        }
        ++section;
    }
    QCOMPARE(table->columnCount(), section);
}

// Relative luminance as in the guidelines for accessible web content.
double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor Over(const QColor& back, const QColor& front) {
    const float part = front.alphaF();
    const auto mix = [part](float below, float above) {
        return below * (1.0F - part) + above * part;
    };
    return QColor::fromRgbF(mix(back.redF(), front.redF()), mix(back.greenF(), front.greenF()),
                            mix(back.blueF(), front.blueF()));
}

void TAccessTest::ColoursCanBeRead_data() {
    using P = QPalette;
    struct TPair {
        const char* Name;
        std::function<QColor()> Text;
        std::vector<P::ColorRole> Backs;
        std::function<QColor(const QColor&)> OnBack = [](const QColor& back) { return back; };
    };
    const auto role = [](P::ColorRole text, P::ColorGroup group = P::Active) {
        return [=] { return QApplication::palette().color(group, text); };
    };
    const auto flash = [](TPriceChangeState state) {
        return [=](const QColor& back) { return Over(back, FlashColor(state, 1.0)); };
    };
    const auto move = [](TPriceChangeState state) { return [=] { return MoveColor(state); }; };
    const auto side = [](Integer which) { return [=](const QColor&) { return SideColor(which); }; };
    const auto group = [](Integer which) {
        return [=](const QColor&) { return GroupColor(which); };
    };
    const std::vector<P::ColorRole> rows = {P::Base, P::AlternateBase};
    const TPair pairs[] = {
        {"window", role(P::WindowText), {P::Window}},
        {"rows", role(P::Text), rows},
        {"button", role(P::ButtonText), {P::Button}},
        {"chosen row", role(P::HighlightedText), {P::Highlight}},
        {"tool tip", role(P::ToolTipText), {P::ToolTipBase}},
        {"hint in a field", role(P::PlaceholderText), {P::Base}},
        {"off, window", role(P::WindowText, P::Disabled), {P::Window}},
        {"off, field", role(P::Text, P::Disabled), {P::Base, P::Window}},
        {"off, button", role(P::ButtonText, P::Disabled), {P::Button}},
        {"old rows", QuietTextColor, rows},
        {"risen", move(pcsUp), rows},
        {"fallen", move(pcsDown), rows},
        {"flash up", role(P::Text), rows, flash(pcsUp)},
        {"flash down", role(P::Text), rows, flash(pcsDown)},
        {"flash up, chosen", role(P::HighlightedText), {P::Highlight}, flash(pcsUp)},
        {"flash down, chosen", role(P::HighlightedText), {P::Highlight}, flash(pcsDown)},
        {"buy", SideTextColor, {P::Button}, side(OrderSide::Buy)},
        {"sell", SideTextColor, {P::Button}, side(OrderSide::Sell)},
        {"group A", SideTextColor, {P::Window}, group(1)},
        {"group B", SideTextColor, {P::Window}, group(2)},
    };
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("back");
    for (const TTheme theme : {TTheme::Light, TTheme::Dark}) {
        ApplyTheme(*qApp, theme);
        for (const TPair& pair : pairs) {
            for (const P::ColorRole back : pair.Backs) {
                QTest::addRow("%s, %s %d", theme == TTheme::Light ? "light" : "dark", pair.Name,
                              static_cast<int>(back))
                    << pair.Text() << pair.OnBack(QApplication::palette().color(back));
            }
        }
    }
}

void TAccessTest::ColoursCanBeRead() {
    constexpr double least = 4.5;
    QFETCH(QColor, text);
    QFETCH(QColor, back);
    QVERIFY2(Contrast(text, back) >= least, qPrintable(text.name() + " on " + back.name() + ": " +
                                                       QString::number(Contrast(text, back))));
}

} // namespace quorin

QTEST_MAIN(quorin::TAccessTest)
#include "AccessTest.moc"
