#pragma once

namespace orvale {

/// What ends the work when the user interrupts it, so that what is half done goes with the objects that hold it.
struct Interrupted {};

/// From here on an interrupt, a hang-up, a request to end or an output that nobody reads any more is kept for
/// ThrowIfInterrupted. For programs, not for the module: signals are the host's.
void CatchInterrupts();

/// Throws Interrupted once one of them came.
void ThrowIfInterrupted();

/// Ends the process by the signal that came, as its parent expects; returns only if the system refuses.
int EndByInterrupt();

}  // namespace orvale
