#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vellumar {

class FileOperations;

// SHA-256 from the system's own cryptography library (libcrypto on Linux, CNG on Windows),
// fed in pieces so that a big file need not sit in memory at once.
class Sha256 {
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void update(std::string_view bytes);
    // The digest as 64 lower-case hexadecimal digits; the hash is finished after this.
    std::string hexDigest();

private:
    struct State;
    std::unique_ptr<State> state_;
};

// The digest of `bytes`, in lower-case hexadecimal.
std::string Sha256Hex(std::string_view bytes);

// The digest of a regular file's bytes; nothing when it cannot be read.
std::optional<std::string> FileSha256(FileOperations& files, const std::string& path);

// True for 64 lower-case hexadecimal digits, the only names the originals store gives files.
bool IsSha256Hex(std::string_view text);

} // namespace vellumar
