#include "embedded/DataError.h"
#include "terminal/desktop/MainWindow.h"
#include "terminal/forms/DataFolder.h"

#include <QApplication>
#include <QPixmap>
#include <QProgressDialog>
#include <QTimer>

#include <iostream>

namespace quorin {
namespace {

constexpr const char* ProgramName = "quorin-terminal";
constexpr int CannotWrite = 1;
constexpr int Unusable = 2;

// What Qt says of a machine without a display is no news where none is asked for.
void DropMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type >= QtCriticalMsg) std::cerr << text.toStdString() << '\n';
}

int TakePicture(TMainWindow& window, TDesktopSession& session, const TDesktopOptions& options) {
    window.show();
    QApplication::processEvents(); // every form has its size
    for (Integer step = 0; step < options.Steps; ++step) {
        window.Frame(); // subscribes what is on screen
        session.Step();
    }
    window.Frame();
    QApplication::processEvents();
    const QString file = QString::fromStdString(options.Screenshot.string());
    if (window.grab().save(file, "PNG")) return 0;
    std::cerr << ProgramName << ": " << options.Screenshot.string() << ": cannot be written\n";
    return CannotWrite;
}

// Shows how far loading is once it takes a while, and lets the person break it off. The texts are
// English: the others are among what is still to be loaded.
class TLoadWindow {
public:
    TLoadWindow() : FDialog(QStringLiteral("Loading symbols"), QStringLiteral("Cancel"), 0, Full) {
        FDialog.setWindowTitle(QLatin1String(ProgramName));
        FDialog.setMinimumDuration(Patience);
    }
    TLoadProgress Progress() {
        return [this](Double part) {
            FDialog.setValue(static_cast<int>(part * Full));
            QApplication::processEvents();
            return !FDialog.wasCanceled();
        };
    }
    void Close() { FDialog.reset(); }

private:
    static constexpr int Full = 1000;
    static constexpr int Patience = 400; // milliseconds

    QProgressDialog FDialog;
};

int Measure(TMainWindow& window, TDesktopSession& session, Integer seconds) {
    constexpr int millisecondsPerSecond = 1000;
    const Int64 updates = session.Updates();
    const Int64 frames = window.Frames();
    QTimer::singleShot(seconds * millisecondsPerSecond, &window, [] { QApplication::quit(); });
    const int status = QApplication::exec();
    std::cout << (session.Updates() - updates) / seconds << " updates/s, "
              << (window.Frames() - frames) / seconds << " frames/s, longest pause "
              << window.LongestPause() << " ms\n";
    return status;
}

// Says each problem of the workspace once, at the start or at the end.
class TWorkspaceTeller {
public:
    explicit TWorkspaceTeller(const TWorkspace& workspace) : FWorkspace(workspace) { Tell(); }
    TWorkspaceTeller(const TWorkspaceTeller&) = delete;
    TWorkspaceTeller& operator=(const TWorkspaceTeller&) = delete;
    ~TWorkspaceTeller() { Tell(); }

private:
    void Tell() {
        if (FWorkspace.Problem() == FTold) return;
        FTold = FWorkspace.Problem();
        std::cerr << ProgramName << ": " << FTold.toStdString() << '\n';
    }

    const TWorkspace& FWorkspace;
    QString FTold;
};

int Run(QApplication& application, TDesktopOptions options) {
    TWorkspace workspace(QString::fromStdString(options.Workspace.string()));
    const TWorkspaceTeller teller(workspace);
    if (!options.Language.has_value()) options.Language = workspace.Language();
    if (!options.Theme.has_value()) options.Theme = workspace.Theme();
    ApplyTheme(application, options.Theme.value_or(TTheme::Light));
    TLoadWindow load;
    TDesktopSession session(options, DataFolder(QUORIN_INSTALLED_DATA_DIR, QUORIN_DATA_DIR),
                            options.Screenshot.empty() ? load.Progress() : TLoadProgress());
    load.Close();
    TMainWindow window(session, options, workspace);
    if (!options.Screenshot.empty()) return TakePicture(window, session, options);
    QObject::connect(&window, &TMainWindow::Closed, &application, [] { QApplication::exit(); });
    window.show();
    QApplication::processEvents(); // the first layout is no pause of a running window
    window.Frame();
    window.Start(options.StepSeconds);
    return options.MeasureSeconds > 0 ? Measure(window, session, options.MeasureSeconds)
                                      : QApplication::exec();
}

} // namespace
} // namespace quorin

int main(int argc, char** argv) {
    using namespace quorin;
    const TDesktopCommandLine line = ParseDesktopCommandLine(argc, argv);
    std::cout << line.Output;
    if (!line.Error.empty()) std::cerr << ProgramName << ": " << line.Error << '\n';
    if (!line.Options.has_value()) return line.ExitStatus;
    // A picture needs no display, and looks the same with one.
    if (!line.Options->Screenshot.empty()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(DropMessage);
    }
    try {
        int noArguments = 1; // the program's own are not Qt's
        QApplication application(noArguments, argv);
        return Run(application, *line.Options);
    } catch (const std::exception& error) {
        std::cerr << ProgramName << ": " << error.what() << '\n';
        return Unusable;
    }
}
