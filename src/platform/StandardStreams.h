#pragma once

namespace orvale {

/// Takes the places of standard streams that the caller closed, which the next files to be opened would get: what is
/// told would go into them then. Reading from and writing to such a stream fails as before.
void HoldClosedStreams() noexcept;

}  // namespace orvale
