#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tavrel::script {

/// A stretch of a source text; both in bytes, `start` from the beginning of the source.
struct Span {
  std::uint32_t start = 0;
  std::uint32_t length = 0;
};

/// The numbers that errors carry. They are AppleScript's own: scripts compare with them.
namespace errors {
constexpr int fileNotFound = -43;
constexpr int endOfFile = -39;
constexpr int outOfMemory = -108;
constexpr int userCanceled = -128;
constexpr int notRunning = -600;
constexpr int cannotCoerce = -1700;
constexpr int timedOut = -1712;
constexpr int notUnderstood = -1708;
constexpr int missingArgument = -1701;
constexpr int missingParameter = -1715;
constexpr int wrongArguments = -1721;
constexpr int badIndex = -1719;
constexpr int noSuchObject = -1728;
constexpr int componentFailed = -1750;
constexpr int corruptScript = -1758;
constexpr int general = -2700;
constexpr int dividedByZero = -2701;
constexpr int numberTooLarge = -2702;
constexpr int stackOverflow = -2706;
constexpr int syntax = -2741;
constexpr int doubledParameter = -2750;
constexpr int doubledProperty = -2751;
constexpr int doubledHandler = -2752;
constexpr int notDefined = -2753;
constexpr int strayExit = -2755;
constexpr int noResult = -2763;
constexpr int cannotSet = -10006;
constexpr int notPermitted = -10004;
} // namespace errors

/// What went wrong in a script. Thrown by most functions of the component, and caught by a `try` of
/// the script or by the functions of engine/Engine.h, which never throw.
struct ScriptError {
  int number = errors::general;
  std::string message{};
  Span span{};               ///< where in the source; of length 0 while it is not known
  std::string application{}; ///< that answered with the error; empty when none did
};

} // namespace tavrel::script
