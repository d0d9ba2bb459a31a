#pragma once

#include "platform/rtl/Utf.h"
#include "platform/widgets/CustomEdit.h"

#include <functional>
#include <string>

namespace quorin {

// A value with its kind: null, 5 whole, 5.0 real, 'text'.
inline std::string Told(const Variant& value) {
    if (value.IsNull()) return "null";
    std::string text = ToUtf8(value.ToText());
    if (value.IsText()) return "'" + text + "'";
    const bool showsPoint = text.find_first_of(".E") != std::string::npos;
    return value.Kind() == Variant::TKind::Real && !showsPoint ? text + ".0" : text;
}

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
