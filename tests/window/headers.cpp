// Nothing but the headers that the tests of windows share, precompiled.
