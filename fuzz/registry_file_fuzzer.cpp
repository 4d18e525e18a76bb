// Any bytes as a Wine registry file: the scanner never crashes, whole or in chunks, and both
// ways give the same answer.

#include "config/WineRegistryFile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view contents(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> keys = {
        "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0",
        "Software\\Wow6432Node\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0", "A",
        "\xC3\xA9\\\\"};
    const auto whole = vellumar::WineRegistryScanner::Find(contents, keys, "EXE Path");
    (void)vellumar::WineRegistryScanner::Find(contents, {"A"}, "");

    vellumar::WineRegistryScanner chunked(keys, "EXE Path");
    const std::size_t chunk = size % 13 + 1;
    bool more = true;
    for (std::size_t at = 0; more && at < size; at += chunk)
        more = chunked.feed(contents.substr(at, chunk));
    if (more)
        chunked.finish();
    if (chunked.result() != whole)
        std::abort();
    return 0;
}
