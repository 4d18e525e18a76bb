#pragma once

#include <cstdint>
#include <string>

namespace vellumar {

// Appends numbers in the little-endian byte order of the picture and sound file formats.
inline void PutU16(std::string& out, std::uint32_t value)
{
    out.push_back(static_cast<char>(value & 0xFF));
    out.push_back(static_cast<char>((value >> 8) & 0xFF));
}

inline void PutU32(std::string& out, std::uint32_t value)
{
    PutU16(out, value & 0xFFFF);
    PutU16(out, value >> 16);
}

} // namespace vellumar
