#pragma once

#include <cstdint>
#include <string>

namespace vellumar {

// The error numbers of the media control interface that the CD interpreter gives, the same as
// Windows gives for the same condition, so that a message quoting one means the same everywhere.
namespace MciError {
inline constexpr std::uint32_t Base = 256;
inline constexpr std::uint32_t UnrecognizedKeyword = Base + 3;
inline constexpr std::uint32_t UnrecognizedCommand = Base + 5;
inline constexpr std::uint32_t InvalidDeviceName = Base + 7;
inline constexpr std::uint32_t CannotLoadDriver = Base + 10;
inline constexpr std::uint32_t MissingCommandString = Base + 11;
inline constexpr std::uint32_t MissingStringArgument = Base + 13;
inline constexpr std::uint32_t BadInteger = Base + 14;
inline constexpr std::uint32_t MissingParameter = Base + 17;
inline constexpr std::uint32_t UnsupportedFunction = Base + 18;
inline constexpr std::uint32_t DeviceNotReady = Base + 20;
inline constexpr std::uint32_t CannotUseAll = Base + 23;
inline constexpr std::uint32_t OutOfRange = Base + 26;
inline constexpr std::uint32_t DuplicateAlias = Base + 33;
inline constexpr std::uint32_t BadConstant = Base + 34;
inline constexpr std::uint32_t MissingDeviceName = Base + 36;
inline constexpr std::uint32_t NoClosingQuote = Base + 38;
inline constexpr std::uint32_t DuplicateFlags = Base + 39;
inline constexpr std::uint32_t NoInteger = Base + 56;
} // namespace MciError

// The system's English text for an error number; for a number the interpreter never gives, a
// text that names it.
std::string MciErrorText(std::uint32_t code);

} // namespace vellumar
