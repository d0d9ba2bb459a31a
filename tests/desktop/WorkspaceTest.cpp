#include "terminal/desktop/Workspace.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

namespace quorin {

// The file of forms and layouts: several write it, and it may be odd.
class TWorkspaceTest : public QObject {
    Q_OBJECT

private slots:
    void StoresFromTwoSidesAtOnce();
    void SaysOnceThatAFileIsOdd_data();
    void SaysOnceThatAFileIsOdd();

private:
    QString File() const { return FFolder.filePath("terminal.json"); }
    void Write(const QByteArray& content) const;

    QTemporaryDir FFolder;
};

void TWorkspaceTest::Write(const QByteArray& content) const {
    QFile file(File());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void TWorkspaceTest::StoresFromTwoSidesAtOnce() {
    constexpr int values = 60;
    const auto store = [this](const char* name) {
        TWorkspace workspace(File());
        for (int number = 0; number < values; ++number) {
            workspace.Set(QString(name) + QString::number(number), "here");
            workspace.Store();
        }
    };
    std::thread other(store, "other");
    store("this");
    other.join();
    const TWorkspace after(File());
    QVERIFY(after.Problem().isEmpty());
    for (int number = 0; number < values; ++number) {
        QCOMPARE(after.Value("other" + QString::number(number)), QStringLiteral("here"));
        QCOMPARE(after.Value("this" + QString::number(number)), QStringLiteral("here"));
    }
}

void TWorkspaceTest::SaysOnceThatAFileIsOdd_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("keptBehind");
    QTest::newRow("later version")
        << QByteArray(R"({"version":9,"values":{"old":"value"}})") << ".version-9";
    QTest::newRow("no version") << QByteArray(R"({"values":{"old":"value"}})") << ".version-0";
    QTest::newRow("cut off") << QByteArray(R"({"version":1,"values":{"old":"val)") << ".bad";
    QTest::newRow("binary") << QByteArray("\0\xFF\xFE{", 4) << ".bad";
}

// Found at the start, or put there by somebody else while the terminal ran.
void TWorkspaceTest::SaysOnceThatAFileIsOdd() {
    QFETCH(QByteArray, content);
    QFETCH(QString, keptBehind);
    Write(R"({"version":1,"values":{"own":"1"}})");
    TWorkspace running(File());
    Write(content);
    TWorkspace started(File());
    QVERIFY(running.Problem().isEmpty());
    QVERIFY(started.Problem().contains(keptBehind));
    for (TWorkspace* workspace : {&running, &started}) {
        workspace->Set("new", workspace == &running ? "1" : "2");
        QVERIFY(workspace->Store());
        QFile kept(File() + keptBehind);
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), content);
        const TWorkspace after(File());
        QVERIFY2(after.Problem().isEmpty(), qPrintable(after.Problem()));
        if (keptBehind == ".bad") QCOMPARE(after.Value("own"), QStringLiteral("1"));
        if (keptBehind != ".bad") QCOMPARE(after.Value("old"), QStringLiteral("value"));
    }
}

} // namespace quorin

QTEST_MAIN(quorin::TWorkspaceTest)
#include "WorkspaceTest.moc"
