#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorin {

// A data file that a program cannot go on with. The message is one line, "FILE:LINE: what is
// wrong", without a line where the fault is not in one (LINE 0); control characters of the names
// and texts in it are blanks.
class EDataError : public std::runtime_error {
public:
    EDataError(std::string_view file, std::int64_t line, std::string_view what)
        : std::runtime_error(Message(file, line, what)) {}

private:
    // Also the control characters beyond ASCII, which in UTF-8 are this byte and one below.
    static void BlankControls(std::string& text) {
        constexpr unsigned char FirstPrintable = 0x20, Delete = 0x7F, Lead = 0xC2;
        constexpr unsigned char FirstPrintableTrail = 0xA0;
        for (std::size_t index = 0; index < text.size(); ++index) {
            const auto byte = static_cast<unsigned char>(text[index]);
            if (byte < FirstPrintable || byte == Delete) text[index] = ' ';
            if (byte != Lead || index + 1 == text.size()) continue;
            const auto trail = static_cast<unsigned char>(text[index + 1]);
            if (trail > Delete && trail < FirstPrintableTrail) text.replace(index, 2, " ");
        }
    }
    static std::string Message(std::string_view file, std::int64_t line, std::string_view what) {
        std::string message(file);
        if (line > 0) message.append(":").append(std::to_string(line));
        message.append(": ").append(what);
        BlankControls(message);
        return message;
    }
};

} // namespace quorin
