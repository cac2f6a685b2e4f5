// The register of the blocks that the default host handed out, for GRX_HOST_MEMCHECK.
#pragma once

#include <cstddef>

#include "host_t.h"

namespace grx_host {

// True when the environment asked for the register at the first call: GRX_HOST_MEMCHECK set, and neither empty nor "0".
bool checks_memory();

void block_made(char* address, UNSIGNED_INT size);

// False, and a line on the standard error, when address may not be freed or resized: freed before, or never handed out.
// A wrong size is reported too, but the block is known. caller names the service.
bool block_given_back(const char* caller, char* address, UNSIGNED_INT size);

} // namespace grx_host
