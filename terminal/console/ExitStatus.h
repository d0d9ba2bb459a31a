#pragma once

namespace quorin {

// How the program ends. The shell sees these.
namespace ExitStatus {
inline constexpr int Done = 0;
inline constexpr int CannotWrite = 1;
inline constexpr int WrongLines = 1; // in a script, which went on all the same
inline constexpr int Unusable = 2;   // options or data that it can't work with
} // namespace ExitStatus

} // namespace quorin
