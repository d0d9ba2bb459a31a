#pragma once

#include "platform/rtl/Types.h"

#include <memory>
#include <vector>

namespace quorin {

// The user's terminal, taken over for as long as this lives: the alternate screen, no echo, no
// cursor. The destructor gives everything back, also after a signal asked for the end.
class TScreen {
public:
    TScreen();
    TScreen(const TScreen&) = delete;
    TScreen& operator=(const TScreen&) = delete;
    ~TScreen();

    // Standard output is a terminal.
    static bool IsThere();
    // So is standard input.
    static bool HasKeys();

    // Lines that fit.
    Integer Height() const;
    // Shows the lines from the top, cut to the size of the screen.
    void Paint(const std::vector<String>& lines);

    enum class TEvent { Timeout, Resized, Ended };
    // Waits at most that long. Ended: a key, Ctrl-C or a request to end.
    TEvent Wait(Double seconds);

private:
    struct TState;
    std::unique_ptr<TState> FState;
};

} // namespace quorin
