#pragma once

#include "embedded/ConfigService.h"
#include "platform/rtl/ScopedValue.h"

#include <algorithm>
#include <vector>

namespace quorin {

enum class TConfigFault {
    None,
    CallsInside,
    CallsTwice,
    KeepsReplaced,
    LosesReplaced,
    NeverRemoves,
    RemovesAll,
    ServesAdded,
    ServesReplaced,
    CallsRemoved,
    SkipsNext,
    CallsFirst,
    DropsNested,
    SendsItself,
    SendsData,
    AbsentReadsText,
    AbsentReadsOne,
};

// Keeps a list of registrations of its own.
class TFaultyConfig : public TEmbeddedConfigManager {
public:
    explicit TFaultyConfig(TConfigFault fault) : FFault(fault) {
        TEmbeddedConfigManager::RegisterConfigCallback(MakeEvent<&TFaultyConfig::Changed>(this),
                                                       &FOwner);
    }

    void RegisterConfigCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        if (Is(TConfigFault::CallsInside)) Callback(nullptr, nullptr);
        if (TEntry* known = Find(Owner)) {
            if (Is(TConfigFault::LosesReplaced))
                Drop(Owner);
            else if (!Is(TConfigFault::KeepsReplaced))
                known->Callback = Callback;
            return;
        }
        FEntries.push_back({Owner, Callback});
    }
    void RemoveConfigCallback(TObject* Owner) override {
        if (Is(TConfigFault::NeverRemoves)) return;
        if (Is(TConfigFault::RemovesAll)) FEntries.clear();
        Drop(Owner);
    }
    String ReadString(StringView Section, StringView Key) const override {
        const String text = TEmbeddedConfigManager::ReadString(Section, Key);
        return text.empty() && Is(TConfigFault::AbsentReadsText) ? u"0" : text;
    }
    Integer ReadInteger(StringView Section, StringView Key) const override {
        const bool isAbsent = TEmbeddedConfigManager::ReadString(Section, Key).empty();
        if (isAbsent && Is(TConfigFault::AbsentReadsOne)) return 1;
        return TEmbeddedConfigManager::ReadInteger(Section, Key);
    }

private:
    struct TEntry {
        TObject* Owner;
        TDataCallbackEvent Callback;
    };

    bool Is(TConfigFault fault) const { return FFault == fault; }
    TEntry* Find(TObject* owner) {
        for (TEntry& entry : FEntries) {
            if (entry.Owner == owner) return &entry;
        }
        return nullptr;
    }
    void Drop(TObject* owner) {
        std::erase_if(FEntries, [owner](const TEntry& entry) { return entry.Owner == owner; });
    }
    void Call(const TDataCallbackEvent& event) {
        event(Is(TConfigFault::SendsItself) ? Pointer(this) : nullptr,
              Is(TConfigFault::SendsData) ? Pointer(this) : nullptr);
    }
    void Changed(Pointer, Pointer) {
        if (Is(TConfigFault::DropsNested) && FDepth > 0) return;
        TScopedValue depth(FDepth, FDepth + 1);
        if (Is(TConfigFault::ServesAdded) || Is(TConfigFault::SkipsNext)) {
            const std::size_t first = FEntries.size();
            for (std::size_t index = 0; index < FEntries.size(); ++index) {
                if (Is(TConfigFault::SkipsNext) && index >= first) break;
                Call(TDataCallbackEvent(FEntries[index].Callback));
            }
            return;
        }
        const std::vector<TEntry> entries = FEntries;
        for (const TEntry& entry : entries) {
            const TEntry* known = Find(entry.Owner);
            if (known == nullptr && !Is(TConfigFault::CallsRemoved)) continue;
            const bool isReplaced = known != nullptr && !(known->Callback == entry.Callback);
            if (isReplaced && !Is(TConfigFault::ServesReplaced)) continue;
            const TDataCallbackEvent event = known != nullptr ? known->Callback : entry.Callback;
            Call(event);
            if (Is(TConfigFault::CallsTwice)) Call(event);
            if (Is(TConfigFault::CallsFirst)) return;
        }
    }

    const TConfigFault FFault;
    TObject FOwner;
    std::vector<TEntry> FEntries;
    Integer FDepth = 0;
};

} // namespace quorin
