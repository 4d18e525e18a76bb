#include "common/Sha256.h"

#include "common/FileOperations.h"

#include <algorithm>

namespace vellumar {

std::string Sha256Hex(std::string_view bytes)
{
    Sha256 hash;
    hash.update(bytes);
    return hash.hexDigest();
}

std::optional<std::string> FileSha256(FileOperations& files, const std::string& path)
{
    const std::optional<std::string> bytes = files.readFile(path);
    if (!bytes)
        return std::nullopt;
    return Sha256Hex(*bytes);
}

bool IsSha256Hex(std::string_view text)
{
    return text.size() == 64 && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}

} // namespace vellumar
