#include "common/Sha256.h"

#include <windows.h>

#include <algorithm>
#include <bcrypt.h>
#include <stdexcept>

namespace vellumar {

struct Sha256::State {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
};

Sha256::Sha256()
    : state_(std::make_unique<State>())
{
    if (BCryptOpenAlgorithmProvider(&state_->algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0) != 0 ||
        BCryptCreateHash(state_->algorithm, &state_->hash, nullptr, 0, nullptr, 0, 0) != 0)
        throw std::runtime_error("SHA-256 is not available");
}

Sha256::~Sha256()
{
    if (state_->hash)
        BCryptDestroyHash(state_->hash);
    if (state_->algorithm)
        BCryptCloseAlgorithmProvider(state_->algorithm, 0);
}

void Sha256::update(std::string_view bytes)
{
    // CNG takes at most 4 GB at a time.
    while (!bytes.empty()) {
        const ULONG piece = static_cast<ULONG>(std::min<std::size_t>(bytes.size(), 1u << 30));
        BCryptHashData(state_->hash, reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data())),
                       piece, 0);
        bytes.remove_prefix(piece);
    }
}

std::string Sha256::hexDigest()
{
    unsigned char digest[32];
    BCryptFinishHash(state_->hash, digest, sizeof digest, 0);
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (unsigned char byte : digest) {
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 15];
    }
    return hex;
}

} // namespace vellumar
