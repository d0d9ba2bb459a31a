#pragma once

#include "embedded/Host.h"

namespace quorin {

// A host with nobody to talk to, for programs without a user: messages and log lines go nowhere,
// every question gets its default answer, and no channel message is taken in. A program that has
// one of these overrides it.
class TSilentHost : public THost {
public:
    void ShowMessage(StringView) override {}
    Integer Confirm(StringView, Integer defaultAnswer) override { return defaultAnswer; }
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer, Pointer) override { return false; }
};

} // namespace quorin
