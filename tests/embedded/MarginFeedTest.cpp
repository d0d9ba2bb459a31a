#include "embedded/MarginFeed.h"

#include "tests/support/ServicesFixture.h"

namespace quorin {
namespace {

// A feed for all other keys, which writes down what it is asked for.
class TOtherFeed : public TItemFeed {
public:
    void Requested(TEmbeddedSubItem& item) override { Asked += item.GetKey() + u" "; }
    String Asked;
};

class MarginFeedTest : public TServicesFixture {
protected:
    TCustomSubItem& Ask(StringView key) {
        return *TCustomSubscribeAdapter::GetInstance()->GetSubItem(key, LiveDataType, true);
    }
};

TEST_F(MarginFeedTest, AnswersWithTheNextDelivery) {
    TOtherFeed other;
    Services().Items().SetFeed(&other);
    Services().Margins().Serve();
    Services().Margins().FeedMargin(u"HSI*", {-500.0, std::nullopt, std::nullopt, 300.0});
    TCustomSubItem& known = Ask(u"SPAN_HSI*");
    TCustomSubItem& unknown = Ask(u"SPAN_TCH");
    Ask(u"00700");
    EXPECT_EQ(known.GetStatus(), ItemStatus::Waiting) << "inside the look-up";
    EXPECT_EQ(unknown.GetStatus(), ItemStatus::Waiting);
    EXPECT_FALSE(known.HasField(Field::FirstMargin));

    TCountingReceiver receiver;
    Services().Items().Subscribe(&unknown, receiver.Event(), &receiver);
    Services().Deliver();
    EXPECT_EQ(known.GetStatus(), ItemStatus::Ready);
    EXPECT_EQ(known.GetFieldDouble(200), -500.0);
    EXPECT_EQ(known.GetFieldDouble(203), 300.0);
    EXPECT_FALSE(known.HasField(201));
    EXPECT_EQ(unknown.GetStatus(), ItemStatus::NoData);
    EXPECT_EQ(receiver.Count(), 1) << "that there is nothing is told as well";
    EXPECT_EQ(other.Asked, u"00700 ");

    Services().Margins().FeedMargin(u"TCH", {std::nullopt, 7.0});
    Services().Margins().FeedMargin(u"HSI*", {std::nullopt, 9.0});
    Services().Deliver();
    EXPECT_EQ(unknown.GetStatus(), ItemStatus::Ready) << "arrived later";
    EXPECT_EQ(unknown.GetFieldDouble(201), 7.0);
    EXPECT_EQ(receiver.Count(), 2);
    EXPECT_FALSE(known.HasField(200)) << "replaced as a whole";
    EXPECT_EQ(known.GetFieldDouble(201), 9.0);
    Services().Items().Unsubscribe(&unknown, &receiver);
    Services().Items().SetFeed(nullptr);
}

} // namespace
} // namespace quorin
