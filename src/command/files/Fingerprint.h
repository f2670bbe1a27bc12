#pragma once

// A record in 32 bytes, by which equal ones are known among many.

#include <array>
#include <cstdint>
#include <string>

#include "host/Flatten.h"

namespace orvale {

/// Stands for all that a record says, in place of the record: equal ones are those of equal records, also where
/// somebody who wants them to be chose the records.
using Fingerprint = std::array<std::uint8_t, 32>;

/// The SHA-256 of a text.
Fingerprint FingerprintOf(const std::u16string& text);

/// That of a record. `buffer` is the caller's, so that many records cost no memory each.
template <class Record>
Fingerprint FingerprintOf(const Record& record, std::u16string& buffer) {
    Flatten(record, buffer);
    return FingerprintOf(buffer);
}

}  // namespace orvale
