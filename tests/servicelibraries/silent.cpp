#include <cstdio>

// A service library that installs nothing.

[[maybe_unused]] static const int told = std::fprintf(stderr, "<loaded>");
