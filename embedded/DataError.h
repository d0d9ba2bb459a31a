#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorin {

// A data file that a program cannot go on with. The message is one line, "FILE:LINE: what is
// wrong", without a line where the fault is not in one (LINE 0).
class EDataError : public std::runtime_error {
public:
    EDataError(std::string_view file, std::int64_t line, std::string_view what)
        : std::runtime_error(Message(file, line, what)) {}

private:
    static std::string Message(std::string_view file, std::int64_t line, std::string_view what) {
        std::string message(file);
        if (line > 0) message.append(":").append(std::to_string(line));
        return message.append(": ").append(what);
    }
};

} // namespace quorin
