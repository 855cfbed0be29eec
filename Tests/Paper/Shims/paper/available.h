// On a foreign target Clang takes each @available for true. Here it asks for the system's version
// that a test has chosen: what follows the @ becomes a condition. Read before every adapter.
#pragma once

extern "C" bool paper_hasVersion(const char* asked);

#define available(version, ...) selector(init) != nullptr && paper_hasVersion(#version)
