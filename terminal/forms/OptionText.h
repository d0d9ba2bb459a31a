#pragma once

#include "platform/rtl/Utf.h"

#include <string>

namespace quorin {

// Texts of a command line, for every program of the terminal.

// What is wrong with a text that an option is given; empty for a good one.
inline std::string ProblemOf(const std::string& text) {
    if (text.empty()) return "must not be empty";
    return IsValidUtf8(text) ? std::string() : "not valid UTF-8";
}

// A message without control characters, so that it stays one line.
inline std::string OneLine(std::string text) {
    constexpr unsigned char FirstPrintable = 0x20;
    for (char& character : text) {
        if (static_cast<unsigned char>(character) < FirstPrintable) character = ' ';
    }
    return text;
}

} // namespace quorin
