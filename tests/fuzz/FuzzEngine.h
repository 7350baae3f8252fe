#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// What every fuzz target shares: the engine started once per process, headless
// and logging to nowhere at level 0, and files of the process's own. Each target
// starts the engine in LLVMFuzzerInitialize (before the fuzzer takes the
// signals) and cleans up after each input, so that memory stays flat and a
// leak the sanitizer reports is a real one.

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace ot_fuzz {

// Starts the engine headless, with or without networking; false if it won't start.
bool startEngine(bool networking);
// A path for a temporary file of this process, distinct by name.
std::string tempPath(const std::string& name);
// Writes bytes to path, replacing what was there.
void writeFile(const std::string& path, const void* p_data, std::size_t size);
// Ends the process at once with a sanitizer-style report: for a broken invariant
// that no sanitizer sees by itself.
[[noreturn]] void fail(const char* what);

}  // namespace ot_fuzz
