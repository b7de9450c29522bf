// Signals as something to wait for.
#ifndef OMBRELIA_HOST_RUN_SIGNALWATCH_H
#define OMBRELIA_HOST_RUN_SIGNALWATCH_H

namespace OmbreliaHost {

// While it lives, Control-C, a hang-up and a request to end do not end the program but can be taken here,
// and the end of a child process wakes up whoever polls. A signal that was ignored before stays so. One
// within the life of another one is the same as that.
class SignalWatch {
 public:
  SignalWatch();
  ~SignalWatch();
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;

  // Becomes readable with every signal.
  int Descriptor() const;
  // Makes the descriptor wait for the next signal; the signal that asked the program to end, 0 if none did.
  int Take();

  // Makes the watch of the process that forked this one wait no longer, as the end of this one would.
  static void WakeParent();
  // Gives the signals back their ordinary meaning; in a child process, right after the fork.
  static void RestoreInChild();
  // Ends this process as the signal would have ended it.
  [[noreturn]] static void EndBy(int signal);
};

}  // namespace OmbreliaHost

#endif
