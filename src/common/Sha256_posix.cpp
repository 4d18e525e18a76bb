#include "common/Sha256.h"

#include <openssl/evp.h>
#include <stdexcept>

namespace vellumar {

struct Sha256::State {
    EVP_MD_CTX* context = nullptr;
};

Sha256::Sha256()
    : state_(std::make_unique<State>())
{
    state_->context = EVP_MD_CTX_new();
    if (!state_->context || EVP_DigestInit_ex(state_->context, EVP_sha256(), nullptr) != 1)
        throw std::runtime_error("SHA-256 is not available");
}

Sha256::~Sha256()
{
    EVP_MD_CTX_free(state_->context);
}

void Sha256::update(std::string_view bytes)
{
    EVP_DigestUpdate(state_->context, bytes.data(), bytes.size());
}

std::string Sha256::hexDigest()
{
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    EVP_DigestFinal_ex(state_->context, digest, &length);
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (unsigned int i = 0; i < length; ++i) {
        hex += kDigits[digest[i] >> 4];
        hex += kDigits[digest[i] & 15];
    }
    return hex;
}

} // namespace vellumar
