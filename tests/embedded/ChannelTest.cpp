#include "embedded/ChannelService.h"

#include "tests/support/ServicesFixture.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/OrderRecords.h"

#include <functional>
#include <memory>
#include <utility>

namespace quorin {
namespace {

// Writes down what it hears, "group G symbol=A" or "list A", and may act once inside the callback.
class TChannelReceiver : public TObject {
public:
    TDataCallbackEvent Event() { return MakeEvent<&TChannelReceiver::Called>(this); }
    String Take() { return std::exchange(FHeard, String()); }
    void ActInside(std::function<void()> action) { FAction = std::move(action); }

private:
    void Called(Pointer Sender, Pointer) {
        if (!FHeard.empty()) FHeard += u"; ";
        if (const auto* group = ObjectAs<TCustomGroupData>(Sender)) {
            FHeard += u"group " + group->GetGroupID() + u" " +
                      (group->GetChannel() == Channel::CurrentSymbol ? u"symbol=" : u"account=") +
                      group->GetChannelValue(group->GetChannel());
        } else if (const auto* list = ObjectAs<TCustomListObject>(Sender)) {
            FHeard += list->IsEmpty() ? u"nothing" : u"list " + list->GetText();
        } else {
            FHeard += u"neither";
        }
        if (FAction) std::exchange(FAction, nullptr)();
    }

    String FHeard;
    std::function<void()> FAction;
};

class ChannelTest : public TServicesFixture {
protected:
    ~ChannelTest() override {
        for (TChannelReceiver* receiver : {&FInGroup, &FOnChannel, &FOther}) {
            Manager().RemoveGroupCallback(u"G", receiver);
            Manager().RemoveChannelCallback(Channel::CurrentSymbol, receiver);
            Manager().RemoveChannelCallback(Channel::CurrentAccount, receiver);
        }
    }
    TCustomGlobalChannelManager& Manager() { return *TCustomGlobalChannelManager::GetInstance(); }
    void Publish(StringView value, StringView group) {
        Manager().PublishValue(Channel::CurrentSymbol, value, u"", group);
    }

    TChannelReceiver FInGroup;
    TChannelReceiver FOnChannel;
    TChannelReceiver FOther;
};

TEST_F(ChannelTest, AChannelCallbackOfTheGroupCallbackWaits) {
    Manager().RegisterGroupCallback(u"G", FInGroup.Event(), &FInGroup);
    FInGroup.ActInside([&] {
        Manager().RegisterChannelCallback(Channel::CurrentSymbol, FOther.Event(), &FOther);
    });
    Publish(u"A", u"G");
    EXPECT_EQ(FOther.Take(), u"");
    Publish(u"B", u"G");
    EXPECT_EQ(FOther.Take(), u"group G symbol=B");
}

TEST_F(ChannelTest, WhoHearsWhat) {
    Manager().RegisterGroupCallback(u"G", FInGroup.Event(), &FInGroup);
    Manager().RegisterChannelCallback(Channel::CurrentSymbol, FOnChannel.Event(), &FOnChannel);
    Manager().RegisterChannelCallback(Channel::CurrentAccount, FOther.Event(), &FOther);

    struct TCase {
        const char* Name;
        StringView Value;
        StringView Group;
        StringView InGroup;
        StringView OnChannel;
    };
    const TCase cases[] = {
        {"in the group", u"A", u"G", u"group G symbol=A", u"group G symbol=A"},
        {"the same value again", u"A", u"G", u"group G symbol=A", u"group G symbol=A"},
        {"empty in the group", u"", u"G", u"group G symbol=", u"group G symbol="},
        {"in another group", u"B", u"H", u"", u"group H symbol=B"},
        {"out of no group", u"C", u"", u"", u"list C"},
        {"empty, out of no group", u"", u"", u"", u"nothing"},
    };
    for (const TCase& row : cases) {
        Publish(row.Value, row.Group);
        EXPECT_EQ(FInGroup.Take(), row.InGroup) << row.Name;
        EXPECT_EQ(FOnChannel.Take(), row.OnChannel) << row.Name;
        EXPECT_EQ(FOther.Take(), u"") << row.Name;
    }
}

TEST_F(ChannelTest, ReceiversComeAndGoInsideCallbacks) {
    Manager().RegisterGroupCallback(u"G", FInGroup.Event(), &FInGroup);
    Manager().RegisterChannelCallback(Channel::CurrentSymbol, FOnChannel.Event(), &FOnChannel);
    FInGroup.ActInside([&] {
        Manager().RemoveChannelCallback(Channel::CurrentSymbol, &FOnChannel);
        Manager().RegisterGroupCallback(u"G", FOther.Event(), &FOther);
        const Integer manyChannels = 100; // so that the lists of registrations grow meanwhile
        for (Integer channel = 1000; channel < 1000 + manyChannels; ++channel) {
            Manager().RegisterChannelCallback(channel, FOther.Event(), &FOther);
            Manager().RemoveChannelCallback(channel, &FOther);
        }
    });
    Publish(u"A", u"G");
    EXPECT_EQ(FInGroup.Take(), u"group G symbol=A");
    EXPECT_EQ(FOnChannel.Take(), u"") << "removed before its turn";
    EXPECT_EQ(FOther.Take(), u"") << "added: waits for the next change";

    Publish(u"B", u"G");
    EXPECT_EQ(FOther.Take(), u"group G symbol=B");
}

TEST_F(ChannelTest, PublishedTextMayDieInsideTheCallback) {
    auto value = std::make_unique<String>(u"a value that is too long to lie inside its object");
    auto group = std::make_unique<String>(u"G and more text than an object holds in itself");
    Manager().RegisterGroupCallback(*group, FInGroup.Event(), &FInGroup);
    Manager().RegisterChannelCallback(Channel::CurrentSymbol, FOnChannel.Event(), &FOnChannel);
    const String heard = u"group " + *group + u" symbol=" + *value;
    FInGroup.ActInside([&] {
        Manager().RemoveGroupCallback(*group, &FInGroup);
        value.reset();
        group.reset();
    });
    Publish(*value, *group);
    EXPECT_EQ(FOnChannel.Take(), heard);
}

TEST_F(ChannelTest, FreesTheListOfAMessageThatNobodyTakes) {
    struct TList : TObject {
        explicit TList(bool& gone) : Gone(gone) {}
        ~TList() override { Gone = true; }
        bool& Gone;
    };
    bool isGone = false;
    TOrderTakeActionRecord record;
    record.Order = new TList(isGone);
    Manager().SendChannelMessage(ChannelMessage::CloseAllPositions, &record);
    EXPECT_TRUE(isGone);
    EXPECT_FALSE(record.Result);
}

} // namespace
} // namespace quorin
