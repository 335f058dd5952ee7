#ifndef KORVOQR_INTERRUPTION_H
#define KORVOQR_INTERRUPTION_H

namespace korvoqr {

/// Lets a run end in order after Ctrl-C (SIGINT) or SIGTERM, as if its input had ended. A second signal ends
/// the process at once.
class Interruption {
  public:
    /// From now on, a signal is noted instead of ending the process. Call it once, before other threads
    /// exist.
    static void expect();

    /// In a child process: signals have their usual effect again.
    static void forget() noexcept;

    /// The number of the signal that has come; 0 if none has.
    static int signal() noexcept;

    /// A descriptor that becomes readable when a signal comes; negative if none is expected.
    static int descriptor() noexcept;

    /// Ends the process with the signal that has come, so that a shell sees it. Returns if none has come.
    static void endProcess();
};

}  // namespace korvoqr

#endif
