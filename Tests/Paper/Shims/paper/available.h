// On other targets Clang treats each @available as true. This turns what follows the @ into a check
// of the system version that a test has set. Included before every adapter.
#pragma once

extern "C" bool paper_hasVersion(const char* asked);

#define available(version, ...) selector(init) != nullptr && paper_hasVersion(#version)
