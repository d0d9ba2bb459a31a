#pragma once

#include "embedded/Host.h"

#include <ostream>

namespace quorin {

// The console as a host: it shows prices and takes no orders, so messages go to the error stream
// and questions are answered with no.
class TConsoleHost : public THost {
public:
    explicit TConsoleHost(std::ostream& errors) : FErrors(errors) {}

    void ShowMessage(StringView text) override;
    Integer Confirm(StringView text, Integer defaultAnswer) override;
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer, Pointer) override { return false; }

private:
    std::ostream& FErrors;
};

} // namespace quorin
