#include "terminal/console/Screen.h"

#include "platform/rtl/Utf.h"
#include "terminal/console/TextWidth.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <string>
#include <string_view>

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>

namespace quorin {

namespace {

constexpr const char* EnterScreen = "\x1b[?1049h\x1b[?25l\x1b[2J";
constexpr const char* LeaveScreen = "\x1b[?25h\x1b[?1049l";
constexpr const char* Home = "\x1b[H";
constexpr const char* ClearToLineEnd = "\x1b[K";
constexpr const char* ClearBelow = "\x1b[J";

constexpr int EndSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr Integer DefaultColumns = 80;
constexpr Integer DefaultLines = 24;

volatile std::sig_atomic_t IsEndRequested = 0;
volatile std::sig_atomic_t IsSizeChanged = 0;

void RequestEnd(int) {
    IsEndRequested = 1;
}
void NoteSize(int) {
    IsSizeChanged = 1;
}

// False once the terminal takes no more.
bool Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

struct TSize {
    Integer Columns;
    Integer Lines;
};

TSize ScreenSize() {
    winsize size = {};
    ioctl(STDOUT_FILENO, TIOCGWINSZ, &size);
    return {size.ws_col > 0 ? size.ws_col : DefaultColumns,
            size.ws_row > 0 ? size.ws_row : DefaultLines};
}

// Signals arrive only while the wait sleeps, so that none is missed between look and sleep.
sigset_t WatchedSignals() {
    sigset_t watched;
    sigemptyset(&watched);
    for (const int signal : EndSignals) sigaddset(&watched, signal);
    sigaddset(&watched, SIGWINCH);
    return watched;
}

} // namespace

struct TScreen::TState {
    bool HasKeys = false;
    termios Before{};
    sigset_t MaskBefore{};
    struct sigaction EndBefore[std::size(EndSignals)] = {};
    struct sigaction SizeBefore = {};
};

bool TScreen::IsThere() {
    return isatty(STDOUT_FILENO) == 1;
}

bool TScreen::HasKeys() {
    return isatty(STDIN_FILENO) == 1;
}

TScreen::TScreen() : FState(std::make_unique<TState>()) {
    IsEndRequested = 0;
    IsSizeChanged = 0;
    const sigset_t watched = WatchedSignals();
    sigprocmask(SIG_BLOCK, &watched, &FState->MaskBefore);
    struct sigaction action = {};
    action.sa_handler = RequestEnd;
    for (std::size_t index = 0; index < std::size(EndSignals); ++index) {
        sigaction(EndSignals[index], &action, &FState->EndBefore[index]);
    }
    action.sa_handler = NoteSize;
    sigaction(SIGWINCH, &action, &FState->SizeBefore);

    FState->HasKeys = tcgetattr(STDIN_FILENO, &FState->Before) == 0;
    if (FState->HasKeys) {
        termios raw = FState->Before;
        raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG); // Ctrl-C is a key as well
        raw.c_cc[VMIN] = 0;
        raw.c_cc[VTIME] = 0;
        tcsetattr(STDIN_FILENO, TCSANOW, &raw);
    }
    Write(EnterScreen);
}

TScreen::~TScreen() {
    Write(LeaveScreen);
    if (FState->HasKeys) tcsetattr(STDIN_FILENO, TCSAFLUSH, &FState->Before);
    for (std::size_t index = 0; index < std::size(EndSignals); ++index) {
        sigaction(EndSignals[index], &FState->EndBefore[index], nullptr);
    }
    sigaction(SIGWINCH, &FState->SizeBefore, nullptr);
    sigprocmask(SIG_SETMASK, &FState->MaskBefore, nullptr);
}

Integer TScreen::Height() const {
    return ScreenSize().Lines;
}

void TScreen::Paint(const std::vector<String>& lines) {
    const TSize size = ScreenSize();
    const auto height = static_cast<std::size_t>(size.Lines);
    std::string bytes = Home;
    const std::size_t count = std::min(lines.size(), height);
    for (std::size_t index = 0; index < count; ++index) {
        if (index > 0) bytes += "\r\n";
        bytes += ClearToLineEnd; // before the text: behind a full line it would take its end
        bytes += ToUtf8(FitText(lines[index], std::min(TextWidth(lines[index]), size.Columns)));
    }
    if (count < height) bytes += std::string("\r\n") + ClearBelow;
    if (!Write(bytes)) IsEndRequested = 1;
}

TScreen::TEvent TScreen::Wait(Double seconds) {
    constexpr Double nanoseconds = 1e9;
    const Double whole = std::max(seconds, 0.0);
    timespec timeout = {};
    timeout.tv_sec = static_cast<time_t>(whole);
    timeout.tv_nsec =
        static_cast<long>((whole - static_cast<Double>(timeout.tv_sec)) * nanoseconds);
    pollfd keys = {STDIN_FILENO, POLLIN, 0};
    const int ready =
        IsEndRequested ? 0 : ppoll(&keys, FState->HasKeys ? 1 : 0, &timeout, &FState->MaskBefore);
    if (IsEndRequested || ready > 0) return TEvent::Ended;
    if (IsSizeChanged) {
        IsSizeChanged = 0;
        return TEvent::Resized;
    }
    return TEvent::Timeout;
}

} // namespace quorin
