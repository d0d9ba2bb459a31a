#pragma once

#include "embedded/Host.h"
#include "platform/rtl/TEvent.h"
#include "platform/rtl/TList.h"
#include "platform/rtl/Utf.h"
#include "viewdata/services/MessageBoxCtrl.h"

#include <gtest/gtest.h>

namespace quorin {

// A host that plays the user and the application of a test. A message, question or log line that
// the test did not expect fails it on the spot; one that it expected and that never came fails it
// in Verify. Channel messages are recorded and go to the test's own receiver, if there is one.
class TRecordingHost : public THost {
public:
    // Answers whether it takes the message in.
    using TReceiver = TEvent<Boolean(Integer, Pointer)>;

    // In the order in which they are to come, each exactly once.
    void ExpectMessage(StringView text) { FMessages.Add(String(text)); }
    void ExpectQuestion(StringView text, Integer answer) {
        FQuestions.Add(TQuestion{String(text), answer});
    }
    void ExpectLogLine(StringView line) { FLogLines.Add(String(line)); }
    void SetReceiver(const TReceiver& receiver) { FReceiver = receiver; }

    // Numbers of the channel messages so far.
    const TList<Integer>& ChannelMessages() const { return FChannelMessages; }

    // Fails for everything that was expected and has not come.
    void Verify() {
        for (const String& text : FMessages) ADD_FAILURE() << "no message: " << ToUtf8(text);
        for (const TQuestion& question : FQuestions) {
            ADD_FAILURE() << "no question: " << ToUtf8(question.Text);
        }
        for (const String& line : FLogLines) ADD_FAILURE() << "no log line: " << ToUtf8(line);
    }

    void ShowMessage(StringView text) override { Take(FMessages, text, "message"); }
    Integer Confirm(StringView text, Integer) override {
        if (FQuestions.IsEmpty() || FQuestions[0].Text != text) {
            ADD_FAILURE() << "unexpected question: " << ToUtf8(text);
            return 0;
        }
        return FQuestions.Extract(0).Answer;
    }
    void WriteLog(StringView line, Byte) override { Take(FLogLines, line, "log line"); }
    Boolean ChannelMessage(Integer number, Pointer data) override {
        FChannelMessages.Add(number);
        return FReceiver && FReceiver(number, data);
    }

private:
    struct TQuestion {
        String Text;
        Integer Answer;
    };
    static void Take(TList<String>& expected, StringView text, const char* kind) {
        if (expected.IsEmpty() || expected[0] != text) {
            ADD_FAILURE() << "unexpected " << kind << ": " << ToUtf8(text);
        } else {
            expected.Delete(0);
        }
    }

    TList<String> FMessages;
    TList<TQuestion> FQuestions;
    TList<String> FLogLines;
    TList<Integer> FChannelMessages;
    TReceiver FReceiver;
};

} // namespace quorin
