/// \file
/// A library that has one function, and not the one that is asked for.

extern "C" int OldFunction();
extern "C" int OldFunction() { return 1; }
