#include "docs/snippets/Snippet.h"
#include "embedded/kit/ContractKit.h"
#include "platform/rtl/Numbers.h"

#include <iostream>
#include <utility>

namespace quorin {

// [log]
class TConsoleLog final : public TCustomLogFile {
public:
    void WriteLog(StringView Text, Byte Level) override {
        if (Level <= ViewLogLevel) std::clog << ToUtf8(Text) << '\n';
    }
};
// [/log]

TEST_F(TSnippet, Services) {
    // [install]
    TConsoleLog log;                // yours: it implements TCustomLogFile
    ServiceRegistry::Install(&log); // in the place of an installed one; the registry owns nothing
    TCustomLogFile::GetInstance()->WriteLog(u"started", ViewLogLevel);
    ServiceRegistry::Remove<TCustomLogFile>(); // before the object dies
    // [/install]
    EXPECT_EQ(TCustomLogFile::GetInstance(), nullptr);
}

// [registrations]
// The registrations of one operation, as every contract wants them.
class TCallbacks {
public:
    void Add(const TDataCallbackEvent& callback, TObject* owner) {
        const auto found = FByOwner.find(owner);
        if (found != FByOwner.end() && found->second.Callback == callback) return;
        FByOwner[owner] = {callback, ++FAdded};
    }
    void Remove(TObject* owner) { FByOwner.erase(owner); }

    // Owners may come, go and die inside their callbacks.
    void Tell(Pointer sender) {
        const int known = FAdded;
        const std::map<TObject*, TEntry> begun = FByOwner;
        for (const auto& [owner, entry] : begun) {
            const auto found = FByOwner.find(owner);
            if (found == FByOwner.end()) continue;      // it has gone
            if (found->second.Number > known) continue; // it came, or changed, after the beginning
            const TDataCallbackEvent callback = entry.Callback;
            callback(sender, nullptr);
        }
    }

private:
    struct TEntry {
        TDataCallbackEvent Callback;
        int Number = 0;
    };
    std::map<TObject*, TEntry> FByOwner;
    int FAdded = 0;
};
// [/registrations]

// [settings]
class TMySettings final : public TCustomConfigManager {
public:
    void RegisterConfigCallback(const TDataCallbackEvent& Callback, TObject* Owner) override {
        FCallbacks.Add(Callback, Owner);
    }
    void RemoveConfigCallback(TObject* Owner) override { FCallbacks.Remove(Owner); }
    String ReadString(StringView Section, StringView Key) const override {
        const auto found = FValues.find({String(Section), String(Key)});
        return found == FValues.end() ? String() : found->second;
    }
    Integer ReadInteger(StringView Section, StringView Key) const override {
        Integer number = 0;
        TryParseInteger(ReadString(Section, Key), number); // leaves 0 where it is none
        return number;
    }
    Boolean ReadBool(StringView Section, StringView Key) const override {
        const String text = ReadString(Section, Key);
        const StringView yes = u"YyTt";
        const bool saysYes = !text.empty() && yes.find(text.front()) != StringView::npos;
        return saysYes || ReadInteger(Section, Key) != 0;
    }
    const String& GetCurrentSection() const override { return FSection; }

    // The program's own side: changes, and word of them.
    void Set(StringView section, StringView key, StringView value) {
        String& stored = FValues[{String(section), String(key)}];
        FIsChanged |= stored != value;
        stored = value;
    }
    void Tell() {
        if (std::exchange(FIsChanged, false)) FCallbacks.Tell(nullptr);
    }

private:
    TCallbacks FCallbacks;
    std::map<std::pair<String, String>, String> FValues;
    const String FSection = u"desk";
    bool FIsChanged = false;
};
// [/settings]

// [driver]
class TMySettingsDriver final : public TConfigDriver {
public:
    TCustomConfigManager& Service() override { return FService; }
    void Set(StringView section, StringView key, StringView value) override {
        FService.Set(section, key, value);
    }
    void Deliver() override { FService.Tell(); }

private:
    TMySettings FService;
};
// [/driver]

TEST(OwnServices, Kit) {
    // [kit]
    TMySettingsDriver config;
    TContractReport report;
    RunContractKit({.Config = &config}, report); // drivers of further services beside it
    const bool isKept = report.IsKept();
    const String table = report.Table(); // a line for each check
    // [/kit]
    EXPECT_TRUE(isKept) << ToUtf8(table);
    EXPECT_NE(table.find(u"ConfigManager"), String::npos) << ToUtf8(table);
}

} // namespace quorin
