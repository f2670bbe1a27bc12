#pragma once

namespace orvale {

/// Takes the places of standard streams that the caller closed, which the next files to be opened would get: what is
/// told would go into them then. Reading from and writing to such a stream fails as before.
void HoldClosedStreams() noexcept;

/// The same for one descriptor, as `open` gave it, in a module that may not take its host's places: gives another
/// number to a file that got that of a standard stream. Negative, with errno, where that fails or `open` did.
int BesideStandardStreams(int descriptor) noexcept;

}  // namespace orvale
