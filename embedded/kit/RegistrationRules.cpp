#include "embedded/kit/RegistrationRules.h"

namespace quorin {

namespace {

// The rules of one event. Each begins with nothing registered and nothing waiting, and ends so.
class TRules {
public:
    TRules(TChecker& check, TServiceDriver& driver, const TEventRow& row)
        : FCheck(check), FDriver(driver), FRow(row) {}

    void CheckAll() {
        CallsNothingInside();
        CallsOncePerDelivery();
        Replaces();
        CallsEveryOwner();
        Removes();
        AddedInside();
        RemovedInside();
        RemovesItself();
        OwnerDies();
        ReplacedInside();
        OtherReplacedInside();
        Nests();
    }

private:
    TCallRecorder& Registered() {
        TCallRecorder& recorder = FCheck.NewRecorder();
        FRow.Register(recorder, recorder.Owner());
        return recorder;
    }
    void Remove(TCallRecorder& recorder) { FRow.Remove(recorder.Owner()); }
    // The end of a rule: a service that calls on regardless finds nothing left to do.
    void End(TCallRecorder& recorder) {
        recorder.OnCall(nullptr);
        if (recorder.Owner() != nullptr) Remove(recorder);
    }
    void Deliver() {
        FRow.Change();
        FDriver.Deliver();
    }
    String Rule(StringView rule) const { return String(FRow.Name) + u": " + String(rule); }
    void Counts(StringView rule, Integer expected, Integer came, StringView where = {}) {
        FCheck.Equal(Rule(rule), expected, came, where);
    }

    void CallsNothingInside() {
        const StringView rule = u"registering and removing call nobody";
        FDriver.Deliver();
        TCallRecorder& early = Registered();
        FRow.Change();
        early.Reset(); // of a service that delivers at once
        TCallRecorder& late = Registered();
        Counts(rule, 0, early.Count(), u"another owner");
        Counts(rule, 0, late.Count(), u"the owner that registers");
        End(late);
        Counts(rule, 0, early.Count() + late.Count(), u"removing");
        FDriver.Deliver();
        Counts(u"what was removed before the delivery is not called", 0, late.Count());
        End(early);
    }

    void CallsOncePerDelivery() {
        TCallRecorder& recorder = Registered();
        String problem;
        recorder.OnCall([&](Pointer sender) {
            if (FRow.Inspect && problem.empty()) problem = FRow.Inspect(sender);
        });
        for (Integer delivery = 1; delivery <= 3; ++delivery) {
            Deliver();
            Counts(u"one call for each delivery", delivery, recorder.Count());
        }
        if (FRow.Inspect)
            FCheck.NoProblem(Rule(u"the sender is what the operation names"), problem);
        Counts(u"Data is nil", 0, recorder.DataCount());
        End(recorder);
    }

    void Replaces() {
        TCallRecorder& first = Registered();
        TCallRecorder& second = FCheck.NewRecorder();
        const StringView rule = u"registering again replaces the callback";
        for (const Integer delivery : {1, 2}) { // the second time with the callback that is there
            FRow.Register(second, first.Owner());
            Deliver();
            Counts(rule, 0, first.Count(), u"the replaced callback");
            Counts(rule, delivery, second.Count(), u"the new callback");
        }
        End(first);
        Deliver();
        Counts(u"one removal ends a replaced registration", 2, first.Count() + second.Count());
    }

    void CallsEveryOwner() {
        TCallRecorder* owners[] = {&Registered(), &Registered(), &Registered()};
        Deliver();
        for (TCallRecorder* owner : owners) {
            Counts(u"every owner is called once", 1, owner->Count());
            End(*owner);
        }
    }

    void Removes() {
        TCallRecorder& stays = Registered();
        TCallRecorder& goes = Registered();
        TObject stranger;
        Remove(goes);
        Remove(goes);
        FRow.Remove(&stranger);
        Deliver();
        Counts(u"a removed owner is not called", 0, goes.Count());
        Counts(u"removing twice, or a stranger, does no harm to others", 1, stays.Count());
        End(stays);
        Deliver();
        Counts(u"a removed owner is not called", 1, stays.Count(), u"the last owner");
    }

    void AddedInside() {
        TCallRecorder& first = Registered();
        TCallRecorder& added = FCheck.NewRecorder();
        first.OnCall([&](Pointer) { FRow.Register(added, added.Owner()); });
        const StringView rule = u"what was added inside a callback waits for the next delivery";
        Deliver();
        Counts(rule, 0, added.Count(), u"the first delivery");
        first.OnCall(nullptr);
        Deliver();
        Counts(rule, 1, added.Count(), u"the next delivery");
        End(first);
        End(added);
    }

    void RemovedInside() {
        TCallRecorder& one = Registered();
        TCallRecorder& other = Registered();
        TCallRecorder& last = Registered();
        one.OnCall([&](Pointer) { Remove(other); });
        other.OnCall([&](Pointer) { Remove(one); });
        Deliver();
        Counts(u"what was removed inside a callback is not called", 1, one.Count() + other.Count());
        Counts(u"a removal inside a callback skips nobody", 1, last.Count());
        End(one);
        End(other);
        End(last);
    }

    void RemovesItself() {
        TCallRecorder& before = Registered();
        TCallRecorder& goes = Registered();
        TCallRecorder& after = Registered();
        goes.OnCall([&](Pointer) { Remove(goes); });
        Deliver();
        Deliver();
        Counts(u"an owner may remove itself inside its callback", 1, goes.Count());
        End(goes);
        Counts(u"a removal inside a callback skips nobody", 2, before.Count());
        Counts(u"a removal inside a callback skips nobody", 2, after.Count());
        End(before);
        End(after);
    }

    void OwnerDies() {
        TCallRecorder& before = Registered();
        TCallRecorder& dies = Registered();
        TCallRecorder& after = Registered();
        dies.OnCall([&](Pointer) {
            if (dies.Owner() == nullptr) return;
            Remove(dies);
            dies.KillOwner();
        });
        Deliver();
        Deliver();
        Counts(u"an owner may die inside its callback", 1, dies.Count());
        End(dies);
        Counts(u"a death inside a callback skips nobody", 2, before.Count());
        Counts(u"a death inside a callback skips nobody", 2, after.Count());
        End(before);
        End(after);
    }

    void ReplacedInside() {
        TCallRecorder& first = Registered();
        TCallRecorder& second = FCheck.NewRecorder();
        first.OnCall([&](Pointer) { FRow.Register(second, first.Owner()); });
        const StringView rule = u"an owner that registers again inside is called once per delivery";
        Deliver();
        Counts(rule, 1, first.Count() + second.Count(), u"the first delivery");
        first.Reset();
        second.Reset();
        Deliver();
        Counts(rule, 1, second.Count(), u"the new callback in the next delivery");
        Counts(rule, 0, first.Count(), u"the old callback in the next delivery");
        End(first);
    }

    void OtherReplacedInside() {
        TCallRecorder& first = Registered();
        TCallRecorder& changed = Registered();
        TCallRecorder& kept = Registered();
        TCallRecorder& second = FCheck.NewRecorder();
        first.OnCall([&](Pointer) {
            FRow.Register(second, changed.Owner());
            FRow.Register(kept, kept.Owner());
        });
        const StringView rule = u"a callback replaced inside another waits for the next delivery";
        Deliver();
        Counts(rule, 0, second.Count(), u"the first delivery");
        Counts(u"the same callback again keeps its turn", 1, kept.Count());
        first.OnCall(nullptr);
        changed.Reset();
        Deliver();
        Counts(rule, 1, second.Count(), u"the next delivery");
        Counts(rule, 0, changed.Count(), u"the old callback in the next delivery");
        End(first);
        End(changed);
        End(kept);
    }

    void Nests() {
        TCallRecorder& first = Registered();
        TCallRecorder& second = Registered();
        bool isNested = false;
        String problem;
        first.OnCall([&](Pointer sender) {
            if (isNested) return;
            isNested = true;
            Deliver();
            if (FRow.Inspect) problem = FRow.Inspect(sender);
        });
        Deliver();
        const StringView rule = u"a delivery inside a callback reaches everybody, and so does the "
                                u"outer one";
        Counts(rule, 2, first.Count(), u"the owner that delivers");
        Counts(rule, 2, second.Count(), u"the other owner");
        if (FRow.Inspect) {
            FCheck.NoProblem(Rule(u"the sender holds for the length of the call"), problem);
        }
        End(first);
        End(second);
    }

    TChecker& FCheck;
    TServiceDriver& FDriver;
    const TEventRow& FRow;
};

} // namespace

void CheckRegistrationRules(TChecker& check, TServiceDriver& driver, const TEventRow& row) {
    TRules(check, driver, row).CheckAll();
    driver.Deliver();
}

void CheckSilentRegistration(TChecker& check, TServiceDriver& driver, const TEventRow& row) {
    const String rule = String(row.Name) + u": registering and removing call nobody";
    TCallRecorder& recorder = check.NewRecorder();
    row.Register(recorder, recorder.Owner());
    row.Register(recorder, recorder.Owner());
    row.Remove(recorder.Owner());
    row.Remove(recorder.Owner());
    driver.Deliver();
    check.Equal(rule, 0, recorder.Count());
    check.Skip(String(row.Name) + u": deliveries", u"the driver never makes one");
}

} // namespace quorin
