#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr const char* EnterScreen = "\x1b[?1049h";
constexpr const char* LeaveScreen = "\x1b[?1049l";
constexpr const char* Paint = "\x1b[H";
// What a terminal does for its user before and after.
constexpr tcflag_t UserFlags = ECHO | ICANON | ISIG;
constexpr int Patience = 20000; // milliseconds; passes only where something is wrong

// The console on a terminal of its own, which the test is the user of.
class TUser {
public:
    explicit TUser(const std::string& recording, unsigned short columns) {
        winsize size = {20, columns, 0, 0};
        FChild = forkpty(&FTerminal, nullptr, nullptr, &size);
        if (FChild != 0) return;
        execl(QUORIN_CONSOLE, QUORIN_CONSOLE, "--replay", recording.c_str(), "--poll", "0.05",
              static_cast<char*>(nullptr));
        _exit(127);
    }
    ~TUser() {
        if (!FHasEnded) {
            kill(FChild, SIGKILL);
            waitpid(FChild, nullptr, 0);
        }
        close(FTerminal);
    }

    void Type(char key) { EXPECT_EQ(write(FTerminal, &key, 1), 1); }
    void Signal(int signal) { kill(FChild, signal); }
    void Resize(unsigned short columns) {
        winsize size = {20, columns, 0, 0};
        ioctl(FTerminal, TIOCSWINSZ, &size);
    }
    // Reads until the text has come after what was seen before; False when it does not come.
    bool See(const std::string& text) {
        for (;;) {
            const std::size_t found = Seen.find(text, FLooked);
            if (found != std::string::npos) {
                FLooked = found + text.size();
                return true;
            }
            if (!Read()) return false;
        }
    }
    // The exit status; -1 when it did not end by itself.
    int End() {
        while (Read()) {
        }
        int status = 0;
        FHasEnded = waitpid(FChild, &status, 0) == FChild;
        return FHasEnded && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    termios Settings() const {
        termios settings = {};
        tcgetattr(FTerminal, &settings);
        return settings;
    }

    std::string Seen;

private:
    bool Read() {
        pollfd ready = {FTerminal, POLLIN, 0};
        if (poll(&ready, 1, Patience) <= 0) return false;
        char bytes[4096];
        const ssize_t count = read(FTerminal, bytes, sizeof bytes);
        if (count <= 0) return false;
        Seen.append(bytes, static_cast<std::size_t>(count));
        return true;
    }

    int FTerminal = -1;
    pid_t FChild = -1;
    std::size_t FLooked = 0;
    bool FHasEnded = false;
};

struct TScreenTest : testing::Test {
    TScreenTest() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        Recording = testing::TempDir() + "quorin-screen-" + test->name() + ".csv";
        std::ofstream(Recording) << "time,symbol,event,price,qty,bid,bid_qty,ask,ask_qty\n"
                                    "34200.0,TINY,T,10.02,1000,10.00,500,10.02,300\n"
                                    "34200.4,TINY,T,10.00,200,,,,\n";
    }
    std::string Recording;
};

TEST_F(TScreenTest, EndsAndGivesTheTerminalBack) {
    const struct {
        const char* Name;
        void (*Do)(TUser&);
    } cases[] = {
        {"key", [](TUser& user) { user.Type('q'); }},
        {"Ctrl-C", [](TUser& user) { user.Type('\x03'); }},
        {"interrupt", [](TUser& user) { user.Signal(SIGINT); }},
        {"request to end", [](TUser& user) { user.Signal(SIGTERM); }},
    };
    for (const auto& row : cases) {
        TUser user(Recording, 120);
        ASSERT_TRUE(user.See(EnterScreen)) << row.Name;
        ASSERT_TRUE(user.See("#2")) << row.Name << user.Seen;
        EXPECT_EQ(user.Settings().c_lflag & UserFlags, 0u) << row.Name;
        row.Do(user);
        ASSERT_TRUE(user.See(LeaveScreen)) << row.Name;
        EXPECT_TRUE(user.See("deliveries 2")) << row.Name;
        EXPECT_EQ(user.End(), 0) << row.Name;
        EXPECT_EQ(user.Settings().c_lflag & UserFlags, UserFlags) << row.Name;
    }
}

TEST_F(TScreenTest, PaintsOncePerDeliveryAndAfterAResize) {
    TUser user(Recording, 40);
    ASSERT_TRUE(user.See("#2")) << user.Seen;
    ASSERT_TRUE(user.See("TINY         TINY                      \u2026")) << user.Seen;
    user.Resize(120);
    ASSERT_TRUE(user.See("TINY         TINY                      500      10.00")) << user.Seen;
    user.Type(' ');
    EXPECT_EQ(user.End(), 0);
    int paints = 0;
    for (std::size_t at = 0; (at = user.Seen.find(Paint, at)) != std::string::npos; ++at) ++paints;
    EXPECT_EQ(paints, 4); // before the first delivery, two deliveries, the resize
}

} // namespace
