#pragma once

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "platform/widgets/CustomEdit.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace quorin {

// A value with its kind: null, 5 whole, 5.0 real, 'text'.
inline std::string Told(const Variant& value) {
    if (value.IsNull()) return "null";
    std::string text = ToUtf8(value.ToText());
    if (value.IsText()) return "'" + text + "'";
    const bool showsPoint = text.find_first_of(".E") != std::string::npos;
    return value.Kind() == Variant::TKind::Real && !showsPoint ? text + ".0" : text;
}

// What a person does, as words of a script: `type:12`, `shift+left`, `wheel:-120`. A descendant
// adds the words of its own widgets. Ends early when the edit dies.
class TEditPerson {
public:
    virtual ~TEditPerson() = default;

    void Do(StringView script) {
        for (const StringView word : Split(script, u' ')) {
            if (Edited() == nullptr) return;
            const std::size_t colon = word.find(u':');
            const StringView argument = colon == word.npos ? u"" : word.substr(colon + 1);
            const StringView name = word.substr(0, colon);
            if (!DoWord(name, argument)) ADD_FAILURE() << "no such action: " << ToUtf8(name);
        }
    }

protected:
    virtual TcxCustomEdit* Edited() = 0;
    virtual bool DoWord(StringView name, StringView argument) {
        TcxCustomEdit& edit = *Edited();
        const Integer number = ToIntegerOr(argument, 0);
        if (name == u"type") return edit.TypeText(argument), true;
        if (name == u"paste") return edit.Paste(argument), true;
        if (name == u"cut") return edit.Cut(), true;
        if (name == u"compose") return edit.Compose(argument), true;
        if (name == u"commit") return edit.CommitComposition(argument), true;
        if (name == u"press") return edit.PressButton(number), true;
        if (name == u"release") return edit.ReleaseButton(), true;
        if (name == u"click") return edit.Click(number), true;
        if (name == u"hold") return edit.PressMouse({}, number), true;
        if (name == u"drag") return edit.DragMouse(number), true;
        if (name == u"wheel") return edit.Wheel(number), true;
        if (name == u"enter") return edit.Enter(), true;
        if (name == u"leave") return edit.Leave(), true;
        if (name == u"all") return edit.SelectAll(), true;
        if (name == u"select") return edit.SetSelLength(number), true;
        if (name == u"exit") return edit.Perform(CM_EXIT, 0, 0), true;
        if (name == u"text") return edit.SetEditingText(argument), true;
        return DoKey(name);
    }

private:
    bool DoKey(StringView name) {
        TShiftState shift = TShiftState::None;
        for (const auto& [prefix, flag] : {std::pair{StringView(u"shift+"), TShiftState::Shift},
                                           std::pair{StringView(u"alt+"), TShiftState::Alt},
                                           std::pair{StringView(u"ctrl+"), TShiftState::Ctrl}}) {
            if (!name.starts_with(prefix)) continue;
            shift = flag;
            name.remove_prefix(prefix.size());
        }
        static constexpr std::pair<StringView, Word> keys[] = {
            {u"back", Key::Back},     {u"delete", Key::Delete}, {u"return", Key::Return},
            {u"escape", Key::Escape}, {u"left", Key::Left},     {u"right", Key::Right},
            {u"up", Key::Up},         {u"down", Key::Down},     {u"home", Key::Home},
            {u"end", Key::End},       {u"f4", Key::F4},         {u"a", u'A'},
        };
        for (const auto& [known, key] : keys) {
            if (known != name) continue;
            Edited()->PressKey(key, shift);
            if (Edited() != nullptr) Edited()->ReleaseKey(key, shift);
            return true;
        }
        return false;
    }
};

// Listens to all events of an edit and writes them down, one word each. `On` may be set to act
// inside the event of a name.
struct TEditTrace : TObject {
    // `content` tells what the edit holds, for each change.
    TEditTrace(TcxCustomEdit& edit, std::function<std::string()> content)
        : Content(std::move(content)) {
        edit.SetOnKeyDown(MakeEvent<&TEditTrace::KeyDown>(this));
        edit.SetOnKeyPress(MakeEvent<&TEditTrace::KeyPress>(this));
        edit.SetOnKeyUp(MakeEvent<&TEditTrace::KeyUp>(this));
        edit.SetOnMouseDown(MakeEvent<&TEditTrace::MouseDown>(this));
        edit.SetOnMouseUp(MakeEvent<&TEditTrace::MouseUp>(this));
        edit.SetOnMouseWheel(MakeEvent<&TEditTrace::Wheel>(this));
        edit.SetOnClick(MakeEvent<&TEditTrace::Click>(this));
        edit.SetOnEnter(MakeEvent<&TEditTrace::Enter>(this));
        edit.SetOnExit(MakeEvent<&TEditTrace::Exit>(this));
        edit.Properties().SetOnChange(MakeEvent<&TEditTrace::Change>(this));
        edit.Properties().SetOnValidate(MakeEvent<&TEditTrace::Validate>(this));
    }

    // What has been written down since the last call.
    std::string Take() { return std::exchange(Words, {}); }

    std::string ActsOn;
    std::function<void()> Act;
    std::function<void(Word&)> OnDown;
    std::function<void(Char&)> OnPress;
    std::function<void(Variant&, String&, Boolean&)> OnValidate;
    bool HandlesWheel = false;

private:
    void Tell(const std::string& name, const std::string& detail = {}) {
        if (!Words.empty()) Words += ' ';
        Words += name + detail;
        if (name == ActsOn) {
            ActsOn.clear();
            Act();
        }
    }
    static std::string KeyName(Char key) {
        return key < u' ' ? '#' + std::to_string(key) : ToUtf8(StringView(&key, 1));
    }

    void KeyDown(TObject*, Word& key, TShiftState) {
        Tell("down", std::to_string(key));
        if (OnDown) OnDown(key);
    }
    void KeyPress(TObject*, Char& key) {
        Tell("press", KeyName(key));
        if (OnPress) OnPress(key);
    }
    void KeyUp(TObject*, Word& key, TShiftState) { Tell("up", std::to_string(key)); }
    void MouseDown(TObject*, TMouseButton, TShiftState, Integer, Integer) { Tell("mousedown"); }
    void MouseUp(TObject*, TMouseButton, TShiftState, Integer, Integer) { Tell("mouseup"); }
    void Wheel(TObject*, TShiftState, Integer, TPoint, Boolean& handled) {
        handled = HandlesWheel;
        Tell("wheel");
    }
    void Click(TObject*) { Tell("click"); }
    void Enter(TObject*) { Tell("enter"); }
    void Exit(TObject*) { Tell("exit"); }
    void Change(TObject*) { Tell("change", ":" + Content()); }
    void Validate(TObject*, Variant& displayValue, String& errorText, Boolean& error) {
        Tell("validate", Told(displayValue));
        if (OnValidate) OnValidate(displayValue, errorText, error);
    }

    std::function<std::string()> Content;
    std::string Words;
};

} // namespace quorin
