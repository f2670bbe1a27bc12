#include "command/files/Fingerprint.h"

#include <sha2.h>

namespace orvale {

Fingerprint FingerprintOf(const std::u16string& text) {
    SHA2_CTX context;
    SHA256Init(&context);
    SHA256Update(&context, reinterpret_cast<const std::uint8_t*>(text.data()), text.size() * sizeof(char16_t));
    Fingerprint fingerprint;
    SHA256Final(fingerprint.data(), &context);
    return fingerprint;
}

}  // namespace orvale
