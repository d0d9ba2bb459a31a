#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// The program around the embedded services: what they hand to it because only it has a user, a
// screen and forms. Called on the thread of the views; it must live longer than the services.
class THost {
public:
    THost() = default;
    THost(const THost&) = delete;
    THost& operator=(const THost&) = delete;
    virtual ~THost() = default;

    // Shows a message and returns when the user has seen it.
    virtual void ShowMessage(StringView text) = 0;
    // Asks and answers ConfirmYes or anything else; `defaultAnswer` is the button to begin with.
    virtual Integer Confirm(StringView text, Integer defaultAnswer) = 0;
    virtual void WriteLog(StringView line, Byte level) = 0;
    // Does what the view layer asks for and writes the answer into the record at `data`, which is
    // nil for a message without a record. See ChannelMessages.h. False for a message that it does
    // not take in; what it takes in is its own to free where the record says so.
    virtual Boolean ChannelMessage(Integer number, Pointer data) = 0;
};

} // namespace quorin
